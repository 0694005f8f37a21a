#include <gtest/gtest.h>

#include <cstring>

#include <platen/ui/modal_dialogs.h>

#include "tests/support/windows/host_application.h"
#include "tests/support/windows/person.h"

namespace {

using namespace platen::test;

TEST(FontDialogs, AFaceThatIsMissingIsReplaced) {
    Host host;
    LOGFONT font = {};
    std::strcpy(font.lfFaceName, "Face of another machine");
    font.lfHeight = -14;
    font.lfWeight = 450;
    font.lfEscapement = 900;
    font.lfCharSet = 77;
    const LOGFONT before = font;
    CXFontDlg untouched(&font);
    {
        Person person({Person::SeesOther(host.window.m_hWnd), Person::Answers(IDOK)});
        ASSERT_EQ(untouched.DoModal(), IDOK);
    }
    EXPECT_EQ(std::memcmp(&font, &before, sizeof(font)), 0);
    EXPECT_EQ(untouched.GetSize(), 110);

    CXFontDlg typed(&font);
    HWND dialog = nullptr;
    const auto sees = [&dialog](HWND active) {
        dialog = active;
        return true;
    };
    const auto isRefused = [&dialog](HWND active) { return active != dialog; };
    const auto isBack = [&dialog](HWND active) { return active == dialog; };
    Person person({Person::SeesOther(host.window.m_hWnd), sees, Person::Types("NONE"),
                   Person::Types({VK_RETURN}), isRefused, Person::Types({VK_RETURN}), isBack,
                   Person::Types("LIBERATION SANS"), Person::Types({VK_TAB}), Person::Types("B"),
                   Person::Types({VK_TAB}), Person::Types("7"), Person::Types({VK_RETURN})});
    ASSERT_EQ(typed.DoModal(), IDOK);
    EXPECT_STREQ(font.lfFaceName, "Liberation Sans");
    EXPECT_EQ(font.lfWeight, FW_BOLD);
    EXPECT_EQ(font.lfEscapement, 900);
    EXPECT_EQ(typed.GetSize(), 70);
}

}  // namespace
