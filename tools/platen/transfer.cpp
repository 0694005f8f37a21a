#include "transfer.h"

#include <filesystem>

#include <platen/base/file_names.h>
#include <platen/base/file_watch.h>
#include <platen/base/output_file.h>
#include <platen/base/system_error.h>

#include "interrupt.h"
#include "stream.h"
#include "transfer_progress.h"

namespace platen::tool {
namespace {

namespace fs = std::filesystem;
using Step = FileWatch::Step;

enum class Target : std::uint8_t {
    Refused,  ///< and why was printed
    File,
    Source,  ///< the input itself
    Stream
};

/// What the output's name leads to. What cannot be told is not replaced.
Target TargetOf(const TransferOptions& options) {
    std::error_code error;
    const fs::path out = PathOf(options.out.c_str());
    const auto refuse = [&options, &error](const char* what) {
        PrintFailure(options.out, -1, WithReason(what, error.value()));
        return Target::Refused;
    };
    const bool isStream = Stream::IsNamed(options.out);
    const fs::file_type type = fs::status(out, error).type();
    if (type == fs::file_type::not_found) {
        return isStream ? Target::Stream : Target::File;
    }
    if (type == fs::file_type::none) {
        return refuse("the output could not be looked at");
    }
    error.clear();
    const bool isSource = fs::equivalent(PathOf(options.in.c_str()), out, error);
    if (error) {
        return refuse("cannot be told from the input");
    }
    if (isStream) {
        return isSource ? refuse("is the file being read") : Target::Stream;
    }
    if (!isSource && !options.force && type == fs::file_type::regular) {
        return refuse("exists already; --force replaces it");
    }
    return isSource ? Target::Source : Target::File;
}

int Tell(void* context, std::int64_t done, std::int64_t total) {
    if (InterruptGuard::Noted()) {
        return 1;
    }
    if (total > 0) {
        static_cast<TransferProgress*>(context)->Show(done, total);
    }
    return 0;
}

/// A stream that is opened when its first bytes come.
struct LateStream {
    const std::string& name;
    Stream stream = {};
    bool isOpen = false;

    static bool Take(void* context, const void* bytes, std::size_t size) {
        auto& late = *static_cast<LateStream*>(context);
        late.isOpen = late.isOpen || late.stream.Open(late.name);
        return late.isOpen && late.stream.Write(bytes, size);
    }
};

TiffCopy::Result CopyTo(Target target, SourceFile<TiffCopy>& source,
                        const TransferOptions& options) {
    TransferProgress progress;
    TiffCopy& tiff = source.GetEngine();
    const short order = options.OrderFor(tiff);
    const TiffCopy::Options how = {&Tell, &progress, options.force};
    if (target != Target::Stream) {
        return tiff.CopyTo(options.out.c_str(), order, how);
    }
    LateStream output = {options.out};
    TiffCopy::Result result = tiff.CopyTo(&LateStream::Take, &output, order, how);
    if (result.outcome == TiffCopy::Outcome::Done && !output.stream.Close()) {
        result = {TiffCopy::Outcome::OutputFailed, -1, "the output could not be closed",
                  SystemError()};
    }
    return result;
}

void PrintNotes(const std::string& name, const OutputNotes& notes) {
    for (const char* note : notes) {
        if (note != nullptr) {
            PrintProblem(name, {.what = note, .isNote = true});
        }
    }
}

std::string GuardedReason(const char* reason, int systemError) {
    return WithReason(reason, systemError) + "; --force replaces it all the same";
}

int Report(const TiffCopy::Result& result, const TransferOptions& options) {
    const std::string what = WithReason(result.reason, result.systemError);
    PrintNotes(options.out, result.notes);
    switch (result.outcome) {
        case TiffCopy::Outcome::Done:
            return kDone;
        case TiffCopy::Outcome::OutputFailed:
            PrintFailure(options.out, -1, what);
            break;
        case TiffCopy::Outcome::Guarded:
            PrintFailure(options.out, -1, GuardedReason(result.reason, result.systemError));
            break;
        default:
            PrintFailure(options.in, result.dir, what);
    }
    return kFileFailed;
}

/// Prints why an output is not to be had.
void PrintOutputFailure(const std::string& name, const OutputFailure& why) {
    PrintFailure(name, -1,
                 why.isGuard ? GuardedReason(why.reason, why.systemError)
                             : WithReason(why.reason, why.systemError));
}

/// Prints what went wrong while the engine wrote. Its status alone does not tell.
bool WasWritten(long status, const FileWatch& watch, const TransferOptions& options) {
    const auto fail = [&watch](const std::string& name, const char* what, Step step) {
        PrintFailure(name, -1, WithReason(what, watch.Of(step)));
        return false;
    };
    if (watch.Of(Step::Read)) {
        return fail(options.in, "the image data could not be read", Step::Read);
    }
    if (watch.Of(Step::ReadToEnd)) {
        return fail(options.in, "the file ends before its image data does", Step::ReadToEnd);
    }
    for (const Step step : {Step::Write, Step::Seek}) {
        if (watch.Of(step)) {
            return fail(options.out, "the output could not be written", step);
        }
    }
    if (status != 1) {
        PrintProblem(options.out,
                     {status, status == -4 ? kNoMemory : "the output could not be written"});
    }
    return status == 1;
}

bool WriteInto(OutputFile& output, Tiff& tiff, const TransferOptions& options,
               long (Tiff::*write)(void*, short)) {
    const FileWatch watch;
    const long status = (tiff.*write)(output.Handle(), options.OrderFor(tiff));
    return !InterruptGuard::Noted() && WasWritten(status, watch, options);
}

}  // namespace

void TransferOptions::AddTo(CLI::App& command) {
    command.add_option("IN", in, "The TIFF file to read")->required()->option_text(" ");
    command.add_option("OUT", out, "The file to write")->required()->option_text(" ");
    CLI::Option* first =
        command.add_flag("--intel", intel, "Write little-endian, \"II\"")->option_text(" ");
    command.add_flag("--motorola", motorola, "Write big-endian, \"MM\" (default: as IN)")
        ->option_text(" ")
        ->excludes(first);
    command.add_flag("-f,--force", force, "Replace an OUT that exists, even write-protected")
        ->option_text(" ");
}

short TransferOptions::OrderFor(const Tiff& source) const {
    if (intel) {
        return kIntel;
    }
    return motorola ? kMotorola : source.getFormat();
}

int CopyFaithfully(SourceFile<TiffCopy>& source, const TransferOptions& options) {
    const Target target = TargetOf(options);
    if (target == Target::Refused) {
        return kFileFailed;
    }
    TiffCopy::Result result;
    {
        const InterruptGuard guard;
        result = CopyTo(target, source, options);
    }
    return Report(result, options);
}

int WriteByEngine(const TransferOptions& options, long (Tiff::*write)(void*, short)) {
    SourceFile<Tiff> source(options.in);
    if (Problem problem = source.GetProblem(); !problem.what.empty()) {
        problem.isNote = false;
        PrintProblem(options.in, problem);
        return kFileFailed;
    }
    const Target target = TargetOf(options);
    if (target == Target::Source || target == Target::Stream) {
        PrintFailure(options.out, -1,
                     target == Target::Source
                         ? "is the file being read"
                         : "is no regular file, and can only take what 'platen copy' writes");
    }
    if (target != Target::File) {
        return kFileFailed;
    }
    const InterruptGuard guard;
    OutputFile output;
    const bool isWritten = output.Create(options.out.c_str(), options.force) &&
                           WriteInto(output, source.GetEngine(), options, write) && output.Commit();
    if (output.Why().reason != nullptr) {
        PrintOutputFailure(options.out, output.Why());
    }
    PrintNotes(options.out, output.Notes());
    return isWritten ? kDone : kFileFailed;
}

}  // namespace platen::tool
