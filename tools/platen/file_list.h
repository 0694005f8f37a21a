#pragma once

#include <CLI/CLI.hpp>
#include <new>
#include <optional>
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
    using Result = std::invoke_result_t<Work, const std::string&>;
    Progress progress(files.names.size());
    bool good = true;
    /// Nothing when there was no memory for the result.
    const auto workOn = [&](std::size_t job) -> std::optional<Result> {
        try {
            return work(files.names[job]);
        } catch (const std::bad_alloc&) {
            return std::nullopt;
        }
    };
    const auto take = [&](std::size_t job, const std::optional<Result>& result) {
        const Problem problem = result ? result->problem : Problem{-4, kNoMemory};
        const bool says = !problem.what.empty();
        if (says || output.IsTerminal()) {
            progress.Clear();
        }
        if (result) {
            print(*result);
        }
        if (says || output.IsTerminal()) {
            output.Flush();
        }
        if (says) {
            PrintProblem(files.names[job], problem);
        }
        good = good && !problem.Failed();
        progress.Show(job + 1);
        return !output.Failed();
    };
    RunInOrder(files.names.size(), files.Threads(), workOn, take);
    progress.Clear();
    return output.Finish() && good ? kDone : kFileFailed;
}

}  // namespace platen::tool
