#include "transfer.h"

#include <filesystem>

#include <platen/base/file_names.h>
#include <platen/base/system_error.h>

#include "interrupt.h"
#include "system.h"
#include "transfer_progress.h"

namespace platen::tool {
namespace {

namespace fs = std::filesystem;

int Tell(void* context, std::int64_t done, std::int64_t total) {
    if (InterruptGuard::Noted()) {
        return 1;
    }
    if (total > 0) {
        static_cast<TransferProgress*>(context)->Show(done, total);
    }
    return 0;
}

int Report(const TiffCopy::Result& result, int systemError, const TransferOptions& options) {
    switch (result.outcome) {
        case TiffCopy::Outcome::Done:
            return kDone;
        case TiffCopy::Outcome::OutputFailed:
            PrintFailure(options.out, -1, WithReason(result.reason, systemError));
            break;
        default:
            PrintFailure(options.in, result.dir, result.reason);
    }
    return kFileFailed;
}

/// The file that would be left half written; none when the output is a device or the like.
std::string HalfFileAt(const std::string& name) {
    std::error_code error;
    const fs::path file = fs::weakly_canonical(PathOf(name.c_str()), error);
    const fs::file_type type = fs::status(file, error).type();
    const bool plain = type == fs::file_type::regular || type == fs::file_type::not_found;
    return plain ? NameOf(file) : std::string();
}

const char* MeaningOfWriting(long status) {
    switch (status) {
        case -1:
            return "could not be created";
        case -4:
            return "memory exhausted";
        default:
            return "could not be written";
    }
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
}

short TransferOptions::OrderFor(const Tiff& source) const {
    if (intel) {
        return kIntel;
    }
    return motorola ? kMotorola : source.getFormat();
}

int CopyFaithfully(SourceFile<TiffCopy>& source, const TransferOptions& options) {
    TiffCopy::Result result;
    int systemError = 0;
    {
        const InterruptGuard guard;
        TransferProgress progress;
        const short order = options.OrderFor(source.GetEngine());
        ClearSystemError();
        result = source.GetEngine().CopyTo(options.out.c_str(), order, &Tell, &progress);
        systemError = SystemError();
    }
    return Report(result, systemError, options);
}

int WriteStraight(const TransferOptions& options, long (Tiff::*write)(const char*, short)) {
    SourceFile<Tiff> source(options.in);
    if (!source.GetProblem().what.empty()) {
        PrintProblem(options.in, source.GetProblem());
        return kFileFailed;
    }
    std::error_code error;
    if (fs::equivalent(PathOf(options.in.c_str()), PathOf(options.out.c_str()), error)) {
        PrintFailure(options.out, -1, "is the file being read");
        return kFileFailed;
    }
    const InterruptGuard guard(HalfFileAt(options.out));
    ClearSystemError();
    const long status =
        (source.GetEngine().*write)(options.out.c_str(), options.OrderFor(source.GetEngine()));
    if (status != 1) {
        const std::string what = WithReason(MeaningOfWriting(status), SystemError());
        PrintProblem(options.out, {status == -1 ? 0 : status, what});
    }
    return status == 1 ? kDone : kFileFailed;
}

}  // namespace platen::tool
