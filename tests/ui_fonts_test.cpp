#include <gtest/gtest.h>

#include <cstring>

#include <platen/ui/modal_dialogs.h>

#include "tests/support/windows/host_application.h"
#include "tests/support/windows/person.h"

namespace {

using namespace platen::test;

LOGFONT FontOf(const char* face, LONG height, LONG weight) {
    LOGFONT font = {};
    std::strncpy(font.lfFaceName, face, sizeof(font.lfFaceName) - 1);
    font.lfHeight = height;
    font.lfWeight = weight;
    return font;
}

/// Counts how it is answered.
class CountingFontDialog : public CXFontDlg {
  public:
    using CXFontDlg::CXFontDlg;
    int confirmed = 0;
    int cancelled = 0;

  protected:
    void OnOK() override {
        ++confirmed;
        CXFontDlg::OnOK();
    }
    void OnCancel() override {
        ++cancelled;
        CXFontDlg::OnCancel();
    }
};

TEST(FontDialogs, AConfirmedFontIsAnother) {
    Host host;
    LOGFONT font = FontOf("Liberation Serif", -16, FW_BOLD);
    font.lfUnderline = TRUE;
    CountingFontDialog dialog(&font, CF_EFFECTS | CF_SCREENFONTS, nullptr, nullptr);
    dialog.m_cf.rgbColors = RGB(0, 0, 128);
    Person person({Person::SeesOther(host.window.m_hWnd), Person::Answers(IDOK)});
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_STREQ(dialog.GetFaceName(), "Liberation Serif");
    EXPECT_EQ(dialog.GetSize(), 120);
    EXPECT_EQ(dialog.GetWeight(), FW_BOLD);
    EXPECT_TRUE(dialog.IsBold());
    EXPECT_TRUE(dialog.IsUnderline());
    EXPECT_FALSE(dialog.IsStrikeOut());
    EXPECT_FALSE(dialog.IsItalic());
    EXPECT_EQ(dialog.GetColor(), RGB(0, 0, 128));
    EXPECT_EQ(font.lfHeight, -16);
    LOGFONT chosen = {};
    dialog.GetCurrentFont(&chosen);
    EXPECT_EQ(std::memcmp(&font, &chosen, sizeof(font)), 0);
    EXPECT_EQ(dialog.confirmed, 1);
    EXPECT_EQ(dialog.cancelled, 0);
    EXPECT_TRUE(host.window.IsWindowEnabled());
}

TEST(FontDialogs, AStylesNameOverflows) {
    CXFontDlg dialog;
    dialog.SetStyleName("Bold Italic");
    EXPECT_STREQ(dialog.GetStyleName(), "Bold Italic");
    dialog.SetStyleName(std::string(100, 'x').c_str());
    EXPECT_STREQ(dialog.GetStyleName(), std::string(63, 'x').c_str());
}

TEST(FontDialogs, ATypedSizeIsIgnored) {
    Host host;
    LOGFONT font = FontOf("Liberation Sans", -16, FW_NORMAL);
    CXFontDlg dialog(&font);
    // From the face over the style to the size.
    Person person({Person::SeesOther(host.window.m_hWnd), Person::Types({VK_TAB}),
                   Person::Types({VK_TAB}), Person::Types("18"), Person::Types({VK_RETURN})});
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetSize(), 180);
    EXPECT_EQ(font.lfHeight, -24);
}

TEST(FontDialogs, ACancelledFontIsChanged) {
    Host host;
    LOGFONT font = FontOf("Liberation Sans", -16, FW_NORMAL);
    const LOGFONT before = font;
    CountingFontDialog dialog(&font);
    Person person({Person::SeesOther(host.window.m_hWnd), Person::Types({VK_TAB, VK_TAB}),
                   Person::Types("30"), Person::Types({VK_ESCAPE})});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(std::memcmp(&font, &before, sizeof(font)), 0);
    EXPECT_EQ(dialog.confirmed, 0);
    EXPECT_EQ(dialog.cancelled, 1);
}

}  // namespace
