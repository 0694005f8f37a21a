#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include <platen/base/files.h>
#include <platen/base/memory.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/blocks.h>
#include <platen/tiff/peek.h>
#include <platen/tiff/tag_table.h>

IMPLEMENT_DYNCREATE(Tiff, CObject)

namespace {

constexpr std::size_t kRecordSize = sizeof(TiffIFDStdDirStruct);
constexpr std::uint64_t kLargestBlock = std::numeric_limits<std::int32_t>::max();
/// What a block of values may exceed its file by.
constexpr std::uint64_t kBlockSlack = 65536;

}  // namespace

Tiff::Tiff() {
    InitGlbVars();
    InitFileVars();
}

Tiff::~Tiff() {
    DeInitFileVars();
    DeInitGlbVars();
}

void Tiff::InitGlbVars() {
    m_NumIFDStdDir = 0;
    m_FileName = nullptr;
    m_Dump = 0;
    m_CallBack = nullptr;
}

void Tiff::DeInitGlbVars() {
    platen::tiff::ReleaseBlock(m_FileName);
    m_NumIFDStdDir = 0;
    m_Dump = 0;
    m_CallBack = nullptr;
}

void Tiff::ResetGlbVars() {
    DeInitGlbVars();
    InitGlbVars();
}

void Tiff::InitFileVars() {
    m_hDump = MEM_NewHandle(1, GHND);
    m_hSpare = MEM_NewHandle(1, GHND);
    m_Allowance = {};
    AllocStdTiff();
    m_Status = 1;
    m_hFile = FILE_none();
    m_FileAttributes = -1;
    m_Format = 0;
    m_FileSize = 0;
    m_Version = 0;
    m_TotalEntries = 0;
    m_ReadWhole = false;
    m_DirectoriesMet = 0;
}

void Tiff::DeInitFileVars() {
    FreeStdTiff();
    m_Format = 0;
    m_hFile = FILE_none();
    m_Version = 0;
    m_FileAttributes = -1;
    m_TotalEntries = 0;
    m_FileSize = 0;
    m_Status = 1;
    m_hDump = MEM_FreeHandle(m_hDump);
    m_hSpare = MEM_FreeHandle(m_hSpare);
}

void Tiff::ResetFileVars() {
    DeInitFileVars();
    InitFileVars();
}

long Tiff::Fail(std::int32_t status) {
    m_Status = status;
    return status;
}

long Tiff::AllocStdTiff() {
    m_StdDir = static_cast<TiffIFDStdDirStruct*>(MEM_NewPtr(kRecordSize, GHND));
    if (m_StdDir == nullptr) {
        return Fail(-4);
    }
    m_NumIFDStdDir = 1;
    InitStdDir(0);
    return 1;
}

/// When memory is exhausted the records read so far are kept: their block is still at its address.
long Tiff::ReAllocStdTiff() {
    if (m_StdDir == nullptr || m_NumIFDStdDir == std::numeric_limits<short>::max()) {
        return Fail(-4);
    }
    // The platform may move the block whenever it grows, so it grows by a fraction of what it has.
    const auto count = static_cast<DWORD>(m_NumIFDStdDir) + 1;
    if (count * kRecordSize > MEM_LogSizeHandle(GlobalHandle(m_StdDir))) {
        const auto size = static_cast<DWORD>((count + count / 2) * kRecordSize);
        void* grown = MEM_ReNewPtr(m_StdDir, size, GMEM_MOVEABLE);
        if (grown == nullptr) {
            return Fail(-4);
        }
        m_StdDir = static_cast<TiffIFDStdDirStruct*>(grown);
    }
    m_StdDir[m_NumIFDStdDir++] = platen::tiff::kFreshRecord;
    return 1;
}

long Tiff::FreeStdTiff() {
    if (m_StdDir != nullptr) {
        for (short dir = 0; dir < m_NumIFDStdDir; ++dir) {
            DeInitStdDir(dir);
        }
        m_StdDir = static_cast<TiffIFDStdDirStruct*>(MEM_FreePtr(m_StdDir));
    }
    m_NumIFDStdDir = 0;
    return 1;
}

void Tiff::InitStdDir(short dir) {
    TiffIFDStdDirStruct* record = RecordAt(dir);
    if (record != nullptr) {
        const std::uint32_t readDataOffset = record->ReadDataOffset;
        *record = platen::tiff::kFreshRecord;
        record->ReadDataOffset = readDataOffset;
    }
}

void Tiff::DeInitStdDir(short dir) {
    TiffIFDStdDirStruct* record = RecordAt(dir);
    if (record != nullptr) {
        platen::tiff::ReleaseRecord(*record);
    }
}

void Tiff::ResetStdDir(short dir) {
    DeInitStdDir(dir);
    InitStdDir(dir);
}

long Tiff::SetFileName(const char* name) {
    platen::tiff::ReleaseBlock(m_FileName);
    if (name == nullptr) {
        return 1;
    }
    const std::size_t size = std::strlen(name) + 1;
    m_FileName = platen::tiff::NewBlock<char>(size);
    if (m_FileName == nullptr) {
        return Fail(-4);
    }
    std::memcpy(m_FileName, name, size);
    return 1;
}

/// An object that has measured no file takes every size of 31 bits.
bool Tiff::BlockFits(std::uint64_t size) const {
    return size <= kLargestBlock &&
           (m_FileSize == 0 || size <= static_cast<std::uint32_t>(m_FileSize) + kBlockSlack);
}

std::uint8_t* Tiff::CreateBLOCK(void* file, long offset, long size) {
    if (size <= 0 || !BlockFits(static_cast<std::uint64_t>(size))) {
        return nullptr;
    }
    auto* block = platen::tiff::NewBlock<std::uint8_t>(static_cast<std::size_t>(size));
    if (block == nullptr) {
        return nullptr;
    }
    if (static_cast<LONG>(offset) == offset) {
        platen::tiff::Peek(file, static_cast<LONG>(offset), block, static_cast<LONG>(size));
    }
    return block;
}

std::uint8_t* Tiff::DeleteBLOCK(std::uint8_t* block) {
    platen::tiff::ReleaseBlock(block);
    return nullptr;
}
