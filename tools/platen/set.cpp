#include <algorithm>
#include <memory>

#include <platen/tiff/directory_walk.h>

#include "tag_edit.h"
#include "transfer.h"

namespace platen::tool {
namespace {

struct SetOptions {
    TransferOptions transfer;
    std::vector<std::string> edits;
    long long dir = 0;
};

/// All edits, in ascending order of their tags.
std::vector<TagEdit> ParseEdits(const std::vector<std::string>& arguments) {
    std::vector<TagEdit> edits(arguments.size());
    std::ranges::transform(arguments, edits.begin(), ParseEdit);
    const auto tagOf = [](const TagEdit& edit) { return edit.row->tag; };
    std::ranges::sort(edits, {}, tagOf);
    const auto twice = std::ranges::adjacent_find(edits, {}, tagOf);
    if (twice != edits.end()) {
        throw CLI::ValidationError(std::string(twice->row->name) + ": given twice");
    }
    return edits;
}

/// The private tags are written only beside FileTag. The name of one that would get lost by edits
/// which concern them, or null.
const char* LostPrivateTag(const std::vector<TagEdit>& edits, const TiffIFDStdDirStruct& record) {
    if (record.FileTag != tiff::kNone32 || edits.back().row->tag < tiff::TagIndex::kFirstPrivate) {
        return nullptr;
    }
    TiffIFDStdDirStruct beside = record;
    beside.FileTag = 0;
    const auto lost = std::ranges::find_if(tiff::kTags, [&beside](const tiff::TagRow& row) {
        return row.tag > tiff::TagIndex::kFirstPrivate && tiff::ValueToWrite(row, beside);
    });
    return lost == tiff::kTags.end() ? nullptr : lost->name;
}

int Set(const SetOptions& options) {
    const std::vector<TagEdit> edits = ParseEdits(options.edits);
    const std::string& in = options.transfer.in;
    SourceFile<TiffCopy> source(in);
    if (source.GetProblem().Failed()) {
        PrintProblem(in, source.GetProblem());
        return kFileFailed;
    }
    if (!source.HasDirectory(in, options.dir)) {
        return kFileFailed;
    }
    TiffCopy& tiff = source.GetEngine();
    const auto dir = static_cast<short>(options.dir);
    for (const TagEdit& edit : edits) {
        Apply(edit, tiff, dir);
        tiff.ForgetTAG(edit.row->tag, dir);
    }
    if (const char* name = LostPrivateTag(edits, tiff.getStdDir()[dir])) {
        PrintFailure(in, dir, std::string(name) + " needs FileTag beside it");
        return kFileFailed;
    }
    return CopyFaithfully(source, options.transfer);
}

}  // namespace

void AddSet(CLI::App& program, int& exitStatus) {
    auto options = std::make_shared<SetOptions>();
    CLI::App* command = program.add_subcommand("set", "Copy a file with tags replaced or removed");
    options->transfer.AddTo(*command);
    command
        ->add_option("TAG=VALUE", options->edits,
                     "A tag and its value as 'platen get' prints it; without one it goes")
        ->required()
        ->option_text("...");
    command->add_option("--dir", options->dir, "Edit directory N, counted from 0 (default: 0)")
        ->option_text("N");
    command->footer(
        "OUT appears when it is whole, and may be IN.\nExample:\n"
        "  platen set scan.tif edited.tif Artist='A. Person' XResolution=300/1 PageName=");
    command->callback([options, &exitStatus] { exitStatus = Set(*options); });
}

}  // namespace platen::tool
