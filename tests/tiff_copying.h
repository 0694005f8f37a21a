#pragma once

#include <filesystem>
#include <fstream>
#include <functional>

#include <platen/tiff/TiffCopy.h>

#include "tests/tiff_writing.h"

namespace platen::test {

/// A folder of its own: in.tif is copied to out.tif, and nothing else may appear.
class Copy : public testing::Test {
  protected:
    Copy() { std::filesystem::create_directory(m_folder); }
    ~Copy() override { std::filesystem::remove_all(m_folder); }

    [[nodiscard]] std::string Path(const std::string& name) const {
        return (m_folder / name).string();
    }

    [[nodiscard]] std::string Folder() const { return m_folder.string(); }
    void Put(const std::string& name, const Bytes& bytes) const {
        std::ofstream(Path(name), std::ios::binary) << bytes;
    }

    TiffCopy::Result CopyTo(
        const std::string& out, short format,
        const std::function<void(TiffCopy&)>& edit = [](TiffCopy&) {}) const {
        TiffCopy copy;
        void* handle = FILE_open(Path("in.tif").c_str(), 0, nullptr);
        copy.Read(handle);
        edit(copy);
        const TiffCopy::Result result = copy.CopyTo(Path(out).c_str(), format);
        FILE_close(handle);
        return result;
    }

    [[nodiscard]] std::ptrdiff_t Files() const {
        return std::distance(std::filesystem::directory_iterator(m_folder), {});
    }

  private:
    std::filesystem::path m_folder = NewTemporaryPath();
};

/// A gray image of 10 times 10 pixels and the entries `more`, in place of its own.
inline Bytes Gray(const std::vector<Entry>& more, Order order = Order::Intel) {
    Bytes data;
    for (int i = 0; i < 300; ++i) {
        data += static_cast<char>(i * 7);
    }
    std::vector<Entry> entries = {Longs(256, {10}), Longs(257, {10}), Shorts(258, {8}),
                                  Shorts(262, {1}), Longs(273, {8}),  Longs(278, {10}),
                                  Longs(279, {100})};
    for (const Entry& entry : more) {
        std::erase_if(entries, [&](const Entry& other) { return other.tag == entry.tag; });
        entries.push_back(entry);
    }
    std::ranges::sort(entries, {}, &Entry::tag);
    return Build({.order = order, .data = data, .directories = {{entries}}});
}

}  // namespace platen::test
