#pragma once

#include <string>

#include <platen/tiff/Tiff.h>

#include "messages.h"
#include "system.h"

namespace platen::tool {

/// One file, open and read, until the object goes. `Engine` is Tiff or derived from it.
template <typename Engine>
class SourceFile {
  public:
    explicit SourceFile(const std::string& name) {
        ClearSystemError();
        m_file = m_engine.Open(name.c_str(), OF_READ);
        const bool opened = m_engine.getFileAttributes() != -1;
        const long status = opened ? m_engine.Read(m_file) : 0;
        if (status != 1) {
            m_problem = ProblemOf(status, SystemError());
        }
    }
    ~SourceFile() { m_engine.Close(m_file); }
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    [[nodiscard]] const Problem& GetProblem() const { return m_problem; }
    [[nodiscard]] Engine& GetEngine() { return m_engine; }
    [[nodiscard]] const Engine& GetEngine() const { return m_engine; }

    /// Directories that were read whole; a failure can leave one that was not behind them.
    [[nodiscard]] short Directories() const {
        const TiffIFDStdDirStruct* records = m_engine.getStdDir();
        const short count = m_engine.getFileNumIFDStdDir();
        if (records == nullptr || count == 0) {
            return 0;
        }
        return static_cast<short>(records[count - 1].NumEntries != 0 ? count : count - 1);
    }

    /// Whether there is such a directory; prints what is wrong otherwise.
    [[nodiscard]] bool HasDirectory(const std::string& name, long long dir) const {
        const bool has = dir >= 0 && dir < Directories();
        if (!has) {
            PrintFailure(name, -1,
                         "directory " + std::to_string(dir) + ": not in the file, which has " +
                             std::to_string(Directories()));
        }
        return has;
    }

  private:
    Engine m_engine;
    void* m_file = nullptr;
    Problem m_problem;
};

}  // namespace platen::tool
