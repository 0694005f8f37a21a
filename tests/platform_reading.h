#pragma once

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>

#include <platen/platform/win32.h>

#include "tests/support/temporary_file.h"

/// What the tests of the file functions share.
namespace platen::test {

inline constexpr UINT kFailed = static_cast<UINT>(HFILE_ERROR);
inline HANDLE AsHandle(HFILE file) {
    return reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(file));
}

inline std::string RandomBytes(std::size_t size, unsigned seed) {
    std::minstd_rand random(seed);
    std::string bytes(size, '\0');
    std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<char>(random() >> 8U); });
    return bytes;
}

/// Up to `count` bytes from the position on; "(failed)" instead of -1.
inline std::string ReadFrom(HFILE file, UINT count) {
    std::string bytes(count, '\0');
    const UINT got = _lread(file, bytes.data(), count);
    return got == kFailed ? "(failed)" : bytes.substr(0, got);
}

struct OpenedFile {
    OpenedFile(const TemporaryFile& file, int mode) : handle(_lopen(file.Name(), mode)) {}
    ~OpenedFile() { CloseHandle(AsHandle(handle)); }
    OpenedFile(const OpenedFile&) = delete;
    OpenedFile& operator=(const OpenedFile&) = delete;
    HFILE handle;
};

}  // namespace platen::test
