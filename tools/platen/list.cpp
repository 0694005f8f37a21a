#include <memory>
#include <optional>

#include <platen/tiff/directory_walk.h>
#include <platen/tiff/listing.h>

#include "commands.h"
#include "output.h"
#include "source_file.h"

namespace platen::tool {
namespace {

struct ListOptions {
    std::string file;
    std::optional<long long> dir;
};

/// Gathers a listing, and hands it on in pieces that end behind a character of ASCII, but not
/// within a line end.
class ListingOutput : public tiff::TextSink {
  public:
    explicit ListingOutput(Output& output) : m_output(output) {}

    void Take(std::string_view piece) override {
        m_gathered += piece;
        const bool ends = !piece.empty() && piece.back() > '\r';
        if (ends && m_gathered.size() > kPieceSize) {
            HandOn();
        }
    }
    void HandOn() {
        m_output.WriteReport(m_gathered);
        m_gathered.clear();
    }

  private:
    static constexpr std::size_t kPieceSize = std::size_t{64} * 1024;

    Output& m_output;
    std::string m_gathered;
};

/// As the engine lists a directory; a device that is full, or a reader that went away, ends it.
void ListDirectory(const Tiff& tiff, short dir, Output& output) {
    ListingOutput out(output);
    tiff::ListHeader(out, tiff.GetFileName(), static_cast<std::int32_t>(tiff.getFileSize()),
                     tiff.getFormat());
    const TiffIFDStdDirStruct& record = tiff.getStdDir()[dir];
    tiff::WalkEntries(record, [&](const tiff::TagRow& row, const tiff::EntryValue& /*value*/) {
        if (!output.Failed()) {
            tiff::ListEntry(out, row, record);
        }
    });
    out.HandOn();
    output.Flush();
}

int List(const ListOptions& options) {
    const SourceFile<Tiff> source(options.file);
    const Problem& problem = source.GetProblem();
    Output output;
    if (!options.dir) {
        for (short dir = 0; dir < source.Directories() && !output.Failed(); ++dir) {
            ListDirectory(source.GetEngine(), dir, output);
        }
    } else if (!problem.Failed() && !source.HasDirectory(options.file, *options.dir)) {
        return kFileFailed;
    } else if (*options.dir >= 0 && *options.dir < source.Directories()) {
        ListDirectory(source.GetEngine(), static_cast<short>(*options.dir), output);
    }
    if (!problem.what.empty()) {
        PrintProblem(options.file, problem);
    }
    return output.Finish() && !problem.Failed() ? kDone : kFileFailed;
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
