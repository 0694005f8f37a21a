#pragma once

#include <cstddef>
#include <memory>

#include <platen/base/files.h>
#include <platen/base/output_failure.h>

namespace platen {

class OutputPlace;

/// A file that takes its name only when it is whole. Until `Commit` it stands beside that name
/// under one of its own, and it goes away with the object; what stands at the name is never written
/// to, and is replaced in one step. So whenever the process ends, there is the old file or the new
/// one.
///
/// - A link's target is what is replaced, or created where the link leads to nothing.
/// - Nobody else may open the new file before it has the permissions of what it replaces.
/// - It gets owner, group, permissions, extended attributes and access lists of what it replaces;
/// on
///   Windows streams and attributes as well. What would lose one of these, has other names (hard
///   links), or is write-protected, is not replaced unless the caller insists; `Notes` then tells
///   what it lost.
/// - Where a file is replaced, the new one is flushed to the disk before it takes the name, and its
///   folder afterwards. A new file is not flushed.
/// - What a killed process left is removed by the next output of that name. The file of one that is
///   still at it is not.
///
/// The first failure stays: every later step answers false, and `Why` tells. Of exceptions only
/// std::bad_alloc comes out, and leaves what a failure leaves. One thread at a time.
class OutputFile {
  public:
    OutputFile();
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Begins the file. `insists` to replace what would suffer by it.
    bool Create(const char* name, bool insists = false);
    /// The new file, for the FILE_ functions, open for reading and writing; the object's. Whoever
    /// writes through it looks at the results himself.
    [[nodiscard]] void* Handle() const { return m_file; }
    /// Writes all of it at the file's position.
    bool Write(const void* bytes, std::size_t size);
    /// Whether the file that stands there is the one that is open as `file`.
    [[nodiscard]] bool Replaces(void* file) const;
    /// Ends the new file and takes the name. `reader`, if the caller still reads what is replaced,
    /// is a handle of the new file from then on.
    bool Commit(void* reader = FILE_none());

    [[nodiscard]] const OutputFailure& Why() const { return m_failure; }
    /// Whether the new file has its name. That can be so after a failure: of the folder's flush.
    [[nodiscard]] bool HasName() const { return m_hasName; }
    /// Whether the reader was made a handle of the new file.
    [[nodiscard]] bool IsFollowed() const;
    [[nodiscard]] OutputNotes Notes() const;

  private:
    bool Good(const OutputFailure& failure);
    bool Close();

    std::unique_ptr<OutputPlace> m_place;
    void* m_file = FILE_none();
    OutputFailure m_failure;
    bool m_hasName = false;
};

}  // namespace platen
