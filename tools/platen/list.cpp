#include <cstdio>
#include <memory>
#include <optional>

#include <platen/base/files.h>

#include "commands.h"
#include "output.h"
#include "source_file.h"

namespace platen::tool {
namespace {

struct ListOptions {
    std::string file;
    std::optional<long long> dir;
};

/// The engine prints on standard output itself; each directory is flushed so that a reader that
/// went away, or a full device, ends the listing.
void PrintListing(Tiff& tiff, short dir, Output& output) {
    tiff.WriteIFDStdDir(FILE_none(), 0, dir, 1);
    output.Flush();
}

int List(const ListOptions& options) {
    SourceFile<Tiff> source(options.file);
    const bool readWhole = source.GetProblem().what.empty();
    Output output;
    if (!options.dir) {
        for (short dir = 0; dir < source.Directories() && !output.Failed(); ++dir) {
            PrintListing(source.GetEngine(), dir, output);
        }
    } else if (readWhole && !source.HasDirectory(options.file, *options.dir)) {
        return kFileFailed;
    } else if (*options.dir >= 0 && *options.dir < source.Directories()) {
        PrintListing(source.GetEngine(), static_cast<short>(*options.dir), output);
    }
    if (!readWhole) {
        PrintProblem(options.file, source.GetProblem());
    }
    return output.Finish() && readWhole ? kDone : kFileFailed;
}

}  // namespace

void AddList(CLI::App& program, int& exitStatus) {
    auto options = std::make_shared<ListOptions>();
    CLI::App* command =
        program.add_subcommand("list", "List the tags of a file's directories with their meaning");
    command->add_option("FILE", options->file, "A TIFF file")->required()->option_text(" ");
    command->add_option("--dir", options->dir, "List directory N alone, counted from 0")
        ->option_text("N");
    command->footer("Lines end in CR LF. Example:\n  platen list --dir 1 scan.tif");
    command->callback([options, &exitStatus] { exitStatus = List(*options); });
}

}  // namespace platen::tool
