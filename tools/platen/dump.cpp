#include <memory>

#include <platen/base/memory.h>
#include <platen/tiff/Tiff.h>

#include "commands.h"
#include "file_list.h"
#include "source_file.h"

namespace platen::tool {
namespace {

constexpr std::uint32_t kPieceSize = 256 * 1024;

/// Reads a file for its report alone: it keeps no more of the directories than reading needs, and,
/// given an output, writes the report while it grows.
class Reporter : public Tiff {
  public:
    explicit Reporter(Output* growing) : m_growing(growing) {}

    Problem ReadFile(const char* name) {
        const FileWatch watch;
        void* file = Open(name, OF_READ);
        if (m_Status != 1) {
            return OpeningProblem(watch);
        }
        ReadSetDump(1);
        const long status = Read(file);
        Close(file);
        FreeRecords();
        if (m_growing != nullptr && m_growing->Failed()) {
            return {};
        }
        Problem problem = ReadingProblem(*this, status, watch);
        if (problem.isNote) {
            problem = ProblemOf(status, std::nullopt);
        }
        return problem.what.empty() && m_hDump == nullptr
                   ? Problem{-4, "the report was abandoned: too large, or memory is exhausted"}
                   : problem;
    }

    /// What was gathered and not yet written, straight from the engine's block: a report can be
    /// larger than its file.
    void Print(Output& output) const {
        if (m_hDump != nullptr) {
            const auto* text = static_cast<const char*>(MEM_LockHandle(m_hDump));
            output.WriteReport({text, DumpGetSize() - 1});
            MEM_UnlockHandle(m_hDump);
        }
    }

    long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) override {
        if (dir != m_dir) {
            // The first directory is looked at once more when the chain has ended.
            if (m_dir > 0) {
                DeInitStdDir(m_dir);
            }
            m_dir = dir;
        }
        if (m_growing != nullptr && DumpGetSize() > kPieceSize) {
            Print(*m_growing);
            EmptyReport();
        }
        return m_growing != nullptr && m_growing->Failed() ? kOutputFailed
                                                           : Tiff::ParseIFDStdDir(file, entry, dir);
    }

  private:
    static constexpr long kOutputFailed = 0;

    void EmptyReport() {
        HGLOBAL empty = MEM_ReNewHandle(m_hDump, 1, GHND);
        if (empty == nullptr) {
            m_hDump = MEM_FreeHandle(m_hDump);
            return;
        }
        m_hDump = empty;
        *static_cast<char*>(MEM_LockHandle(m_hDump)) = '\0';
        MEM_UnlockHandle(m_hDump);
    }

    /// Those between the first and the last hold nothing any more.
    void FreeRecords() {
        if (m_NumIFDStdDir > 1) {
            DeInitStdDir(static_cast<short>(m_NumIFDStdDir - 1));
            m_NumIFDStdDir = 1;
        }
        FreeStdTiff();
    }

    Output* m_growing;
    short m_dir = 0;  ///< the directory being read
};

struct Report {
    Report(const std::string& name, Output* growing)
        : reporter(std::make_unique<Reporter>(growing)),
          problem(reporter->ReadFile(name.c_str())) {}

    std::unique_ptr<Reporter> reporter;
    Problem problem;
};

int Dump(const FileList& files) {
    Output output;
    // On a terminal the progress line would be in the way of a report that grows.
    Output* growing = files.Threads() == 1 && !output.IsTerminal() ? &output : nullptr;
    return RunOnFiles(
        files, output, [growing](const std::string& name) { return Report(name, growing); },
        [&output](const Report& report) { report.reporter->Print(output); });
}

}  // namespace

void AddDump(CLI::App& program, int& exitStatus) {
    auto files = std::make_shared<FileList>();
    CLI::App* command =
        program.add_subcommand("dump", "Print what reading each file met: every entry, in order");
    files->AddTo(*command);
    command->footer("Lines end in CR LF. Example:\n  platen dump scan.tif > report.txt");
    command->callback([files, &exitStatus] { exitStatus = Dump(*files); });
}

}  // namespace platen::tool
