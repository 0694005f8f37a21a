#pragma once

#include <algorithm>
#include <string>

#include <platen/base/file_watch.h>
#include <platen/base/files.h>
#include <platen/tiff/Tiff.h>

#include "messages.h"

namespace platen::tool {

/// What is to be said when `Tiff::Open` failed under the watch.
Problem OpeningProblem(const FileWatch& watch);

/// What is to be said of a file that was read under the watch with this status.
Problem ReadingProblem(const Tiff& tiff, long status, const FileWatch& watch);

/// One file, open and read, until the object goes. `Engine` is Tiff or derived from it.
template <typename Engine>
class SourceFile {
  public:
    template <typename... Arguments>
    explicit SourceFile(const std::string& name, const Arguments&... arguments)
        : m_engine(arguments...) {
        const FileWatch watch;
        m_open.file = m_engine.Open(name.c_str(), OF_READ);
        if (m_engine.getFileAttributes() == -1) {
            m_status = 0;
            m_problem = OpeningProblem(watch);
        } else {
            m_status = m_engine.Read(m_open.file);
            m_problem = ReadingProblem(m_engine, m_status, watch);
        }
    }
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    /// The engine's.
    [[nodiscard]] long Status() const { return m_status; }
    [[nodiscard]] const Problem& GetProblem() const { return m_problem; }
    [[nodiscard]] Engine& GetEngine() { return m_engine; }
    [[nodiscard]] const Engine& GetEngine() const { return m_engine; }

    /// Directories that there are records of; the last one can be cut short.
    [[nodiscard]] short Directories() const {
        return std::min(m_engine.DirectoriesMet(), m_engine.getFileNumIFDStdDir());
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
    struct OpenFile {
        OpenFile() = default;
        ~OpenFile() { FILE_close(file); }
        OpenFile(const OpenFile&) = delete;
        OpenFile& operator=(const OpenFile&) = delete;
        void* file = FILE_none();
    };

    Engine m_engine;
    OpenFile m_open;
    long m_status = 1;
    Problem m_problem;
};

}  // namespace platen::tool
