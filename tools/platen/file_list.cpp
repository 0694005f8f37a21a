#include "file_list.h"

#include <algorithm>
#include <thread>

#include "system.h"

namespace platen::tool {

namespace {
constexpr unsigned kMostJobs = 1024;
}

void FileList::AddTo(CLI::App& command) {
    command.add_option("FILE", names, "TIFF files")->required()->option_text(" ");
    command.add_option("-j,--jobs", jobs, "Work on N files side by side (default: the processors)")
        ->option_text("N")
        ->check(CLI::Range(1U, kMostJobs));
}

unsigned FileList::Threads() const {
    if (names.size() <= 1) {
        return 1;
    }
    const unsigned wanted = jobs != 0 ? jobs : std::max(1U, std::thread::hardware_concurrency());
    return std::min(wanted, MostThreads());
}

}  // namespace platen::tool
