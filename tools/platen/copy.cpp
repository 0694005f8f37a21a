#include <memory>

#include "transfer.h"

namespace platen::tool {
namespace {

struct CopyOptions {
    TransferOptions transfer;
    bool raw = false;
};

int Copy(const CopyOptions& options) {
    if (options.raw) {
        return WriteByEngine(options.transfer, &Tiff::WriteCopyInto);
    }
    SourceFile<TiffCopy> source(options.transfer.in);
    if (source.GetProblem().Failed()) {
        PrintProblem(options.transfer.in, source.GetProblem());
        return kFileFailed;
    }
    return CopyFaithfully(source, options.transfer);
}

}  // namespace

void AddCopy(CLI::App& program, int& exitStatus) {
    auto options = std::make_shared<CopyOptions>();
    CLI::App* command = program.add_subcommand(
        "copy", "Copy a file in either byte order, with the same pixels and tags");
    options->transfer.AddTo(*command);
    command->add_flag("--raw", options->raw, "Write the engine's own copy");
    command->footer(
        "OUT appears when it is whole, and can be a pipe; what cannot be copied faithfully, such\n"
        "as compressed images, is refused. With --raw, directories without a subfile type are\n"
        "passed over, and a directory's image is one block from its first strip on.\n"
        "Example:\n  platen copy --motorola scan.tif big-endian.tif");
    command->callback([options, &exitStatus] { exitStatus = Copy(*options); });
}

}  // namespace platen::tool
