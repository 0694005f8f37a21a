#include <memory>

#include "commands.h"
#include "output.h"
#include "source_file.h"
#include "tag_values.h"

namespace platen::tool {
namespace {

struct GetOptions {
    std::string file;
    std::string tag;
    long long dir = 0;
};

int Get(const GetOptions& options) {
    const tiff::TagRow& row = TagNamed(options.tag);
    const SourceFile<Tiff> source(options.file);
    if (!source.GetProblem().what.empty()) {
        PrintProblem(options.file, source.GetProblem());
        return kFileFailed;
    }
    if (!source.HasDirectory(options.file, options.dir)) {
        return kFileFailed;
    }
    const auto text = TagText(row, source.GetEngine().getStdDir()[options.dir]);
    if (!text) {
        PrintFailure(options.file, options.dir, std::string("no ") + row.name);
        return kFileFailed;
    }
    Output output;
    output.Write(*text + "\n");
    return output.Finish() ? kDone : kFileFailed;
}

}  // namespace

void AddGet(CLI::App& program, int& exitStatus) {
    auto options = std::make_shared<GetOptions>();
    CLI::App* command = program.add_subcommand("get", "Print one tag's value");
    command->add_option("FILE", options->file, "A TIFF file")->required()->option_text(" ");
    command->add_option("TAG", options->tag, "A tag's number or its name in TIFF")
        ->required()
        ->option_text(" ");
    command->add_option("--dir", options->dir, "Look into directory N, counted from 0 (default: 0)")
        ->option_text("N");
    command->footer(
        "Numbers are separated by a space, fractions read 72/1. Exit status 1: the tag is absent.\n"
        "Example:\n  platen get scan.tif ImageWidth");
    command->callback([options, &exitStatus] { exitStatus = Get(*options); });
}

}  // namespace platen::tool
