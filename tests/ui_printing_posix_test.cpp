#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

#include <platen/ui/modal_dialogs.h>

#include "tests/support/windows/host_application.h"
#include "tests/support/windows/own_folder.h"
#include "tests/support/windows/person.h"

namespace {

using namespace platen::test;

std::string Contents(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A home folder of its own, where the print dialog proposes a file.
class Printing : public testing::Test {
  protected:
    Host host;
    std::filesystem::path home = OwnFolder("platen printing");

    Printing() {
        if (const char* const usual = std::getenv("HOME")) {
            m_usualHome = usual;
        }
        std::filesystem::remove_all(home);
        std::filesystem::create_directory(home);
        ::setenv("HOME", home.c_str(), 1);
    }
    ~Printing() override {
        // Qt notes its settings there when later tests end their dialogs.
        if (m_usualHome) {
            ::setenv("HOME", m_usualHome->c_str(), 1);
        } else {
            ::unsetenv("HOME");
        }
        std::filesystem::remove_all(home);
    }

    /// Lets a person confirm the dialog.
    int Confirm(CPrintDialog& dialog) const {
        Person person({Person::SeesOther(host.window.m_hWnd), Person::Answers(IDOK)});
        return dialog.DoModal();
    }

  private:
    std::optional<std::string> m_usualHome;
};

/// Counts how often it is confirmed.
class CountingPrintDialog : public CXPrintDlg {
  public:
    using CXPrintDlg::CXPrintDlg;
    int confirmed = 0;

  protected:
    void OnOK() override {
        ++confirmed;
        CXPrintDlg::OnOK();
    }
};

TEST_F(Printing, NothingIsPrinted) {
    CountingPrintDialog dialog(FALSE, PD_USEDEVMODECOPIES, nullptr);
    ASSERT_EQ(Confirm(dialog), IDOK);
    EXPECT_EQ(dialog.confirmed, 1);
    const HDC printer = dialog.GetPrinterDC();
    ASSERT_NE(printer, nullptr);
    EXPECT_TRUE(dialog.PrintAll());
    EXPECT_EQ(dialog.GetCopies(), 1);
    EXPECT_FALSE(dialog.GetDeviceName().IsEmpty());
    const std::string path = (home / "out.pdf").string();
    DOCINFO document = {};
    document.cbSize = sizeof(document);
    document.lpszDocName = "Test";
    document.lpszOutput = path.c_str();
    ASSERT_GT(StartDoc(printer, &document), 0);
    for (int page = 0; page < 2; ++page) {
        ASSERT_GT(StartPage(printer), 0);
        TextOut(printer, 100, 100, "page", 4);
        ASSERT_GT(EndPage(printer), 0);
    }
    ASSERT_GT(EndDoc(printer), 0);
    EXPECT_TRUE(DeleteDC(printer));
    const std::string pdf = Contents(path);
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    EXPECT_NE(pdf.find("/Count 2"), std::string::npos);
    GlobalFree(dialog.m_pd.hDevMode);
    GlobalFree(dialog.m_pd.hDevNames);
}

TEST_F(Printing, TheNextDialogForgetsTheSetup) {
    CXPrintDlg setup(TRUE, 0, &host.window);
    setup.m_pd.hDevMode = GlobalAlloc(GMEM_ZEROINIT, sizeof(DEVMODE));
    auto* wanted = static_cast<DEVMODE*>(GlobalLock(setup.m_pd.hDevMode));
    wanted->dmFields = DM_ORIENTATION | DM_PAPERSIZE | DM_COPIES;
    wanted->dmOrientation = DMORIENT_LANDSCAPE;
    wanted->dmPaperSize = 8;  // A3
    wanted->dmCopies = 3;
    GlobalUnlock(setup.m_pd.hDevMode);
    ASSERT_EQ(Confirm(setup), IDOK);
    EXPECT_EQ(setup.GetPrinterDC(), nullptr);

    CXPrintDlg dialog(FALSE, PD_PAGENUMS, &host.window);
    dialog.m_pd.hDevMode = setup.m_pd.hDevMode;
    dialog.m_pd.hDevNames = setup.m_pd.hDevNames;
    dialog.m_pd.nMinPage = 1;
    dialog.m_pd.nMaxPage = 9;
    dialog.m_pd.nFromPage = 2;
    dialog.m_pd.nToPage = 4;
    ASSERT_EQ(Confirm(dialog), IDOK);
    EXPECT_TRUE(dialog.PrintRange());
    EXPECT_EQ(dialog.GetFromPage(), 2);
    EXPECT_EQ(dialog.GetToPage(), 4);
    EXPECT_EQ(dialog.GetCopies(), 3);
    EXPECT_EQ(GetDeviceCaps(dialog.GetPrinterDC(), HORZSIZE) / 10, 42 - 1) << "is not A3 across";
    EXPECT_TRUE(DeleteDC(dialog.GetPrinterDC()));
    GlobalFree(dialog.m_pd.hDevMode);
    GlobalFree(dialog.m_pd.hDevNames);
}

}  // namespace
