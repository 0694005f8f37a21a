#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include <platen/platform/afx.h>

namespace {

struct Step {
    int mode;
    CSize window;
    CSize viewport;
    CPoint windowOrg;
    CPoint viewportOrg;
};

/// A logical point's place on the device, by the definition of the mapping.
CPoint Expected(const CDC& context, const CPoint& point) {
    const CSize window = context.GetWindowExt();
    const CSize viewport = context.GetViewportExt();
    const CPoint from = context.GetWindowOrg();
    const CPoint to = context.GetViewportOrg();
    const auto place = [](double value, double scale, LONG origin) {
        return static_cast<int>(std::floor(value * scale + 0.5)) + static_cast<int>(origin);
    };
    return {place(point.x - from.x, double(viewport.cx) / double(window.cx), to.x),
            place(point.y - from.y, double(viewport.cy) / double(window.cy), to.y)};
}

TEST(Mapping, PointsMissTheirPlace) {
    CDC context;
    ASSERT_TRUE(context.CreateCompatibleDC(nullptr));
    const Step steps[] = {
        {MM_TEXT, {1, 1}, {1, 1}, {17, -5}, {-3, 40}},
        {MM_ANISOTROPIC, {1440, -900}, {-97, 131}, {7, 11}, {13, -17}},
        {MM_ANISOTROPIC, {-3, 7}, {1000, 999}, {0, 0}, {5, 5}},
        {MM_ISOTROPIC, {300, 700}, {411, -77}, {19, 23}, {-29, 31}},
        {MM_LOMETRIC, {5, 5}, {5, 5}, {3, 3}, {-4, -4}},
        {MM_TWIPS, {5, 5}, {5, 5}, {-3, 9}, {1, 2}},
    };
    for (const Step& step : steps) {
        SCOPED_TRACE(step.mode);
        context.SetMapMode(step.mode);
        context.SetWindowExt(step.window.cx, step.window.cy);
        context.SetViewportExt(step.viewport.cx, step.viewport.cy);
        context.SetWindowOrg(step.windowOrg.x, step.windowOrg.y);
        context.SetViewportOrg(step.viewportOrg.x, step.viewportOrg.y);
        for (const CPoint& point : {CPoint(0, 0), CPoint(1, -1), CPoint(-1001, 803)}) {
            CPoint there = point;
            context.LPtoDP(&there);
            EXPECT_EQ(there, Expected(context, point)) << point.x << ',' << point.y;
        }
    }
}

TEST(Mapping, HalvesGoDown) {
    CDC context;
    context.CreateCompatibleDC(nullptr);
    context.SetMapMode(MM_ANISOTROPIC);
    context.SetWindowExt(2, -2);
    CPoint points[] = {{1, 1}, {3, 3}, {-1, -1}, {-3, -3}};
    const CPoint expected[] = {{1, 0}, {2, -1}, {0, 1}, {-1, 2}};
    context.LPtoDP(points, 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(points[i], expected[i]) << i;
    }
}

TEST(Mapping, PresetsMissTheDevicesSize) {
    CDC context;
    ASSERT_TRUE(context.CreateDC("DISPLAY", nullptr, nullptr, nullptr));
    const CSize pixels(context.GetDeviceCaps(HORZRES), context.GetDeviceCaps(VERTRES));
    const CSize size(context.GetDeviceCaps(HORZSIZE), context.GetDeviceCaps(VERTSIZE));
    EXPECT_NEAR(size.cx * context.GetDeviceCaps(LOGPIXELSX) / 25.4, pixels.cx, 10);
    const struct {
        int mode;
        double unitsPerMillimetre;
    } presets[] = {{MM_LOMETRIC, 10},           {MM_HIMETRIC, 100},      {MM_LOENGLISH, 100 / 25.4},
                   {MM_HIENGLISH, 1000 / 25.4}, {MM_TWIPS, 1440 / 25.4}, {MM_ISOTROPIC, 10}};
    for (const auto& preset : presets) {
        SCOPED_TRACE(preset.mode);
        EXPECT_NE(context.SetMapMode(preset.mode), 0);
        EXPECT_EQ(context.GetViewportExt(), CSize(pixels.cx, -pixels.cy));
        EXPECT_NEAR(context.GetWindowExt().cx, size.cx * preset.unitsPerMillimetre, 0.6);
        EXPECT_NEAR(context.GetWindowExt().cy, size.cy * preset.unitsPerMillimetre, 0.6);
    }
    EXPECT_EQ(context.SetMapMode(MM_ANISOTROPIC), MM_ISOTROPIC);
    EXPECT_EQ(context.GetViewportExt(), CSize(pixels.cx, -pixels.cy))
        << "extents are not taken over";
    EXPECT_EQ(context.SetMapMode(9), 0);
    EXPECT_EQ(context.SetMapMode(MM_TEXT), MM_ANISOTROPIC);
    EXPECT_EQ(context.GetWindowExt(), CSize(1, 1));
}

TEST(Mapping, IsotropicUnitsAreNotSquare) {
    CDC context;
    context.CreateCompatibleDC(nullptr);
    context.SetMapMode(MM_ISOTROPIC);
    context.SetWindowExt(1000, 1000);
    EXPECT_NEAR(context.SetViewportExt(400, -300).cx, context.GetDeviceCaps(VERTRES), 2);
    EXPECT_NEAR(context.GetViewportExt().cx, 300, 2);
    EXPECT_EQ(context.GetViewportExt().cy, -300);
    context.SetViewportExt(-1, 5000);
    EXPECT_EQ(context.GetViewportExt(), CSize(-1, 1)) << "an extent vanishes or keeps its length";
    EXPECT_EQ(context.SetViewportExt(0, 7), CSize(-1, 1));
    EXPECT_EQ(context.GetViewportExt(), CSize(-1, 1)) << "an extent of zero counts";
}

TEST(Mapping, SavedSettingsAreLost) {
    CDC context;
    context.CreateCompatibleDC(nullptr);
    EXPECT_EQ(context.SaveDC(), 1);
    context.SetMapMode(MM_TWIPS);
    EXPECT_EQ(context.SaveDC(), 2);
    context.SetMapMode(MM_LOMETRIC);
    context.SetTextColor(RGB(1, 2, 3));
    EXPECT_FALSE(context.RestoreDC(3));
    EXPECT_FALSE(context.RestoreDC(0));
    EXPECT_TRUE(context.RestoreDC(-1));
    EXPECT_EQ(context.GetMapMode(), MM_TWIPS);
    EXPECT_EQ(context.SetTextColor(RGB(9, 9, 9)), RGB(0, 0, 0));
    EXPECT_TRUE(context.RestoreDC(1));
    EXPECT_EQ(context.GetMapMode(), MM_TEXT);
    EXPECT_FALSE(context.RestoreDC(-1));
}

TEST(Mapping, WithoutAContextSomethingHappens) {
    CDC none;
    CPoint point(3, 4);
    none.LPtoDP(&point);
    EXPECT_EQ(point, CPoint(3, 4));
    EXPECT_EQ(none.SetMapMode(MM_TEXT), 0);
    EXPECT_EQ(none.SetWindowExt(5, 5), CSize(0, 0));
    EXPECT_EQ(none.GetDeviceCaps(LOGPIXELSY), 0);
    EXPECT_FALSE(none.Attach(CreateDC("NOSUCH", nullptr, nullptr, nullptr)));
}

}  // namespace
