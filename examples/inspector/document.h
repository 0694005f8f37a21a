#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <platen/tiff/TiffCopy.h>

#include "examples/inspector/picture.h"
#include "examples/inspector/tag_values.h"

namespace inspector {

/// The name of a field type in TIFF 6.0, for example "SHORT"; "?" for others.
const char* FieldTypeName(std::uint16_t number);

/// A tag of a directory as the file has it, or as the user set it.
struct TagEntry {
    TiffIFDEntryStruct entry;
    bool changed = false;  ///< set or added by the user
};

/// One TIFF file, open for as long as the object lives, with the user's changes to its tags. The
/// file itself is never written. Directories are counted from 0; those that a caller names must be
/// there.
class Document {
  public:
    explicit Document(std::string name);
    ~Document();
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    [[nodiscard]] const std::string& Name() const { return m_name; }
    /// In plain words, what is wrong with the file; empty when it was read whole.
    [[nodiscard]] const std::string& Problem() const { return m_problem; }
    [[nodiscard]] std::int64_t Size() const { return m_engine.getFileSize(); }
    /// platen::kIntel or platen::kMotorola.
    [[nodiscard]] short ByteOrder() const { return m_engine.getFormat(); }
    [[nodiscard]] short Directories() const { return m_directories; }
    [[nodiscard]] const TiffIFDStdDirStruct& Directory(short dir) const {
        return m_engine.getStdDir()[dir];
    }
    /// "B", "G", "P", "R", "XK", "XK (old form)", or "-" for none of them.
    [[nodiscard]] const char* ClassOf(short dir) const;
    /// What the directory is among the others, for example "Full resolution"; may be empty.
    [[nodiscard]] const char* RoleOf(short dir) const;

    Picture Show(short dir, Rendering rendering);
    [[nodiscard]] bool HasColorTable(short dir) const {
        return inspector::HasColorTable(m_engine, dir);
    }
    /// What reading the file meets, from a reading of its own.
    [[nodiscard]] std::string Report() const;
    /// The directory's tags with their meaning, as the engine prints them.
    std::string Listing(short dir);

    /// \name Tags
    /// @{
    /// In the order of their numbers.
    [[nodiscard]] const std::vector<TagEntry>& Tags(short dir) const {
        return m_tags[static_cast<std::size_t>(dir)];
    }
    /// The value of a tag that the directory has; at most `most` numbers of it.
    [[nodiscard]] std::string ValueOf(short dir, const TagEntry& tag, std::size_t most);
    /// Sets a tag that is there or not, from text; answers why not, or an empty text.
    std::string SetTag(short dir, std::uint16_t tag, std::string_view text);
    std::string RemoveTag(short dir, std::uint16_t tag);
    [[nodiscard]] bool IsEdited() const { return m_edited; }
    /// @}

    /// Writes a copy with the changes under another name; `progress` as TiffCopy::CopyTo has it.
    /// On success the changes count as saved.
    TiffCopy::Result SaveCopy(const std::string& name, short byteOrder, TiffCopy::Progress progress,
                              void* context);

  private:
    /// Notes every entry that is read.
    class Engine : public TiffCopy {
      public:
        explicit Engine(std::vector<std::vector<TagEntry>>& tags) : m_tags(tags) {}
        long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) override;

      private:
        std::vector<std::vector<TagEntry>>& m_tags;
    };

    [[nodiscard]] std::string UndecodedValue(const TiffIFDEntryStruct& entry);
    [[nodiscard]] bool Has(short dir, std::uint16_t tag) const;
    void Apply(const TagChange& change, short dir);

    std::string m_name;
    std::string m_problem;
    std::vector<std::vector<TagEntry>> m_tags;  ///< by directory
    Engine m_engine;
    void* m_file;
    short m_directories = 0;  ///< those that were read whole
    bool m_edited = false;
};

}  // namespace inspector
