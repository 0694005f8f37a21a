#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <platen/platform/afx/object.h>
#include <platen/platform/afx/string.h>
#include <platen/platform/api.h>
#include <platen/tiff/records.h>

namespace platen::tiff {
class EntryWriter;
}

/// Reverses the bytes of a 16-bit value unless the byte-order word is kIntel.
extern "C" PLATEN_API std::uint16_t SwapSHORT(std::uint16_t value, std::uint16_t order);

/// One TIFF file: byte order, size, name, the decoded record of every directory in its chain, the
/// status of the last operation, and a plain-text report of the last read.
///
/// The object owns its file name, its records and their blocks; file handles (`void*`, -1 for none)
/// are the caller's. Records and the pointers that `getStdDir` gives are valid until the next
/// `Read`, `ReAllocStdTiff` or the end of the object.
///
/// Operations that can fail store a status and answer it:
///   1 success; 0 file not opened or created; -2 version neither 42 nor 50; -3 read or write
///   failure, or an inconsistent file; -4 memory exhausted, or a value that cannot be fetched;
///   -6 entry written to the handle -1.
///
/// No file makes `Read` spend more than a fixed multiple of the file's size. An entry's values that
/// exceed 31 bits, or the file by more than 64 KiB, count as no memory. Over one read, entries
/// end at 8 per 12 bytes of file plus 65,536 (then -3), and values and report together at 32 times
/// the larger of file and 1 MiB (then no more values, and the report is abandoned).
///
/// One thread at a time uses an object; different objects may be used by different threads.
class PLATEN_API Tiff : public CObject {
    DECLARE_DYNCREATE(Tiff)

  public:
    using CallBack = int (*)(std::int32_t, std::int32_t);

    /// One record at defaults, status 1, no file.
    Tiff();
    ~Tiff() override;

    /// Fills record `dir` from one entry; 1 lets `Read` go on, anything else stops it. The file
    /// stands right behind the entry, and an override leaves it there. It may use the fetchers, and
    /// calls this one for tags that it leaves alone. -4 without records.
    virtual long ParseIFDStdDir(void* file, TiffIFDEntryStruct& entry, short dir);
    /// The hook for tags that the standard parser does not know; reports the entry and answers 1.
    virtual long ParseIFDCustomDir(void* file, TiffIFDEntryStruct& entry, short dir);

    /// \name State
    /// The global members (name, dump switch, callback) survive a `Read`; the file members do not.
    /// @{
    void InitGlbVars();
    void DeInitGlbVars();
    void ResetGlbVars();
    void InitFileVars();
    void DeInitFileVars();
    void ResetFileVars();
    /// @}

    /// \name Records
    /// @{
    /// Makes the array of one record at defaults; 1 or -4.
    long AllocStdTiff();
    /// Adds a record at defaults at the end; 1, or -4 and the array stays as it was.
    long ReAllocStdTiff();
    /// Releases all records; always 1.
    long FreeStdTiff();
    /// Sets every field but ReadDataOffset to its default, releasing nothing.
    void InitStdDir(short dir);
    /// Releases the record's blocks and zeroes its counts.
    void DeInitStdDir(short dir);
    void ResetStdDir(short dir);
    /// The first record of the array.
    [[nodiscard]] TiffIFDStdDirStruct* getStdDir() const { return m_StdDir; }
    [[nodiscard]] short getFileNumIFDStdDir() const { return m_NumIFDStdDir; }
    /// @}

    /// \name Properties
    /// @{
    [[nodiscard]] short getFormat() const { return m_Format; }
    void setFormat(short format) { m_Format = format; }
    [[nodiscard]] long getFileSize() const { return m_FileSize; }
    void setFileSize(long size) { m_FileSize = static_cast<std::int32_t>(size); }
    /// 2 opened read-write, 0 otherwise, -1 without a file.
    [[nodiscard]] int getFileAttributes() const { return m_FileAttributes; }
    /// Stored, and never called.
    void setCallBack(CallBack callBack) { m_CallBack = callBack; }
    /// Stores a copy, also of the stored name itself; 1, or -4 and no name is stored. Null stores
    /// no name.
    long SetFileName(const char* name);
    /// The stored name, or null.
    [[nodiscard]] const char* GetFileName() const { return m_FileName; }
    /// @}

    /// \name Raw blocks
    /// @{
    /// A new zero-filled block with `size` bytes of the file from `offset` on, as far as the file
    /// has them; the file position stays. Null for a size that is not positive or exceeds 31 bits,
    /// or without memory. The caller releases it with `DeleteBLOCK`.
    std::uint8_t* CreateBLOCK(void* file, long offset, long size);
    /// Releases a block; always null.
    std::uint8_t* DeleteBLOCK(std::uint8_t* block);
    /// @}

    /// \name Reading
    /// @{
    /// Opens a file with an access mode (0 read, 1 write, 2 both) and stores its name; -1 and
    /// status 0 on failure. The caller closes the handle.
    void* Open(const char* name, long mode);
    /// Closes a handle; always -1.
    void* Close(void* file);
    /// Reads all directories; the status. On failure the records filled so far stay usable.
    long Read(void* file);
    /// Whether the last `Read` came to the end of the chain with every value. If it does so and
    /// answers -3, the records are whole, and only the test of the first image's end against the
    /// file's failed, which takes no notice of compression.
    [[nodiscard]] bool IsReadWhole() const { return m_ReadWhole; }
    /// How many directories the last `Read` met: as many as there are records, but none where the
    /// file has no directory, and without one whose number of entries could not be read. The last
    /// one may be cut short; its record's `NumEntries` is then 0.
    [[nodiscard]] short DirectoriesMet() const { return m_DirectoriesMet; }
    /// How many entries these directories say they have, together and modulo 65,536.
    [[nodiscard]] std::uint16_t EntriesMet() const { return m_TotalEntries; }
    /// Stores the file's size and moves to its start; always 1. A file of 2 GiB or more counts as
    /// one of 2 GiB - 1, since no offset leads further.
    long ReadSize(void* file);
    long ReadHeader(void* file);
    long ReadIFDOffset(void* file, TiffIFDOffsetStruct& offset);
    long ReadIFDNum(void* file, TiffIFDOffsetStruct& offset, TiffIFDNumStruct& count);
    long ReadIFDEntry(void* file, TiffIFDEntryStruct& entry);
    /// @}

    /// \name Value fetchers
    /// The values of a normalised entry, in machine byte order. Blocks are the caller's, released
    /// with `DeleteBLOCK`; null and status -4 when none can be had, or for `Count` 0.
    /// @{
    short GetWORD(void* file, const TiffIFDEntryStruct& entry);
    long GetLONG(void* file, const TiffIFDEntryStruct& entry);
    std::uint16_t* GetWORDArray(void* file, const TiffIFDEntryStruct& entry);
    std::uint32_t* GetLONGArray(void* file, const TiffIFDEntryStruct& entry);
    /// The first fraction; 0xFFFFFFFF twice and status -4 when it cannot be had.
    Rational GetRATIONAL(void* file, const TiffIFDEntryStruct& entry);
    Rational* GetRATIONALArray(void* file, const TiffIFDEntryStruct& entry);
    /// A zero-terminated text; null without a status for `Count` 0.
    char* GetASCII(void* file, const TiffIFDEntryStruct& entry);
    /// @}

    /// \name Classes and roles
    /// Tests answer 1 or 0, and 0 for an index outside the records. Selectors answer the lowest
    /// index that qualifies, or -1.
    /// @{
    [[nodiscard]] short IsTIFF(short dir) const;        ///< a basic stripped image
    [[nodiscard]] short IsTIFFClassB(short dir) const;  ///< bilevel
    [[nodiscard]] short IsTIFFClassG(short dir) const;  ///< grayscale
    [[nodiscard]] short IsTIFFClassP(short dir) const;  ///< palette colour
    [[nodiscard]] short IsTIFFClassR(short dir) const;  ///< RGB full colour
    [[nodiscard]] short IsTIFFClassXK(short dir) const;
    /// An XK directory without a subfile type.
    [[nodiscard]] short IsTIFFClassXKold(short dir) const;
    [[nodiscard]] short GetFullResolutionIFDDir() const;
    [[nodiscard]] short GetReducedResolutionIFDDir() const;
    /// A single page of a multi-page image.
    [[nodiscard]] short GetSPofMPIFDDir() const;
    [[nodiscard]] short GetTransparencyIFDDir() const;
    [[nodiscard]] short GetXKIFDDir() const;
    [[nodiscard]] short GetXKoldIFDDir() const;
    /// @}

    /// \name Tag access
    /// The tags are those that the parser knows, without 288, 289 and 330; others, and an index
    /// outside the records, do nothing. No status is stored.
    /// @{
    /// Copies a tag's value out. `count` receives the number of values, a text's with its
    /// terminating zero; 0 when there is none. `out`, which may be null, must hold that many
    /// 16-bit numbers, 32-bit numbers, pairs of them, or bytes: offsets and byte counts are given
    /// as 32-bit numbers, ColorTable as its first 16 slots. Without records `count` stays.
    void getTAG(std::uint16_t tag, void* out, std::int32_t& count, short dir) const;
    /// Replaces a tag's value by a copy. `value` is a single number itself, otherwise the address
    /// of `count` values in the caller's memory (17 for ColorTable, two for PageNumber, the group's
    /// fractions for WhitePoint and PrimaryChromaticities). Count 0 empties an array or a text, and
    /// so does one that is negative or does not fit in memory. Count 0 leaves the count of an array
    /// that is not held.
    void setTAG(std::uint16_t tag, std::intptr_t value, std::int32_t count, short dir);
    /// @}

    /// \name Writing
    /// A directory is written only when NewSubfileType or SubfileType is set, and none is when
    /// directory 0 is an old-form XK directory. `format` is kIntel or kMotorola; for
    /// another word the header's mark is that word and values are as for kMotorola. Writing
    /// relocates the records' first strip offsets. Each step stores a status of its own, so that
    /// the last one's remains: compare the file when it matters, or use TiffCopy.
    /// @{
    /// Writes a file whose image data is zero. The status, or -1 (status 0) when the file could not
    /// be created. Refused in the same way, and nothing is touched, when the file would be larger
    /// than 2 GiB - 1.
    long WriteNew(const char* name, short format);
    /// Writes a file with the image data of the file read last, which must still be open: one block
    /// a directory from its first strip on, 16-bit pixels taken as little-endian. Refused as by
    /// WriteNew, and also when `name` is the file being read.
    long WriteCopy(const char* name, short format);
    /// The same, into a file that is empty and open for reading and writing, and stays so; it is
    /// not the one that was read. The status.
    long WriteNewInto(void* file, short format);
    long WriteCopyInto(void* file, short format);
    /// The layout: relocates first strip offsets and fills the records' writer fields.
    void WriteSetupStructs();
    long WriteHeader(void* file, short format);
    long Write1stOffset(void* file, short format);
    long WriteBlankOffset(void* file, short format);
    /// Does nothing; always 1.
    long WriteFullOffset(void* file, short format);
    /// Reserves every directory at the end of the file.
    long WriteBlankIFD(void* file, short format);
    /// Fills every reserved directory; long values go to the end of the file.
    long WriteFullIFD(void* file, short format);
    /// Appends each directory's image, copied from the file read last. Always 1.
    long WriteDATA(void* file, short format);
    /// Appends each directory's image size in zero bytes. Always 1.
    long WriteDATA(void* file);
    /// Moves `file` to where the directory's image was read: 0, or 1 for an index outside.
    long WriteSeek2Data(void* file, short dir);
    /// The number of entries of a directory; leaves status -6.
    long WriteGetIFDNum(short dir);
    /// Writes the entries of a record one after another from the file position on, long values at
    /// the end of the file, and answers their number; with the handle -1 it only counts. `print`
    /// prints the directory's listing on standard output.
    short WriteIFDStdDir(void* file, short format, short dir, int print);
    /// Writes one entry at the file position, and its values, if they do not fit, at the end of the
    /// file. `value` is the number itself for one SHORT or LONG, otherwise an address. 1, or -6 for
    /// the handle -1.
    long WriteIFDEntry(void* file, short tag, short type, std::int32_t count, std::intptr_t value,
                       short format);
    /// The same as setFormat.
    void WriteSetFormat(short format) { setFormat(format); }
    /// Does nothing; always 1.
    long WriteUserData(short dir, void* data);
    /// @}

    /// \name Report
    /// A plain text of what `Read` met, with "\r\n" line ends, gathered while switched on.
    /// @{
    void ReadSetDump(int on) { m_Dump = on; }
    /// The text's size in bytes with its terminating zero; 0 when the report was abandoned.
    [[nodiscard]] std::uint32_t DumpGetSize() const;
    /// Copies the text with its terminating zero and answers its size; 0 for a null buffer.
    std::uint32_t DumpGetData(char* buffer) const;
    /// Prints the text on standard output while the report is switched on.
    void DumpPrintf() const;
    /// @}

  protected:
    /// What `Read` does. Not hooked, that is, without overrides of the parsers which care where the
    /// file stands and what was written to it meanwhile, entries are read many at a time.
    long ReadAll(void* file, bool hooked);

    CallBack m_CallBack = nullptr;
    char* m_FileName = nullptr;
    void* m_hFile = nullptr;
    int m_FileAttributes = -1;
    std::int16_t m_Version = 0;
    std::uint16_t m_TotalEntries = 0;
    std::int16_t m_NumIFDStdDir = 0;
    TiffIFDStdDirStruct* m_StdDir = nullptr;
    std::int32_t m_Status = 1;
    std::int32_t m_FileSize = 0;  ///< bytes
    std::int16_t m_Format = 0;
    int m_Dump = 0;
    HGLOBAL m_hDump = nullptr;   ///< the report's text
    HGLOBAL m_hSpare = nullptr;  ///< allocated and released beside it, otherwise unused
    bool m_ReadWhole = false;
    std::int16_t m_DirectoriesMet = 0;

  private:
    /// What the current read may still spend; everything, outside a read.
    struct Allowance {
        std::uint64_t entries = UINT64_MAX;
        std::uint64_t bytes = UINT64_MAX;  ///< of values and report text
        std::int32_t fileSize = -1;        ///< of the file being read; -1 outside of a read
    };

    long Fail(std::int32_t status);
    /// Null for an index outside the records.
    [[nodiscard]] TiffIFDStdDirStruct* RecordAt(short dir) const {
        return m_StdDir != nullptr && dir >= 0 && dir < m_NumIFDStdDir ? m_StdDir + dir : nullptr;
    }
    [[nodiscard]] short LastDir() const { return static_cast<short>(m_NumIFDStdDir - 1); }
    [[nodiscard]] std::uint16_t Order() const { return static_cast<std::uint16_t>(m_Format); }

    bool ReadChain(void* file, bool hooked);
    bool ReadDirectory(void* file, TiffIFDOffsetStruct& offset, TiffIFDEntryStruct& entry,
                       bool hooked);
    void CheckImageFits();
    bool SpendBytes(std::uint64_t count);

    std::uint8_t* FetchBlock(void* file, const TiffIFDEntryStruct& entry, std::uint32_t elementSize,
                             std::uint32_t extra = 0);

    [[nodiscard]] bool LayoutFits() const;
    long RefuseLayout();
    template <typename DataWriter>
    long WriteFile(const char* name, short format, DataWriter writeData);
    template <typename DataWriter>
    long WriteWhole(void* file, short format, DataWriter writeData);
    template <typename Visit>
    void ForEachWritten(Visit visit) const;
    template <typename Visit>
    void ForEachDataArea(Visit visit) const;
    template <typename EntriesOf>
    long WriteBlank(void* file, short format, EntriesOf entriesOf);
    template <typename Visit>
    void WalkDirectory(short dir, Visit visit) const;
    long WriteWord(void* file, const void* bytes, std::int32_t size);
    std::int32_t WriteChained(void* file, platen::tiff::EntryWriter& writer, std::uint16_t order,
                              short dir);
    [[nodiscard]] short OldFormBehind(short dir) const;

    template <typename T>
    T* NewValues(std::uint32_t count);

    void DumpAppend(std::string_view line);
    template <typename Write>
    void DumpWrite(Write write);
    void DumpAppendHeader();
    void DumpAppendIFDOffset(std::uint32_t offset);
    void DumpAppendIFDCount(std::uint16_t count);
    /// `held` is the number of elements that `data` points to; no more of them are shown.
    void DumpAppendIFD(const char* name, const TiffIFDEntryStruct& entry, const void* data,
                       std::uint32_t held);
    void DumpAppendTIFFClass(short dir);
    void DumpAppendMissingTAGS(short dir);

    Allowance m_Allowance;
};
