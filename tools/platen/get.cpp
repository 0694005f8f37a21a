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

/// Notes the entry that it stores for one tag of one directory. The records alone do not tell: a
/// stored value can be the same as what stands for an absent tag.
class TagReader : public Tiff {
  public:
    TagReader(const tiff::TagRow& row, long long dir) : m_row(row), m_dir(dir) {}

    long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) override {
        const long answer = Tiff::ParseIFDStdDir(file, entry, dir);
        if (dir == m_dir && entry.Tag == m_row.tag && m_row.Accepts(entry.Type)) {
            m_stored = entry;
        }
        return answer;
    }

    [[nodiscard]] std::optional<std::string> Text() const {
        return m_stored ? TagText(m_row, getStdDir()[m_dir], *m_stored) : std::nullopt;
    }

  private:
    const tiff::TagRow& m_row;
    long long m_dir;
    std::optional<TiffIFDEntryStruct> m_stored;
};

int Get(const GetOptions& options) {
    const tiff::TagRow& row = TagNamed(options.tag);
    const SourceFile<TagReader> source(options.file, row, options.dir);
    const Problem& problem = source.GetProblem();
    if (!problem.what.empty()) {
        PrintProblem(options.file, problem);
    }
    if (problem.Failed() || !source.HasDirectory(options.file, options.dir)) {
        return kFileFailed;
    }
    const auto text = source.GetEngine().Text();
    if (!text) {
        PrintFailure(options.file, options.dir, std::string("no ") + row.name);
        return kFileFailed;
    }
    Output output;
    output.WriteText(*text);
    output.Write("\n");
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
