#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include <platen/platform/afx.h>

namespace {

LOGFONT Record(int height, const char* face = "Arial") {
    LOGFONT record = {};
    record.lfHeight = height;
    record.lfWeight = FW_NORMAL;
    std::strcpy(record.lfFaceName, face);
    return record;
}

/// A context with a black picture of 80 by 80 pixels and a font.
struct Canvas {
    static constexpr int kSize = 80;
    CDC context;
    HBITMAP bitmap;
    HGDIOBJ before;
    CFont font;

    explicit Canvas(const LOGFONT& record) {
        const HDC screen = GetDC(nullptr);
        bitmap = CreateCompatibleBitmap(screen, kSize, kSize);
        ReleaseDC(nullptr, screen);
        context.CreateCompatibleDC(nullptr);
        before = SelectObject(context.m_hDC, bitmap);
        PatBlt(context.m_hDC, 0, 0, kSize, kSize, BLACKNESS);
        font.CreateFontIndirect(&record);
        context.SelectObject(&font);
        context.SetTextColor(RGB(255, 255, 255));
        context.SetBkMode(TRANSPARENT);
    }
    ~Canvas() {
        SelectObject(context.m_hDC, before);
        DeleteObject(bitmap);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// Around all pixels that are not black.
    [[nodiscard]] CRect Drawn() {
        context.SaveDC();
        context.SetMapMode(MM_TEXT);
        CRect box(kSize, kSize, 0, 0);
        for (int y = 0; y < kSize; ++y) {
            for (int x = 0; x < kSize; ++x) {
                if (GetPixel(context.m_hDC, x, y) != 0) {
                    box = CRect(std::min<int>(box.left, x), std::min<int>(box.top, y),
                                std::max<int>(box.right, x + 1), std::max<int>(box.bottom, y + 1));
                }
            }
        }
        context.RestoreDC(-1);
        return box;
    }
};

TEXTMETRIC MetricsOf(CDC& context, const LOGFONT& record) {
    CFont font;
    font.CreateFontIndirect(&record);
    CFont* const before = context.SelectObject(&font);
    TEXTMETRIC metrics = {};
    EXPECT_TRUE(context.GetTextMetrics(&metrics));
    EXPECT_EQ(context.SelectObject(before), &font) << "another object stands for the font";
    return metrics;
}

TEST(Fonts, HeightsMeanSomethingElse) {
    CDC context;
    context.CreateCompatibleDC(nullptr);
    const TEXTMETRIC characters = MetricsOf(context, Record(-40));
    EXPECT_NEAR(characters.tmHeight - characters.tmInternalLeading, 40, 1);
    EXPECT_EQ(characters.tmHeight, characters.tmAscent + characters.tmDescent);
    const TEXTMETRIC line = MetricsOf(context, Record(40));
    EXPECT_NEAR(line.tmHeight, 40, 1);
    EXPECT_LT(line.tmHeight - line.tmInternalLeading, 40);
    EXPECT_NEAR(MetricsOf(context, Record(0)).tmHeight, 16, 1);
    LOGFONT bold = Record(-40);
    bold.lfWeight = FW_BOLD;
    bold.lfItalic = 1;
    EXPECT_NEAR(MetricsOf(context, bold).tmWeight, FW_BOLD, 1);
    EXPECT_NE(MetricsOf(context, bold).tmItalic, 0);
    LOGFONT wide = Record(-40);
    wide.lfWidth = 60;
    EXPECT_NEAR(MetricsOf(context, wide).tmAveCharWidth, 60, 1);
}

TEST(Fonts, MetricsAreInOtherUnits) {
    CDC context;
    context.CreateCompatibleDC(nullptr);
    const TEXTMETRIC pixels = MetricsOf(context, Record(-40));
    context.SetMapMode(MM_ANISOTROPIC);
    context.SetWindowExt(1500, -1500);
    context.SetViewportExt(300, 100);
    const TEXTMETRIC units = MetricsOf(context, Record(-600));
    EXPECT_EQ(units.tmAscent, pixels.tmAscent * 15);
    EXPECT_EQ(units.tmInternalLeading, pixels.tmInternalLeading * 15);
    EXPECT_EQ(units.tmMaxCharWidth, pixels.tmMaxCharWidth * 5);
}

TEST(Fonts, ADeletedFontIsGoneWhileSelected) {
    CDC context;
    context.CreateCompatibleDC(nullptr);
    const LOGFONT record = Record(-50);
    CFont* before = nullptr;
    {
        CFont font;
        EXPECT_TRUE(font.CreateFontIndirect(&record));
        EXPECT_FALSE(font.CreateFontIndirect(&record)) << "the first font is lost";
        before = context.SelectObject(&font);
    }
    TEXTMETRIC metrics = {};
    context.GetTextMetrics(&metrics);
    EXPECT_EQ(metrics.tmHeight - metrics.tmInternalLeading, 50);
    ASSERT_NE(before, nullptr);
    context.SelectObject(before);
    context.GetTextMetrics(&metrics);
    EXPECT_LT(metrics.tmHeight, 50);
    CFont none;
    EXPECT_EQ(context.SelectObject(&none), nullptr);
    EXPECT_FALSE(none.CreateFontIndirect(nullptr));
}

TEST(Text, StandsElsewhere) {
    Canvas canvas(Record(-30));
    canvas.context.TextOut(5, 5, "HH", 1);
    const CRect letter = canvas.Drawn();
    EXPECT_NEAR(letter.left, 7, 2);
    EXPECT_NEAR(letter.top, 11, 2);
    EXPECT_NEAR(letter.right, 25, 2);
    EXPECT_NEAR(letter.bottom, 32, 2);
    const CSize extent = canvas.context.GetTextExtent("HH", 2);
    EXPECT_NEAR(extent.cx, 2 * canvas.context.GetTextExtent("H", 1).cx, 1);
    EXPECT_GT(extent.cx, 2 * letter.Width());
    EXPECT_NEAR(extent.cy, 33, 1);
}

TEST(Text, DoesNotTurnOrScale) {
    LOGFONT record = Record(-30);
    record.lfEscapement = record.lfOrientation = 900;
    Canvas turned(record);
    turned.context.TextOut(5, 40, "H", 1);
    EXPECT_NEAR(turned.Drawn().top, 20, 2);
    EXPECT_NEAR(turned.Drawn().bottom, 38, 2);
    EXPECT_NEAR(turned.Drawn().right, 32, 2);

    Canvas scaled(Record(-300));
    scaled.context.SetMapMode(MM_ANISOTROPIC);
    scaled.context.SetWindowExt(100, -100);
    scaled.context.SetViewportExt(10, 10);
    scaled.context.TextOut(50, -50, "H", 1);
    EXPECT_NEAR(scaled.Drawn().top, 11, 2);
    EXPECT_NEAR(scaled.Drawn().bottom, 32, 2);
}

TEST(Text, AnOpaqueBackgroundLeavesTheLine) {
    Canvas canvas(Record(-30));
    canvas.context.SetTextColor(RGB(0, 0, 200));
    EXPECT_EQ(canvas.context.SetBkMode(OPAQUE), TRANSPARENT);
    canvas.context.TextOut(5, 5, "H", 1);
    const CSize extent = canvas.context.GetTextExtent("H", 1);
    EXPECT_EQ(canvas.Drawn(), CRect(5, 5, 5 + extent.cx, 5 + extent.cy));
    EXPECT_EQ(GetPixel(canvas.context.m_hDC, 6, 6), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(canvas.context.m_hDC, 9, 20), RGB(0, 0, 200));
}

TEST(Drawing, RectanglesMissTheMapping) {
    Canvas canvas(Record(-30));
    canvas.context.SetMapMode(MM_ANISOTROPIC);
    canvas.context.SetWindowExt(10, -10);
    canvas.context.SetViewportExt(5, 5);
    PatBlt(canvas.context.m_hDC, 20, -20, 40, -30, WHITENESS);
    EXPECT_EQ(canvas.Drawn(), CRect(10, 10, 30, 25));
    EXPECT_EQ(GetPixel(canvas.context.m_hDC, 58, -20), RGB(255, 255, 255));
    EXPECT_EQ(GetPixel(canvas.context.m_hDC, 18, -18), RGB(0, 0, 0));
    EXPECT_EQ(GetPixel(canvas.context.m_hDC, -10, 0), CLR_INVALID);
}

TEST(Drawing, ABitmapServesTwoContexts) {
    Canvas canvas(Record(-30));
    CDC other;
    other.CreateCompatibleDC(nullptr);
    EXPECT_EQ(SelectObject(other.m_hDC, canvas.bitmap), nullptr);
    EXPECT_EQ(SelectObject(canvas.context.m_hDC, canvas.before), canvas.bitmap);
    EXPECT_EQ(SelectObject(other.m_hDC, canvas.bitmap), canvas.before);
    EXPECT_TRUE(other.DeleteDC());
    EXPECT_EQ(SelectObject(canvas.context.m_hDC, canvas.bitmap), canvas.before);
}

}  // namespace
