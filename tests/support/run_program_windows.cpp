#include <cstdlib>

#include <platen/platform/win32.h>

#include "tests/support/run_program.h"
#include "tests/support/temporary_file.h"

namespace platen::test {
namespace {

/// An inheritable handle to write to an existing file.
HANDLE OpenToWrite(const char* name) {
    SECURITY_ATTRIBUTES inheritable = {sizeof(inheritable), nullptr, TRUE};
    return CreateFileA(name, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                       OPEN_EXISTING, 0, nullptr);
}

HANDLE OpenBrokenPipe() {
    SECURITY_ATTRIBUTES inheritable = {sizeof(inheritable), nullptr, TRUE};
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (CreatePipe(&readEnd, &writeEnd, &inheritable, 0) != FALSE) {
        CloseHandle(readEnd);
    }
    return writeEnd;
}

/// A word as the C runtime library takes it from a command line: backslashes count as themselves
/// but before a quotation mark.
std::string Quoted(const std::string& word) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char letter : word) {
        if (letter == '"') {
            quoted.append(backslashes + 1, '\\');
        }
        backslashes = letter == '\\' ? backslashes + 1 : 0;
        quoted += letter;
    }
    return quoted.append(backslashes, '\\') + '"';
}

int Spawn(const std::string& program, const std::vector<std::string>& arguments, HANDLE out,
          HANDLE err) {
    std::string commandLine = Quoted(program);
    for (const std::string& argument : arguments) {
        commandLine += " " + Quoted(argument);
    }
    const HANDLE in = OpenToWrite("NUL");
    STARTUPINFOA start = {};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in;
    start.hStdOutput = out;
    start.hStdError = err;
    PROCESS_INFORMATION process = {};
    const BOOL started = CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0,
                                        nullptr, nullptr, &start, &process);
    CloseHandle(in);
    if (started == FALSE) {
        return -1;
    }
    DWORD status = static_cast<DWORD>(-1);
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(status);
}

}  // namespace

Outcome RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const Streams& streams) {
    if (streams.outIsTerminal || streams.errIsTerminal) {
        std::abort();  // nothing here makes one
    }
    const TemporaryFile outFile;
    const TemporaryFile errFile;
    const std::string outPath = streams.outPath.empty() ? outFile.Path() : streams.outPath;
    const HANDLE out = streams.outIsBroken ? OpenBrokenPipe() : OpenToWrite(outPath.c_str());
    const HANDLE err = OpenToWrite(errFile.Name());
    Outcome outcome;
    outcome.exitStatus = Spawn(program, arguments, out, err);
    CloseHandle(out);
    CloseHandle(err);
    outcome.out = outFile.Contents();
    outcome.err = errFile.Contents();
    return outcome;
}

}  // namespace platen::test
