#include <gtest/gtest.h>

#include <climits>
#include <cstring>

#include <platen/base/memory_figure.h>
#include <platen/base/system.h>
#include <platen/platform/afx/file_status.h>
#include <platen/progress/percent.h>

#include "tests/support/temporary_file.h"

namespace {

using platen::test::TemporaryFile;

TEST(NumberText, GroupsAreSeparatedAtTheWrongPlaces) {
    const std::pair<LONG, const char*> cases[] = {
        {0, "0"},
        {999, "999"},
        {1000, "1,000"},
        {100000, "100,000"},
        {123456789, "123,456,789"},
        {INT32_MAX, "2,147,483,647"},
        {-7, "-7"},
        {-100000, "-100,000"},
        {INT32_MIN, "-2,147,483,648"},
    };
    for (const auto& [value, expected] : cases) {
        char buffer[15];
        EXPECT_EQ(BigNumToString(value, buffer), buffer);
        EXPECT_STREQ(buffer, expected);
    }
}

TEST(MemoryFigures, FlagsSelectTheWrongFigures) {
    for (const int flags : {0, 1, 2, 3, 4, 8, 12, 16}) {
        EXPECT_EQ(HowMuchMemory(flags), 0U) << flags;
    }
    MEMORYSTATUS status = {};
    status.dwLength = sizeof(status);
    GlobalMemoryStatus(&status);
    const auto saturated = [](SIZE_T bytes) {
        return bytes > UINT32_MAX ? UINT32_MAX : static_cast<DWORD>(bytes);
    };
    // The totals stay the same between two calls; the available figures do not.
    EXPECT_EQ(HowMuchMemory(5), saturated(status.dwTotalPhys));
    EXPECT_EQ(HowMuchMemory(7), saturated(status.dwTotalPageFile));
    EXPECT_EQ(HowMuchMemory(6), static_cast<DWORD>(status.dwTotalPageFile - status.dwTotalPhys));
    EXPECT_GT(HowMuchMemory(9), 0U);
    EXPECT_LE(HowMuchMemory(9), HowMuchMemory(5));
}

TEST(MemoryFigures, ADifferenceIsTakenOfFiguresThatWereCut) {
    constexpr SIZE_T kUnit = SIZE_T{1} << (sizeof(SIZE_T) == 8 ? 30U : 29U);
    MEMORYSTATUS status = {};
    status.dwTotalPhys = 4 * kUnit;
    status.dwTotalPageFile = 7 * kUnit;
    status.dwAvailPhys = 3 * kUnit;
    status.dwAvailPageFile = 2 * kUnit;
    const auto wrapped = [](int units) { return static_cast<DWORD>(units) * DWORD{kUnit}; };
    EXPECT_EQ(platen::MemoryFigure(6, status), wrapped(3));
    EXPECT_EQ(platen::MemoryFigure(10, status), wrapped(-1));
    EXPECT_EQ(platen::MemoryFigure(14, status), wrapped(2));
    EXPECT_EQ(platen::MemoryFigure(11, status), wrapped(2));
    EXPECT_EQ(platen::MemoryFigure(7, status), sizeof(SIZE_T) == 8 ? UINT32_MAX : wrapped(7));
}

TEST(Percentage, A32BitMachineRoundsOtherwise) {
    for (const auto& [done, whole] : {std::pair{29U, 28}, {57U, 56}, {58U, 57}, {50U, 50}}) {
        EXPECT_EQ(platen::WholePercent(platen::PercentOf(done, 100)), whole);
    }
}

TEST(FileTest, FilesFoldersOrMissingNamesAreMixedUp) {
    const TemporaryFile file("x");
    EXPECT_EQ(IsFileExist(file.Name()), 1);
    EXPECT_EQ(IsFileExist("."), 1);
    EXPECT_EQ(IsFileExist("/no such folder/file"), 0);
    EXPECT_EQ(IsFileExist(""), 0);
    EXPECT_EQ(IsFileExist(nullptr), 0);
}

TEST(FileTest, AStatusTellsOfAnotherFile) {
    const TemporaryFile file("seven b");
    CFileStatus status = {};
    ASSERT_TRUE(CFile::GetStatus(file.Name(), status));
    EXPECT_EQ(status.m_size, 7U);
    EXPECT_EQ(status.m_attribute & FILE_ATTRIBUTE_DIRECTORY, 0U);
    ASSERT_TRUE(CFile::GetStatus(".", status));
    EXPECT_NE(status.m_attribute & FILE_ATTRIBUTE_DIRECTORY, 0U);
}

}  // namespace
