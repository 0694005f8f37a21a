#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Stands in for libFuzzer: runs the target once on every file named, and on every file of every
/// folder named.
namespace {

bool Replay(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file) {
        static_cast<void>(std::fprintf(stderr, "cannot read %s\n", path.c_str()));
        return false;
    }
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    int replayed = 0;
    bool good = true;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            good = Replay(argv[i]) && good;
            ++replayed;
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            good = Replay(entry.path()) && good;
            ++replayed;
        }
    }
    std::printf("%d inputs replayed\n", replayed);
    return good && replayed > 0 ? 0 : 1;
}
