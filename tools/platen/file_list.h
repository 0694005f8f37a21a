#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "commands.h"
#include "messages.h"
#include "ordered_jobs.h"
#include "output.h"
#include "progress.h"

namespace platen::tool {

/// The files that a subcommand was given, and how many of them to work on side by side.
struct FileList {
    std::vector<std::string> names;
    unsigned jobs = 0;  ///< 0: one a processor

    void AddTo(CLI::App& command);
    [[nodiscard]] unsigned Threads() const;
};

/// Runs `work(name)` on every file; its result holds a member `problem`. `print(result)`
/// follows in the order of the list, whatever became of the files before. The exit status.
template <typename Work, typename Print>
int RunOnFiles(const FileList& files, Output& output, const Work& work, const Print& print) {
    Progress progress(files.names.size());
    bool good = true;
    const auto take = [&](std::size_t job, const auto& result) {
        const bool failed = !result.problem.what.empty();
        if (failed || output.IsTerminal()) {
            progress.Clear();
        }
        print(result);
        if (failed || output.IsTerminal()) {
            output.Flush();
        }
        if (failed) {
            PrintProblem(files.names[job], result.problem);
            good = false;
        }
        progress.Show(job + 1);
        return !output.Failed();
    };
    RunInOrder(
        files.names.size(), files.Threads(),
        [&](std::size_t job) { return work(files.names[job]); }, take);
    progress.Clear();
    return output.Finish() && good ? kDone : kFileFailed;
}

}  // namespace platen::tool
