#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include <platen/platform/afx.h>

namespace {

/// A context of two pixels a unit, with a font.
struct LargeFont {
    CDC context;
    CFont font;

    LargeFont(int height, int width) {
        context.CreateCompatibleDC(nullptr);
        context.SetMapMode(MM_ANISOTROPIC);
        context.SetWindowExt(1, 1);
        context.SetViewportExt(2, 2);
        LOGFONT record = {};
        record.lfHeight = height;
        record.lfWidth = width;
        std::strcpy(record.lfFaceName, "Arial");
        font.CreateFontIndirect(&record);
        context.SelectObject(&font);
    }
    [[nodiscard]] TEXTMETRIC Metrics() const {
        TEXTMETRIC metrics = {};
        context.GetTextMetrics(&metrics);
        return metrics;
    }
    [[nodiscard]] LONG WidthOf(const std::string& text) const {
        return context.GetTextExtent(text.c_str(), static_cast<int>(text.size())).cx;
    }
};

TEST(DrawingLimits, LargeFontsComeOutSmall) {
    for (const int height : {-INT_MAX, INT_MAX, INT_MIN}) {
        const LONG line = LargeFont(height, 0).Metrics().tmHeight;
        EXPECT_GT(line, 20000) << height;
        EXPECT_LT(line, 80000) << height;
    }
    for (const int width : {INT_MAX, -INT_MAX, INT_MIN}) {
        EXPECT_GT(LargeFont(-1000, width).Metrics().tmAveCharWidth, 10000) << width;
    }
}

TEST(DrawingLimits, LongTextsInLargeFontsComeOutShort) {
    const LargeFont large(-4000, INT_MAX);
    const double one = large.WidthOf("W");
    EXPECT_GT(one, 100'000);
    EXPECT_NEAR(large.WidthOf(std::string(1000, 'W')), 1000 * one, 1000);
    EXPECT_EQ(large.WidthOf(std::string(100'000, 'W')), INT_MAX / 2 + 1);
}

}  // namespace
