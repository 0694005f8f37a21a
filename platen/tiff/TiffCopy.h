#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include <platen/platform/api.h>
#include <platen/tiff/Tiff.h>

namespace platen::tiff {
class CopyJob;
}

/// Copies a TIFF file so that any reader shows the same pixels and finds the same tags: what
/// `Tiff::WriteCopy` leaves to its callers. While it reads, it also notes the entries that a record
/// does not hold; `CopyTo` writes those beside the records' tags, edited with `setTAG` or not.
///
/// Uncompressed images are copied strip by strip from where they lie, into one strip a plane;
/// samples are turned when the byte order changes. StripOffsets, StripByteCounts and RowsPerStrip
/// are those of the copy, and a directory without a subfile type gets NewSubfileType 0. Whatever
/// cannot be copied faithfully is refused: compressed or tiled images, subsampled colour, samples
/// of mixed sizes, directories behind a tag (such as SubIFDs), tags edited so that the image would
/// take other bytes than it has, more than 2 GiB, and files whose parts overlap so that a copy
/// would be many times larger.
class PLATEN_API TiffCopy : public Tiff {
  public:
    enum class Outcome : std::uint8_t {
        Done,
        Aborted,       ///< the callback asked for it
        Refused,       ///< the copy would not be faithful
        SourceFailed,  ///< the source could not be read, or not read whole
        OutputFailed,  ///< the output could not be created, written or given its name
        Guarded,       ///< what stands there would suffer by being replaced, see Options::insists
        NoMemory
    };

    struct Result {
        Outcome outcome = Outcome::Done;
        short dir = -1;               ///< the directory that the reason is about, or -1
        const char* reason = "done";  ///< a constant text for people
        /// Of a failure: the system's reason, errno or on Windows the last error; 0 for none.
        int systemError = 0;
        /// What the new file does not have of the one that it replaced: constant texts for people,
        /// up to the first null.
        std::array<const char*, 6> notes = {};
    };

    /// Told bytes of image data done and in all, and all of them anew while the directories are
    /// written; an answer other than 0 aborts.
    using Progress = int (*)(void* context, std::int64_t done, std::int64_t total);

    TiffCopy();
    ~TiffCopy() override;

    /// As `Tiff::Read`, but that an image beyond the end of the file is no failure yet: `CopyTo`
    /// holds every strip against the file. Always called on a TiffCopy, never through its base.
    long Read(void* file);
    /// Forgets what was noted of a tag that the record does not hold, so that it is not copied.
    void ForgetTAG(std::uint16_t tag, short dir);

    struct Options {
        Progress progress = nullptr;
        void* context = nullptr;
        /// Replaces a file that is write-protected, that has other names (hard links), which then
        /// keep the old contents, or whose owner, group, extended attributes or access lists cannot
        /// be kept. `Result::notes` tells which of them were lost.
        bool insists = false;
    };

    /// Writes the copy as a new file beside `name`, which takes that name in one step when it is
    /// whole; before that nothing at `name` is touched, and on any failure nothing is left. A
    /// link's target is what is replaced, or created. What is replaced keeps owner, group,
    /// permissions, extended attributes and access lists, or is not replaced. On a failure errno,
    /// on Windows the last error, is `Result::systemError`.
    ///
    /// `format` is kIntel or kMotorola.
    ///
    /// `name` may be the file being read, which must still be open. Afterwards the object is one
    /// that has read the new file: its records and the handle given to `Read` are of that one. On
    /// Windows that handle is one for this library alone from then on, and nobody else may have the
    /// file open. Pointers into the records are not valid any more, the report stays, and no hook
    /// was called. A failure leaves all as it was, but for one to flush the folder, which comes
    /// last: then the new file has the name.
    Result CopyTo(const char* name, short format, const Options& options);
    Result CopyTo(const char* name, short format, Progress progress = nullptr,
                  void* context = nullptr);

    /// Takes the next bytes of a copy, all of them; false when it could not, with the reason in
    /// errno, on Windows in the last error.
    using Sink = bool (*)(void* context, const void* bytes, std::size_t size);

    /// Hands the copy's bytes on from the first to the last, for what is no file that could be
    /// replaced: a pipe, for instance. A failure comes after what was handed on until then.
    Result CopyTo(Sink sink, void* sinkContext, short format, const Options& options);

    long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir) override;
    long ParseIFDCustomDir(void* file, TiffIFDEntryStruct& entry, short dir) override;

    /// An entry that no record holds.
    struct KeptEntry {
        short dir;
        TiffIFDEntryStruct entry;
    };

  private:
    void Count(const TiffIFDEntryStruct& entry);
    long Keep(const TiffIFDEntryStruct& entry, short dir);
    [[nodiscard]] platen::tiff::CopyJob JobFor(short format) const;
    Result Save(const char* name, short format, const Options& options);
    void Become(TiffCopy& other);

    std::vector<KeptEntry> m_Kept;           ///< in the order of their directories
    std::vector<std::int64_t> m_PixelBytes;  ///< by directory, as it was read
    std::int64_t m_TagBytes = 0;             ///< of all entries and their values, as they were read
    void* m_FileRead = nullptr;              ///< the handle that the records were read from
};
