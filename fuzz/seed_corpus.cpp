#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <platen/tiff/records.h>

#include "tests/support/hostile_files.h"
#include "tests/support/temporary_file.h"
#include "tests/support/tiff_builder.h"

/// Writes the seeds of the reading fuzz target: `seed_corpus FOLDER [FILE...]` puts small built
/// files, and copies of the files named, into the folder.
namespace {

using platen::test::Build;
using platen::test::Bytes;
using platen::test::Entry;
using platen::test::kOrders;
using platen::test::Order;
using platen::test::Word;

constexpr std::size_t kMost = 32768;

void Write(const std::filesystem::path& path, const Bytes& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Every tag near the known ones, with one type and count, the values at 8.
Bytes EveryTag(Order order, std::uint16_t type, std::uint32_t count) {
    std::vector<Entry> entries;
    for (std::uint16_t tag = 254; tag < 331; ++tag) {
        entries.push_back(Word(tag, type, count, 8));
    }
    for (std::uint16_t tag = 33445; tag < 33453; ++tag) {
        entries.push_back(Word(tag, type, count, 8));
    }
    return Build({.order = order, .data = Bytes(64, 'v'), .directories = {{entries}, {}}});
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    std::filesystem::create_directories(folder);
    for (const Order order : kOrders) {
        const std::string suffix = order == Order::Intel ? "-intel" : "-motorola";
        for (std::uint16_t type = TIFF_BYTE; type <= TIFF_RATIONAL; ++type) {
            for (const std::uint32_t count : {0U, 1U, 2U, 7U}) {
                Write(folder /
                          ("tags-" + std::to_string(type) + "-" + std::to_string(count) + suffix),
                      EveryTag(order, type, count));
            }
        }
    }
    for (const platen::test::NamedFile& file : platen::test::HostileFiles()) {
        if (file.bytes.size() <= kMost) {
            Write(folder / file.name, file.bytes);
        }
    }
    for (int i = 2; i < argc; ++i) {
        const std::filesystem::path source = argv[i];
        Write(folder / source.filename(), platen::test::FileContents(source));
    }
    return 0;
}
