#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <cstring>

#include <platen/ui/log_font.h>

namespace {

TEST(LogFont, FieldsAreLostOrNamesCutWrongly) {
    const CLogFont usual;
    EXPECT_TRUE(usual == CLogFont(-100, "Arial", 0));
    const CLogFont full(-120, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, "Face");
    EXPECT_EQ(full.m_iPointSize, 120);
    EXPECT_EQ(full.lfEscapement, 1);
    EXPECT_EQ(full.lfOrientation, 2);
    EXPECT_EQ(full.lfWeight, 3);
    const BYTE bytes[] = {full.lfItalic,  full.lfUnderline,     full.lfStrikeOut,
                          full.lfCharSet, full.lfOutPrecision,  full.lfClipPrecision,
                          full.lfQuality, full.lfPitchAndFamily};
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(bytes[i], i + 4);
    }
    LOGFONT record = full;
    record.lfHeight = -7;
    record.lfWidth = 9;
    const CLogFont copy(record);
    EXPECT_EQ(copy.m_iPointSize, 0);
    EXPECT_EQ(std::memcmp(static_cast<const LOGFONT*>(&copy), &record, sizeof(record)), 0);
    EXPECT_STREQ(CLogFont(100, "A name of thirty-two bytes, all ASCII", 0).lfFaceName,
                 "A name of thirty-two bytes, all");
    EXPECT_STREQ(CLogFont(100, "thirty bytes and then umlaut \xC3\xA4\xC3\xA4", 0).lfFaceName,
                 "thirty bytes and then umlaut \xC3\xA4");
}

TEST(LogFont, AFieldIsNotCompared) {
    const CLogFont font;
    const auto differs = [&font](auto change) {
        CLogFont other;
        other = &font;
        EXPECT_EQ(other == font, 1);
        change(other);
        EXPECT_EQ(other == font, 0);
        EXPECT_EQ(other != font, 1);
    };
    differs([](CLogFont& other) { other.m_crColor ^= 1; });
    differs([](CLogFont& other) { ++other.m_iPointSize; });
    differs([](CLogFont& other) { ++other.lfHeight; });
    differs([](CLogFont& other) { ++other.lfOrientation; });
    differs([](CLogFont& other) { ++other.lfPitchAndFamily; });
    differs([](CLogFont& other) { other.lfFaceName[0] = 'a'; });
    CLogFont other;
    other.lfFaceName[20] = 'x';
    EXPECT_EQ(other == font, 1) << "what follows the name's end counts";
}

TEST(LogFont, PointsBecomeOtherPixels) {
    CDC display;
    display.CreateDC("DISPLAY", nullptr, nullptr, nullptr);
    const int perInch = display.GetDeviceCaps(LOGPIXELSY);
    CLogFont font;
    font.lfWidth = 5;
    font.vMap();
    if (perInch == 96) {
        EXPECT_EQ(font.lfHeight, -13);
    }
    EXPECT_EQ(font.lfWidth, 0);
    for (int points = 6; points <= 72; ++points) {
        font.m_iPointSize = points * 10;
        font.vMap();
        EXPECT_NEAR(font.lfHeight, -points * perInch / 72, 1) << points;
        const LONG height = font.lfHeight;
        CDC memory;
        memory.CreateCompatibleDC(nullptr);
        font.vMap(memory);
        EXPECT_EQ(font.lfHeight, height) << points;
    }
    font.m_iPointSize = 0;
    font.vMap();
    EXPECT_NEAR(font.lfHeight, -14, 1) << "the size 0 does not stand for the usual one";
}

TEST(LogFont, MappingChangesTheContext) {
    CDC context;
    context.CreateCompatibleDC(nullptr);
    const LOGFONT record = CLogFont(300, "Arial", 0);
    CFont selected;
    selected.CreateFontIndirect(&record);
    context.SelectObject(&selected);
    for (int mode = MM_TEXT; mode <= MM_ANISOTROPIC; ++mode) {
        SCOPED_TRACE(mode);
        context.SetMapMode(mode);
        context.SetWindowExt(-1441, 733);
        context.SetViewportExt(97, 3);
        context.SetWindowOrg(7, -9);
        context.SetViewportOrg(-11, 13);
        const CSize window = context.GetWindowExt();
        const CSize viewport = context.GetViewportExt();
        CLogFont font(720, "Arial", 0);
        font.vMap(context);
        EXPECT_EQ(context.GetMapMode(), mode);
        EXPECT_EQ(context.GetWindowOrg(), CPoint(7, -9));
        EXPECT_EQ(context.GetViewportOrg(), CPoint(-11, 13));
        EXPECT_EQ(context.GetWindowExt(), window);
        EXPECT_EQ(context.GetViewportExt(), viewport);
        EXPECT_EQ(context.SelectObject(&selected), &selected);
        const double pixels = context.GetDeviceCaps(LOGPIXELSY);
        const double unit = std::abs(double(window.cy) / double(viewport.cy));
        EXPECT_NEAR(font.lfHeight, -pixels * unit, unit + 1);
        EXPECT_EQ(font.lfWidth, 0);
    }
}

TEST(LogFont, SizesWithoutBoundDoHarm) {
    for (const int size : {INT_MIN, INT_MAX, 2'000'000, 1}) {
        CLogFont font(size, nullptr, 0);
        EXPECT_GT(font.m_iPointSize, 0);
        font.vMap();
        EXPECT_LE(font.lfHeight, 0);
        CDC none;
        font.vMap(none);
        EXPECT_EQ(font.lfHeight, 0);
    }
}

}  // namespace
