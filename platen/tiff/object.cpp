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

/// The name may be the stored one, or a part of it: it is copied before that goes.
long Tiff::SetFileName(const char* name) {
    const std::size_t size = name == nullptr ? 0 : std::strlen(name) + 1;
    char* copy = name == nullptr ? nullptr : platen::tiff::NewBlock<char>(size);
    if (copy != nullptr) {
        std::memcpy(copy, name, size);
    }
    platen::tiff::ReleaseBlock(m_FileName);
    m_FileName = copy;
    return name == nullptr || copy != nullptr ? 1 : Fail(-4);
}

std::uint8_t* Tiff::CreateBLOCK(void* file, long offset, long size) {
    if (size <= 0 || size > std::numeric_limits<LONG>::max()) {
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
