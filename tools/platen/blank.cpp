#include <memory>

#include "transfer.h"

namespace platen::tool {

void AddBlank(CLI::App& program, int& exitStatus) {
    auto options = std::make_shared<TransferOptions>();
    CLI::App* command =
        program.add_subcommand("blank", "Write a file with another one's tags and empty images");
    options->AddTo(*command);
    command->footer(
        "Directories without a subfile type are passed over.\n"
        "Example:\n  platen blank scan.tif form.tif");
    command->callback(
        [options, &exitStatus] { exitStatus = WriteByEngine(*options, &Tiff::WriteNewInto); });
}

}  // namespace platen::tool
