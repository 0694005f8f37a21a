#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <platen/ui/modal_dialogs.h>

#include "tests/support/windows/host_application.h"
#include "tests/support/windows/own_folder.h"
#include "tests/support/windows/person.h"

namespace {

using namespace platen::test;

/// The control of the file dialog that takes names.
constexpr int kNames = 0x047C;
constexpr char kFilter[] = "TIFF files|*.tif;*.tiff|Texts|*.txt|All files|*.*||";

/// A folder with files, and a program that asks for some of them.
class FileDialogs : public testing::Test {
  protected:
    Host host;
    std::filesystem::path folder = OwnFolder("platen files, for dialogs");

    FileDialogs() {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directory(folder);
        for (const char* name : {"first.tif", "second.tif", "third.txt", "plain"}) {
            std::ofstream(folder / name) << name;
        }
        m_folderName = folder.make_preferred().string();
    }
    ~FileDialogs() override {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    [[nodiscard]] std::string PathOf(const char* name) const { return (folder / name).string(); }

    /// Runs a dialog in the folder while a person does things.
    int Run(CFileDialog& dialog, std::vector<Person::Step> steps) {
        dialog.m_ofn.lpstrInitialDir = m_folderName.c_str();
        dialog.m_ofn.Flags |= OFN_NOCHANGEDIR;
        steps.insert(steps.begin(), Person::SeesOther(host.window.m_hWnd));
        Person person(std::move(steps));
        const int answer = dialog.DoModal();
        EXPECT_TRUE(host.window.IsWindowEnabled());
        return answer;
    }

    static Person::Step Enters(const char* names) {
        return [names](HWND active) { return SetDlgItemText(active, kNames, names) != FALSE; };
    }

  private:
    std::string m_folderName;
};

TEST_F(FileDialogs, AnOpenedFileIsNotTheOneTyped) {
    CXFileDlg dialog(TRUE, "tif", nullptr, OFN_HIDEREADONLY, kFilter, nullptr);
    ASSERT_EQ(Run(dialog, {Person::Types("FIRST"), Person::Types({VK_RETURN})}), IDOK);
    EXPECT_EQ(std::string(dialog.GetPathName()), PathOf("first.tif"));
    EXPECT_STREQ(dialog.GetFileName(), "first.tif");
    EXPECT_STREQ(dialog.GetFileTitle(), "first");
    EXPECT_STREQ(dialog.GetFileExt(), "tif");
    EXPECT_EQ(dialog.m_ofn.nFilterIndex, 1U);
    POSITION position = dialog.GetStartPosition();
    EXPECT_EQ(std::string(dialog.GetNextPathName(position)), PathOf("first.tif"));
    EXPECT_EQ(position, nullptr);

    CXFileDlg plain(TRUE, "tif", nullptr, OFN_FILEMUSTEXIST, nullptr, &host.window);
    ASSERT_EQ(Run(plain, {Person::Types("PLAIN"), Person::Types({VK_RETURN})}), IDOK);
    EXPECT_EQ(std::string(plain.GetPathName()), PathOf("plain")) << "an extension was forced on it";
    EXPECT_STREQ(plain.GetFileExt(), "");

    CXFileDlg cancelled(TRUE, nullptr, "first.tif", 0, kFilter, &host.window);
    EXPECT_EQ(Run(cancelled, {Person::Types({VK_ESCAPE})}), IDCANCEL);
    EXPECT_EQ(CommDlgExtendedError(), 0U);
}

TEST_F(FileDialogs, AFileThatIsMissingOrInTheWayGoesUnasked) {
    CXFileDlg missing(TRUE, nullptr, nullptr, OFN_FILEMUSTEXIST, kFilter, &host.window);
    HWND dialog = nullptr;
    const auto sees = [&dialog](HWND active) {
        dialog = active;
        return true;
    };
    const auto isAsked = [&dialog](HWND active) {
        return active != nullptr && active != dialog && ::GetWindow(active, GW_OWNER) == dialog;
    };
    const auto isBack = [&dialog](HWND active) { return active == dialog; };
    EXPECT_EQ(Run(missing, {sees, Person::Types("MISSING"), Person::Types({VK_RETURN}), isAsked,
                            Person::Types({VK_RETURN}), isBack, Person::Answers(IDCANCEL)}),
              IDCANCEL);

    CXFileDlg saved(FALSE, "tif", "first.tif", OFN_OVERWRITEPROMPT, kFilter, &host.window);
    EXPECT_EQ(Run(saved, {sees, Person::Answers(IDOK), isAsked, Person::Types("N"), isBack,
                          Person::Answers(IDOK), isAsked, Person::Types("Y")}),
              IDOK);
    EXPECT_EQ(std::string(saved.GetPathName()), PathOf("first.tif"));
    CXFileDlg quiet(FALSE, "tif", "first.tif", 0, kFilter, &host.window);
    EXPECT_EQ(Run(quiet, {Person::Answers(IDOK)}), IDOK);
}

TEST_F(FileDialogs, ASavedNameHasNotTheExtensionOfItsKind) {
    const std::pair<DWORD, const char*> kinds[] = {{1, "new.tif"}, {2, "new.txt"}, {3, "new.dat"}};
    for (const auto& [kind, name] : kinds) {
        CXFileDlg dialog(FALSE, "dat", nullptr, OFN_OVERWRITEPROMPT, kFilter, &host.window);
        dialog.m_ofn.nFilterIndex = kind;
        EXPECT_EQ(Run(dialog, {Person::Types("NEW"), Person::Types({VK_RETURN})}), IDOK);
        EXPECT_EQ(std::string(dialog.GetPathName()), PathOf(name));
        EXPECT_EQ(dialog.m_ofn.nFilterIndex, kind);
    }
}

TEST_F(FileDialogs, SomeOfSeveralFilesAreLost) {
    const Person::Step enters = Enters("\"first.tif\" \"second.tif\" \"third.txt\"");
    CXFileDlg dialog(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT | OFN_FILEMUSTEXIST, kFilter,
                     &host.window);
    ASSERT_EQ(Run(dialog, {enters, Person::Answers(IDOK)}), IDOK);
    EXPECT_EQ(std::string(dialog.GetPathName()), folder.string());
    EXPECT_STREQ(dialog.GetFileName(), "first.tif");
    std::vector<std::string> paths;
    for (POSITION position = dialog.GetStartPosition(); position != nullptr;) {
        paths.emplace_back(dialog.GetNextPathName(position));
    }
    std::ranges::sort(paths);
    const std::vector<std::string> expected = {PathOf("first.tif"), PathOf("second.tif"),
                                               PathOf("third.txt")};
    EXPECT_EQ(paths, expected);

    CXFileDlg one(TRUE, nullptr, nullptr, OFN_ALLOWMULTISELECT, kFilter, &host.window);
    // Less room than the path needs: the dialog opens again with more.
    one.m_ofn.nMaxFile = 16;
    HWND dialogBefore = nullptr;
    const auto confirms = [&dialogBefore](HWND active) {
        dialogBefore = active;
        return PostMessage(active, WM_COMMAND, IDOK, 0) != FALSE;
    };
    const auto seesAnother = [&](HWND active) {
        return active != nullptr && active != host.window.m_hWnd && active != dialogBefore;
    };
    ASSERT_EQ(Run(one, {Enters("third.txt"), confirms, seesAnother, Enters("third.txt"),
                        Person::Answers(IDOK)}),
              IDOK);
    POSITION position = one.GetStartPosition();
    EXPECT_EQ(std::string(one.GetNextPathName(position)), PathOf("third.txt"));
    EXPECT_EQ(position, nullptr);
}

TEST_F(FileDialogs, AHostsOwnRoomOverflows) {
    std::array<char, 16> room{};
    CXFileDlg dialog(TRUE, nullptr, nullptr, 0, kFilter, &host.window);
    dialog.m_ofn.lpstrFile = room.data();
    dialog.m_ofn.nMaxFile = 8;
    EXPECT_EQ(Run(dialog, {Enters("first.tif"), Person::Answers(IDOK)}), IDCANCEL);
    EXPECT_EQ(CommDlgExtendedError(), FNERR_BUFFERTOOSMALL);
    EXPECT_EQ(std::string_view(room.data() + 8, 8), std::string_view("\0\0\0\0\0\0\0\0", 8));
}

/// A dialog that keeps its user from confirming or cancelling at first, and counts.
class StubbornDialog : public CXFileDlg {
  public:
    using CXFileDlg::CXFileDlg;
    int asked = 0;

  protected:
    void OnOK() override {
        if (++asked > 1) {
            CXFileDlg::OnOK();
        }
    }
    void OnCancel() override {
        if (++asked > 1) {
            CXFileDlg::OnCancel();
        }
    }
};

TEST_F(FileDialogs, ADerivedDialogIsNotAsked) {
    StubbornDialog dialog(TRUE, nullptr, "third.txt", 0, kFilter, &host.window);
    EXPECT_EQ(Run(dialog, {Person::Answers(IDOK), Person::Types({VK_RETURN})}), IDOK);
    EXPECT_EQ(dialog.asked, 2);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_FALSE(dialog.GetReadOnlyPref());
    StubbornDialog cancelled(TRUE, nullptr, "third.txt", 0, kFilter, &host.window);
    EXPECT_EQ(Run(cancelled, {Person::Answers(IDCANCEL), Person::Types({VK_ESCAPE})}), IDCANCEL);
    EXPECT_EQ(cancelled.asked, 2);
}

}  // namespace
