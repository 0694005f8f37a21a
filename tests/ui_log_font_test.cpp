#include <gtest/gtest.h>

#include <platen/ui/log_font.h>

#include "tests/support/windows/host_application.h"
#include "tests/support/windows/person.h"

namespace {

using namespace platen::test;

TEST(LogFont, AnEditedSizeIsLost) {
    Host host;
    CLogFont font(120, "Liberation Sans", 0);
    font.lfWeight = FW_BOLD;
    font.m_crColor = RGB(128, 0, 0);
    // From the face over the style to the size.
    Person person({Person::SeesOther(host.window.m_hWnd), Person::Types({VK_TAB}),
                   Person::Types({VK_TAB}), Person::Types("18"), Person::Types({VK_RETURN})});
    EXPECT_EQ(font.bEdit(&host.window, CF_SHOWHELP), 1);
    EXPECT_EQ(font.m_iPointSize, 180);
    EXPECT_EQ(font.lfHeight, 18);
    EXPECT_GT(font.lfWeight, FW_NORMAL);
    EXPECT_STREQ(font.lfFaceName, "Liberation Sans");
    EXPECT_EQ(font.m_crColor, RGB(128, 0, 0));
    EXPECT_TRUE(host.window.IsWindowEnabled());
}

TEST(LogFont, ACancelledEditLeavesPixels) {
    Host host;
    CDC screen;
    screen.CreateCompatibleDC(nullptr);
    CLogFont font(130, "Liberation Sans", 0);
    const COLORREF color = font.m_crColor;
    Person person({Person::SeesOther(host.window.m_hWnd), Person::Types({VK_TAB, VK_TAB}),
                   Person::Types("18"), Person::Types({VK_ESCAPE})});
    EXPECT_EQ(font.bEdit(nullptr, 0), 0);
    EXPECT_EQ(font.lfHeight, screen.GetDeviceCaps(LOGPIXELSY) * 130 / 720);
    EXPECT_EQ(font.m_iPointSize, 130);
    EXPECT_EQ(font.m_crColor, color);
}

}  // namespace
