#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/run_program.h"
#include "tests/support/temporary_file.h"
#include "tests/support/tiff_builder.h"

/// Running the program, and what it is run on.
namespace platen::test {

inline Outcome Platen(const std::vector<std::string>& arguments, const Streams& streams = {}) {
    return RunProgram(PLATEN_PROGRAM, arguments, streams);
}

/// A gray image and behind it a reduced one, LZW, whose photometric code has no word.
inline Bytes FullAndReduced(Order order) {
    const auto image = [](std::uint32_t subfile, std::uint32_t side, std::uint32_t compression,
                          std::uint32_t photometric) {
        return Directory{{Longs(254, {subfile}), Shorts(256, {side}), Shorts(257, {side}),
                          Shorts(258, {8}), Shorts(259, {compression}), Shorts(262, {photometric}),
                          Longs(273, {8})}};
    };
    return Build({.order = order,
                  .data = Bytes(144, '\0'),
                  .directories = {image(0, 12, 1, 1), image(1, 3, 5, 9)}});
}

/// A gray image with its pixels, and a text by which to tell it from others.
inline Bytes GrayImage(const std::string& software) {
    return Build({.data = Bytes(16, 'p'),
                  .directories = {{{Longs(254, {0}), Shorts(256, {4}), Shorts(257, {4}),
                                    Shorts(258, {8}), Shorts(259, {1}), Longs(273, {8}),
                                    Longs(279, {16}), Text(305, software)}}}});
}

inline std::string ReadingFailed(const TemporaryFile& file) {
    return "platen: " + file.Path() + ": read failure or inconsistent file (status -3)\n";
}

/// A folder of its own, so that a test sees every file that is left in it.
class CliWrite : public testing::Test {
  protected:
    CliWrite() { std::filesystem::create_directory(m_folder); }
    ~CliWrite() override { std::filesystem::remove_all(m_folder); }

    [[nodiscard]] std::string At(const std::string& name) const {
        return (m_folder / name).generic_string();
    }
    [[nodiscard]] std::string Folder() const { return m_folder.string(); }
    std::string Put(const std::string& name, const std::string& bytes) const {
        std::ofstream(At(name), std::ios::binary) << bytes;
        return At(name);
    }
    [[nodiscard]] std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder)) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }
    [[nodiscard]] std::string Get(const std::string& file, const std::string& tag,
                                  const std::string& dir = "0") const {
        const Outcome outcome = Platen({"get", At(file), tag, "--dir", dir});
        EXPECT_EQ(outcome.exitStatus, outcome.out.empty() ? 1 : 0) << tag;
        return outcome.out;
    }

  private:
    std::filesystem::path m_folder = NewTemporaryPath();
};

}  // namespace platen::test
