#include "source_file.h"

namespace platen::tool {

using Step = FileWatch::Step;

/// Before the file is looked for, its name is stored.
Problem OpeningProblem(const FileWatch& watch) {
    return watch.Of(Step::Open) ? ProblemOf(0, watch.Of(Step::Open)) : Problem{0, kNoMemory};
}

Problem ReadingProblem(const Tiff& tiff, long status, const FileWatch& watch) {
    const std::optional<int>& reason = watch.Of(Step::Read);
    if (status == 1) {
        // The engine takes a value that cannot be read for one beyond the end of the file.
        return tiff.IsReadWhole() ? Problem{} : Problem{1, WithReason("could not be read", reason)};
    }
    if (tiff.IsReadWhole()) {
        return {.status = status,
                .what = "the first image ends beyond the file's end, unless it is compressed",
                .isNote = true};
    }
    return ProblemOf(status, reason);
}

}  // namespace platen::tool
