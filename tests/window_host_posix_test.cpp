#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <array>
#include <chrono>
#include <memory>
#include <span>

#include <platen/platform/afx/dialog_template.h>
#include <platen/platform/win32/qt_window.h>

#include "tests/support/deadline.h"
#include "tests/window_recording.h"

namespace {

using namespace platen::test;

/// A host's own main window: Qt's, with a field and a status bar.
class HostWindow {
  public:
    HostWindow() {
        Pump();  // makes the application object
        window = std::make_unique<QMainWindow>();
        field = new QLineEdit;
        window->setCentralWidget(field);
        window->setWindowTitle("Host");
        window->show();
        handle = PlatenWindowOfWidget(window.get());
    }

    std::unique_ptr<QMainWindow> window;
    QLineEdit* field;
    HWND handle;
};

/// Runs Qt's own loop, in which nobody looks for messages, until the condition holds; false when it
/// never does.
template <class Condition>
bool RunQtUntil(Condition holds) {
    QEventLoop loop;
    QTimer timer;
    const Deadline deadline;
    QObject::connect(&timer, &QTimer::timeout, &loop, [&] {
        if (holds() || deadline.IsOver()) {
            loop.quit();
        }
    });
    timer.start(1);
    loop.exec();
    return holds();
}

TEST(WindowHost, AWidgetsHandleChangesOrOutlivesIt) {
    HostWindow host;
    EXPECT_EQ(PlatenWindowOfWidget(host.window.get()), host.handle);
    EXPECT_EQ(PlatenWidgetOfWindow(host.handle), host.window.get());
    char text[16];
    host.window->setWindowTitle("Changed");
    GetWindowText(host.handle, text, sizeof(text));
    EXPECT_STREQ(text, "Changed");
    SetWindowText(host.handle, "By name");
    EXPECT_EQ(host.window->windowTitle(), "By name");
    EXPECT_TRUE(IsWindowVisible(host.handle));
    const HWND field = PlatenWindowOfWidget(host.field);
    EXPECT_EQ(GetParent(field), host.handle);
    Recording recording({WM_DESTROY, WM_NCDESTROY});
    const HWND owned = Recording::Make("o", WS_POPUP | WS_VISIBLE, host.handle);
    const HWND child = Recording::Make("c", WS_CHILD | WS_VISIBLE, host.handle);
    SendMessage(host.handle, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindowVisible(host.handle));
    host.window.reset();
    for (const HWND gone : {host.handle, field, owned, child}) {
        EXPECT_FALSE(IsWindow(gone));
    }
    EXPECT_EQ(recording.Count(WM_NCDESTROY), 2) << "windows in a host's window are not told";
}

TEST(WindowHost, DestroyingAHandleTakesTheHostsWidget) {
    HostWindow host;
    EXPECT_TRUE(DestroyWindow(host.handle));
    EXPECT_FALSE(IsWindow(host.handle));
    EXPECT_TRUE(host.window->isVisible());
    EXPECT_NE(PlatenWindowOfWidget(host.window.get()), host.handle) << "a handle is given twice";
}

TEST(WindowHost, StatusBarTextsAreLost) {
    HostWindow host;
    QStatusBar& bar = *host.window->statusBar();
    Pump();
    const HWND handle = PlatenWindowOfWidget(&bar);
    SendMessage(handle, SB_SETTEXT, 0, reinterpret_cast<LPARAM>("Ready"));
    SendMessage(handle, SB_SETTEXT, 1, reinterpret_cast<LPARAM>("Memory"));
    EXPECT_EQ(bar.currentMessage(), "Ready");
    const auto labels = bar.findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels.front()->text(), "Memory");
    EXPECT_TRUE(labels.front()->isVisible());
    char text[16];
    EXPECT_EQ(SendMessage(handle, SB_GETTEXT, 1, reinterpret_cast<LPARAM>(text)), 6);
    EXPECT_STREQ(text, "Memory");
    SendMessage(handle, SB_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
    EXPECT_EQ(bar.currentMessage(), "");
    EXPECT_EQ(SendMessage(handle, SB_GETTEXTLENGTH, 0, 0), 0);
}

TEST(WindowHost, MessagesWaitWhileOnlyQtsLoopRuns) {
    HostWindow host;
    Recording recording({WM_USER, WM_TIMER, WM_PAINT});
    const Scoped window(Recording::Make("w", WS_POPUP | WS_VISIBLE, host.handle));
    PostMessage(window, WM_USER, 0, 0);
    SetTimer(window, 1, 10, nullptr);
    InvalidateRect(window, nullptr, TRUE);
    EXPECT_TRUE(RunQtUntil(
        [&] { return recording.Count(WM_PAINT) >= 1 && recording.Count(WM_TIMER) >= 3; }));
    EXPECT_EQ(recording.Count(WM_USER), 1);
    KillTimer(window, 1);
    QTimer::singleShot(0, [] { PostQuitMessage(9); });
    QTimer lastResort;
    QObject::connect(&lastResort, &QTimer::timeout, [] { QApplication::exit(-1); });
    lastResort.start(std::chrono::minutes(1));
    EXPECT_EQ(QApplication::exec(), 9) << "WM_QUIT does not end the host's loop";
}

INT_PTR CALLBACK EndAtCancel(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) {
        DestroyWindow(dialog);
        return TRUE;
    }
    return FALSE;
}

TEST(WindowHost, ADialogIsDeafWhileOnlyQtsLoopRuns) {
    HostWindow host;
    CDialogTemplate description(WS_POPUP | WS_CAPTION | WS_VISIBLE, {0, 0, 80, 40}, "Ask");
    description.Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, {10, 10, 40, 14});
    const auto* const bytes = reinterpret_cast<LPCDLGTEMPLATE>(description.Bytes().data());
    const HWND byKey = CreateDialogIndirectParam(nullptr, bytes, host.handle, &EndAtCancel, 0);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(PlatenWidgetOfWindow(GetDlgItem(byKey, IDCANCEL)), &press);
    EXPECT_TRUE(RunQtUntil([byKey] { return IsWindow(byKey) == FALSE; }));
    const HWND byMouse = CreateDialogIndirectParam(nullptr, bytes, host.handle, &EndAtCancel, 0);
    auto* const button =
        dynamic_cast<QPushButton*>(PlatenWidgetOfWindow(GetDlgItem(byMouse, IDCANCEL)));
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_TRUE(IsWindow(byMouse)) << "the command comes while Qt handles the click";
    EXPECT_TRUE(RunQtUntil([byMouse] { return IsWindow(byMouse) == FALSE; }));
    const HWND byQt = CreateDialogIndirectParam(nullptr, bytes, host.handle, &EndAtCancel, 0);
    delete PlatenWidgetOfWindow(byQt);
    EXPECT_FALSE(IsWindow(byQt));
}

TEST(WindowHost, ADisabledWindowTakesInputOrFades) {
    HostWindow host;
    const auto type = [&host] {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, "a");
        QApplication::sendEvent(host.field, &press);
    };
    EnableWindow(host.handle, FALSE);
    type();
    EXPECT_EQ(host.field->text(), "");
    EXPECT_TRUE(host.window->isEnabled()) << "all texts of the window turn gray";
    EnableWindow(host.handle, TRUE);
    type();
    EXPECT_EQ(host.field->text(), "a");
}

TEST(WindowHost, ATemplateIsReadBeyondItsEnd) {
    CDialogTemplate description(WS_POPUP | WS_CAPTION, {0, 0, 80, 40}, "Ask");
    description.Add("BUTTON", "Cancel", IDCANCEL, WS_TABSTOP, {10, 10, 40, 14});
    const auto bytes = description.Bytes();
    const LPSTR name = MAKEINTRESOURCE(77);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        // A copy of its own, so that a reader beyond it is noticed.
        const std::vector<std::byte> part(bytes.begin(), bytes.begin() + std::ptrdiff_t(length));
        EXPECT_FALSE(platen::win32::RegisterDialogTemplate(name, part)) << length;
    }
    EXPECT_EQ(FindResource(nullptr, name, RT_DIALOG), nullptr);
    ASSERT_TRUE(platen::win32::RegisterDialogTemplate(name, bytes));
    const HRSRC resource = FindResource(nullptr, name, RT_DIALOG);
    EXPECT_EQ(SizeofResource(nullptr, resource), bytes.size());
    EXPECT_EQ(FindResource(nullptr, "#77", RT_DIALOG), resource);
    EXPECT_EQ(FindResource(nullptr, "other", RT_DIALOG), nullptr);
}

/// An extended template of a dialog "D" with a font and one edit field of identifier 70000.
constexpr auto kExtended = std::to_array<std::uint16_t>({
    1,      0xFFFF, 0,      0,    0,   0,               // version, mark, help, extended style
    0x48,   0x80C0, 1,      0,    0,   100,    50,      // style, items, place
    0,      0,      'D',    0,                          // menu, class, title
    8,      400,    0x100,  'F',  'o', 'n',    't', 0,  // font
    0,                                                  // to a multiple of four bytes
    0,      0,      0,      0,    0,   0x5081, 5,   5, 40, 12,  // help, styles, place
    0x1170, 1,      0xFFFF, 0x81,                               // identifier, class
    0xD83D, 0xDE00, 0x00E9, 0,    4,   7,      7,               // text, creation data
});

TEST(WindowHost, AnExtendedTemplateIsMisread) {
    const auto bytes = std::as_bytes(std::span(kExtended));
    ASSERT_TRUE(platen::win32::RegisterDialogTemplate("extended", bytes));
    const HGLOBAL found = LoadResource(nullptr, FindResource(nullptr, "EXTENDED", RT_DIALOG));
    const Scoped dialog(CreateDialogIndirectParam(
        nullptr, static_cast<LPCDLGTEMPLATE>(LockResource(found)), nullptr, nullptr, 0));
    char text[16] = "";
    GetWindowText(dialog, text, sizeof(text));
    EXPECT_STREQ(text, "D");
    const HWND field = GetDlgItem(dialog, 70000);
    GetWindowText(field, text, sizeof(text));
    EXPECT_STREQ(text, "\xF0\x9F\x98\x80\xC3\xA9");
    RECT place{};
    GetClientRect(field, &place);
    EXPECT_GT(place.right, 40);
}

}  // namespace
