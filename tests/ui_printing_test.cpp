#include <gtest/gtest.h>

#include <platen/ui/modal_dialogs.h>

#include "tests/support/windows/host_application.h"
#include "tests/support/windows/person.h"

namespace {

using namespace platen::test;

TEST(PrintDialogs, APrinterThatIsNotThereIsGiven) {
    Host host;
    CXPrintDlg dialog(FALSE, PD_ALLPAGES | PD_USEDEVMODECOPIES, nullptr);
    Person person({Person::SeesOther(host.window.m_hWnd), Person::Answers(IDCANCEL)});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.GetPrinterDC(), nullptr);
    EXPECT_TRUE(dialog.PrintAll());
    EXPECT_EQ(dialog.GetFromPage(), -1);
    EXPECT_TRUE(host.window.IsWindowEnabled());
}

TEST(PrintDialogs, AChoiceIsTakenForAnother) {
    const CXPrintDlg selection(FALSE, PD_SELECTION | PD_COLLATE, nullptr);
    EXPECT_TRUE(selection.PrintSelection());
    EXPECT_TRUE(selection.PrintCollate());
    EXPECT_FALSE(selection.PrintAll());
    EXPECT_FALSE(selection.PrintRange());
    EXPECT_STREQ(selection.GetDeviceName(), "");
}

}  // namespace
