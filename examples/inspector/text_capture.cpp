#include "examples/inspector/text_capture.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <memory>

namespace inspector {
namespace {

std::string ContentsOf(std::FILE* file) {
    std::rewind(file);
    std::string text;
    std::array<char, 4096> piece{};
    for (std::size_t count = 0; (count = std::fread(piece.data(), 1, piece.size(), file)) != 0;) {
        text.append(piece.data(), count);
    }
    return text;
}

}  // namespace

std::string CapturedOutput(const std::function<void()>& print) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), &std::fclose);
    std::fflush(stdout);
    const int kept = dup(STDOUT_FILENO);
    if (file == nullptr || kept == -1 || dup2(fileno(file.get()), STDOUT_FILENO) == -1) {
        if (kept != -1) {
            close(kept);
        }
        return {};
    }
    print();
    std::fflush(stdout);
    dup2(kept, STDOUT_FILENO);
    close(kept);
    return ContentsOf(file.get());
}

}  // namespace inspector
