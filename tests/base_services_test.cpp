#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <platen/base/buffer.h>
#include <platen/base/files.h>
#include <platen/base/memory.h>

#include "tests/support/temporary_file.h"

namespace {

using namespace platen::test;

constexpr DWORD kZeroed = 0x42;

TEST(Memory, NoBlockIsTakenForABlock) {
    EXPECT_EQ(MEM_ReNewHandle(nullptr, 100, kZeroed), nullptr);
    EXPECT_EQ(MEM_FreeHandle(nullptr), nullptr);
    EXPECT_EQ(MEM_LockHandle(nullptr), nullptr);
    EXPECT_EQ(MEM_UnlockHandle(nullptr), nullptr);
    EXPECT_EQ(MEM_LogSizeHandle(nullptr), 0U);
    EXPECT_EQ(MEM_FreePtr(nullptr), nullptr);
}

TEST(Memory, AGrownBlockShowsOldBytesInTheAddedPart) {
    auto* block = static_cast<char*>(MEM_NewPtr(10, kZeroed));
    std::size_t held = 10;
    ASSERT_EQ(std::count(block, block + held, '\0'), 10);
    for (const DWORD size : {11U, 500U, 20U, 450U, 451U, 100000U, 1U, 70000U, 3000U}) {
        std::memset(block, 'x', held);
        block = static_cast<char*>(MEM_ReNewPtr(block, size, kZeroed));
        ASSERT_NE(block, nullptr);
        const std::size_t kept = std::min<std::size_t>(held, size);
        EXPECT_EQ(std::count(block, block + kept, 'x'), static_cast<std::ptrdiff_t>(kept));
        EXPECT_EQ(std::count(block + kept, block + size, '\0'),
                  static_cast<std::ptrdiff_t>(size - kept));
        held = size;
    }
    EXPECT_EQ(MEM_FreePtr(block), nullptr);
}

TEST(FileHandles, TheOpenAttributeDiffersFromTheMode) {
    const TemporaryFile file("abc");
    for (const auto& [mode, expected] : {std::pair{0, 0}, {2, 2}, {1, 0}, {0x8301, 0}, {0x42, 2}}) {
        LONG attribute = 99;
        void* handle = FILE_open(file.Name(), mode, &attribute);
        EXPECT_NE(handle, FILE_none());
        EXPECT_EQ(attribute, expected) << mode;
        EXPECT_EQ(FILE_close(handle), FILE_none());
        EXPECT_EQ(FILE_lseek(handle, 0, 1), -1) << "still open";
    }
    LONG attribute = 99;
    EXPECT_EQ(FILE_open("/nonexistent/file", 2, &attribute), FILE_none());
    EXPECT_EQ(attribute, -1);
    EXPECT_EQ(FILE_open("/nonexistent/file", 2, nullptr), FILE_none());
    EXPECT_EQ(FILE_creat("/nonexistent/file", 0), FILE_none());
}

TEST(FileHandles, ATransferAnswersAnotherCountThanItMoved) {
    const TemporaryFile file;
    void* handle = FILE_creat(file.Name(), 0);
    std::vector<char> bytes(200005, 'a');
    EXPECT_EQ(FILE_write(handle, bytes.data(), 200005), 200005);
    EXPECT_EQ(FILE_write(handle, bytes.data(), 0), 0);
    EXPECT_EQ(FILE_write(handle, bytes.data(), -1), 0);
    EXPECT_EQ(FILE_lseek(handle, 0, 2), 200005);
    EXPECT_EQ(FILE_lseek(handle, 200000, 0), 200000);
    char entry[12] = {};
    EXPECT_EQ(FILE_read(handle, entry, 0), 0);
    EXPECT_EQ(FILE_read(handle, entry, -5), 0);
    EXPECT_EQ(FILE_read(handle, entry, 12), 5);
    EXPECT_EQ(FILE_read(handle, entry, 12), 0);
    EXPECT_EQ(FILE_lseek(handle, -5, 1), 200000);
    EXPECT_EQ(FILE_lseek(handle, 0, 0), 0);
    EXPECT_EQ(FILE_read(handle, bytes.data(), 200005), 200005);
    FILE_close(handle);

    void* readOnly = FILE_open(file.Name(), 0, nullptr);
    EXPECT_EQ(FILE_write(readOnly, entry, 1), -1);
    FILE_close(readOnly);
}

TEST(Buffer, MemoryOfTheCallerIsReleased) {
    char bytes[100] = "kept";
    {
        const CBuffer buffer(100, bytes);
        const CBuffer copy = buffer;
        EXPECT_EQ(copy.m_bWrapped, 1U);
        EXPECT_EQ(copy.m_hMem, nullptr);
        EXPECT_EQ(copy.m_Reserved, 0U);
        EXPECT_EQ(copy.GetSize(), 100U);
        EXPECT_EQ(copy.m_pData, bytes);
    }
    EXPECT_STREQ(bytes, "kept");
}

/// The sanitizers see a block that is released twice, too early or never.
TEST(Buffer, CopiesReleaseTheirBlockTwiceOrNever) {
    std::optional<CBuffer> first(std::in_place, 100U);
    ASSERT_NE(first->m_hMem, nullptr);
    EXPECT_GE(MEM_LogSizeHandle(first->m_hMem), 100U);
    std::memset(MEM_LockHandle(first->m_hMem), 'a', 100);
    CBuffer copy(*first);
    CBuffer assigned(7);
    assigned = copy;
    assigned = *&assigned;
    assigned = *first;
    CBuffer overwritten = *first;
    overwritten = CBuffer(5);
    EXPECT_EQ(copy.m_hMem, first->m_hMem);
    EXPECT_EQ(assigned.GetSize(), 100U);
    first.reset();
    EXPECT_EQ(static_cast<char*>(MEM_LockHandle(assigned.m_hMem))[99], 'a');
    copy = CBuffer(3, nullptr);
    EXPECT_EQ(static_cast<char*>(MEM_LockHandle(assigned.m_hMem))[0], 'a');
    EXPECT_EQ(CBuffer(0).GetSize(), 0U);
    EXPECT_EQ(CBuffer::operator new(sizeof(CBuffer)), nullptr);
}

}  // namespace
