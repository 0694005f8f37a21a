#include <cstdlib>
#include <exception>
#include <new>
#include <sstream>

#include "commands.h"
#include "messages.h"
#include "output.h"
#include "system.h"

namespace platen::tool {
namespace {

/// One line of what is wrong, and where help is to be had. CLI11 would only miss a subcommand where
/// a word was taken for none.
std::string UsageMessage(const CLI::App* program, const CLI::Error& error) {
    std::string command = program->get_name();
    std::string wrong = error.what();
    const std::vector<CLI::App*> subcommands = program->get_subcommands();
    if (!subcommands.empty()) {
        command += " " + subcommands.front()->get_name();
    } else if (program->remaining_size() != 0) {
        wrong = "Neither a subcommand nor an option: " + program->remaining().front();
    }
    return command + ": " + InMessage(wrong) + "\nTry '" + command + " --help'.\n";
}

bool g_memoryRanOut = false;

void NoteNoMemory() {
    g_memoryRanOut = true;
    throw std::bad_alloc();
}

/// Prints help, version or what is wrong with the command line.
int EndParsing(const CLI::App& program, const CLI::ParseError& error) {
    std::ostringstream out;
    std::ostringstream err;
    // Streams keep to themselves that there was no memory for what they were given.
    g_memoryRanOut = false;
    const std::new_handler before = std::set_new_handler(&NoteNoMemory);
    const bool wrong = program.exit(error, out, err) != 0;
    std::set_new_handler(before);
    if (g_memoryRanOut) {
        throw std::bad_alloc();
    }
    PrintToStandardError(err.str());
    Output output;
    output.Write(out.str());
    if (!output.Finish()) {
        return kFileFailed;
    }
    return wrong ? kWrongUsage : kDone;
}

int Run(int argc, char** argv) {
    int exitStatus = kDone;
    CLI::App program("Shows what TIFF files are and hold, and writes them with other tags.",
                     "platen");
    program.set_version_flag("--version", "platen " PLATEN_VERSION, "Print the version and exit");
    program.require_subcommand(1);
    program.allow_windows_style_options(false);  // "/scans/a.tif" is a file on every system
    program.failure_message(UsageMessage);
    program.footer("'platen SUBCOMMAND --help' tells more and gives an example.");
    AddDump(program, exitStatus);
    AddInfo(program, exitStatus);
    AddList(program, exitStatus);
    AddGet(program, exitStatus);
    AddSet(program, exitStatus);
    AddCopy(program, exitStatus);
    AddBlank(program, exitStatus);
    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return EndParsing(program, error);
    }
    return exitStatus;
}

/// Takes no memory.
void PrintNoMemory() {
    PrintToStandardError("platen: ");
    PrintToStandardError(kNoMemory);
    PrintToStandardError("\n");
}

/// Before `main` there is nobody to catch what is thrown while the command line library's objects
/// are built; and nothing was thrown when there was no memory for the exception itself.
[[noreturn]] void EndUncaught() {
    try {
        if (const std::exception_ptr thrown = std::current_exception()) {
            std::rethrow_exception(thrown);
        }
    } catch (const std::bad_alloc&) {
    } catch (...) {
        std::abort();
    }
    PrintNoMemory();
    std::_Exit(kFileFailed);
}

/// Runs before any object is built.
[[gnu::constructor(101)]] void PrepareForUncaught() {
    std::set_terminate(&EndUncaught);
}

}  // namespace
}  // namespace platen::tool

int main(int argc, char** argv) {
    using namespace platen::tool;
    try {
        PrepareStreams();
        return Run(argc, argv);
    } catch (const std::bad_alloc&) {
        PrintNoMemory();
    } catch (const std::exception& error) {
        PrintToStandardError(std::string("platen: ") + error.what() + "\n");
    }
    return kFileFailed;
}
