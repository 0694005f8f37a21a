#include <platen/base/buffer.h>

#include <atomic>
#include <cstdint>

#include <platen/base/memory.h>

namespace {

using OwnerCount = std::uint32_t;
constexpr std::uint64_t kLargestBlock = 0xFFFFFFFF;

std::uint64_t CountOffset(DWORD size) {
    constexpr std::uint64_t kStep = alignof(OwnerCount);
    return (size + kStep - 1) / kStep * kStep;
}

/// The number of owners behind the block's bytes.
std::atomic_ref<OwnerCount> OwnersOf(HGLOBAL block, DWORD size) {
    auto* bytes = static_cast<char*>(MEM_LockHandle(block));
    return std::atomic_ref<OwnerCount>(*reinterpret_cast<OwnerCount*>(bytes + CountOffset(size)));
}

HGLOBAL NewOwnedBlock(DWORD size) {
    const std::uint64_t bytes = CountOffset(size) + sizeof(OwnerCount);
    if (bytes > kLargestBlock) {
        return nullptr;
    }
    const HGLOBAL block = MEM_NewHandle(static_cast<DWORD>(bytes), GMEM_MOVEABLE);
    if (block != nullptr) {
        OwnersOf(block, size) = 1;
        MEM_UnlockHandle(block);
    }
    return block;
}

}  // namespace

CBuffer::CBuffer(DWORD size, void* data) : m_bWrapped(1), m_Size(size), m_pData(data) {}

CBuffer::CBuffer(DWORD size) : m_hMem(NewOwnedBlock(size)), m_Size(size) {}

CBuffer::CBuffer(const CBuffer& other)
    : m_bWrapped(other.m_bWrapped),
      m_hMem(other.m_hMem),
      m_Reserved(other.m_Reserved),
      m_Size(other.m_Size),
      m_pData(other.m_pData) {
    Share();
}

CBuffer& CBuffer::operator=(const CBuffer& other) {
    if (this != &other) {
        other.Share();
        Release();
        m_bWrapped = other.m_bWrapped;
        m_hMem = other.m_hMem;
        m_Reserved = other.m_Reserved;
        m_Size = other.m_Size;
        m_pData = other.m_pData;
    }
    return *this;
}

CBuffer::~CBuffer() {
    Release();
}

void* CBuffer::operator new(std::size_t /*size*/) noexcept {
    return nullptr;
}

void CBuffer::operator delete(void* /*pointer*/) noexcept {}

void CBuffer::Share() const {
    if (m_hMem != nullptr) {
        ++OwnersOf(m_hMem, m_Size);
        MEM_UnlockHandle(m_hMem);
    }
}

void CBuffer::Release() {
    if (m_hMem != nullptr) {
        const bool last = --OwnersOf(m_hMem, m_Size) == 0;
        MEM_UnlockHandle(m_hMem);
        m_hMem = last ? MEM_FreeHandle(m_hMem) : nullptr;
    }
}
