#include "info.h"

#include <memory>

#include "commands.h"
#include "file_list.h"

namespace platen::tool {
namespace {

struct InfoOptions {
    FileList files;
    bool json = false;
};

struct Info {
    std::string text;
    Problem problem;
};

int ShowInfo(const InfoOptions& options) {
    const auto describe = options.json ? &InfoJson : &InfoTable;
    Output output;
    return RunOnFiles(
        options.files, output,
        [describe, forTerminal = output.IsTerminal()](const std::string& name) {
            const Inspection file(name);
            return Info{describe(file, forTerminal), file.GetProblem()};
        },
        [&output](const Info& info) { output.Write(info.text); });
}

}  // namespace

void AddInfo(CLI::App& program, int& exitStatus) {
    auto options = std::make_shared<InfoOptions>();
    CLI::App* command =
        program.add_subcommand("info", "Describe each file and its directories in a short table");
    options->files.AddTo(*command);
    command->add_flag("--json", options->json, "One line of JSON a file instead of the table");
    command->footer("Example:\n  platen info --json scans/*.tif | jq .size");
    command->callback([options, &exitStatus] { exitStatus = ShowInfo(*options); });
}

}  // namespace platen::tool
