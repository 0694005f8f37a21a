/// A plain Win32 program as the host: its own window class, message loop and status bar. The
/// template of the progress window is a resource, progress.rc.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <platen/platform/afx.h>
#include <platen/progress/report.h>

#include "examples/progress/displays.h"

namespace {

using example::DisplayKind;

constexpr char kClassName[] = "platen progress example";
constexpr int kWindowButton = 1;
constexpr int kStatusButton = 2;

void RunAndTell(HWND window, DisplayKind display, const example::Script& script) {
    example::LongJob job;
    const bool finished = Run(job, display, script, [] {});
    std::printf("%s at row %d of %d\n", finished ? "finished" : "stopped", job.Done(),
                example::LongJob::kHeight);
    std::fflush(stdout);
    SetWindowText(window, finished ? "Finished" : "Stopped");
}

LRESULT CALLBACK MainProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (LOWORD(wParam) == kWindowButton || LOWORD(wParam) == kStatusButton) {
                const bool inWindow = LOWORD(wParam) == kWindowButton;
                RunAndTell(window, inWindow ? DisplayKind::Window : DisplayKind::StatusBar, {});
            }
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProc(window, message, wParam, lParam);
    }
}

HWND MakeMainWindow(HINSTANCE instance) {
    WNDCLASS description = {};
    description.lpfnWndProc = &MainProcedure;
    description.hInstance = instance;
    description.hCursor = LoadCursor(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    description.lpszClassName = kClassName;
    RegisterClass(&description);
    const HWND window =
        CreateWindowEx(0, kClassName, "Two displays of a long job", WS_OVERLAPPEDWINDOW, 100, 100,
                       640, 400, nullptr, nullptr, instance, nullptr);
    const auto button = [&](const char* text, int identifier, int left) {
        CreateWindowEx(0, "BUTTON", text, WS_CHILD | WS_VISIBLE | WS_TABSTOP, left, 20, 190, 30,
                       window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), instance,
                       nullptr);
    };
    button("Run with a window", kWindowButton, 20);
    button("Run in the status bar", kStatusButton, 220);
    return window;
}

HWND MakeStatusBar(HWND parent, HINSTANCE instance) {
    const HWND bar =
        CreateWindowEx(0, STATUSCLASSNAME, "Ready", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0,
                       0, parent, nullptr, instance, nullptr);
    int rightEdges[] = {280, -1};
    SendMessage(bar, SB_SETPARTS, 2, reinterpret_cast<LPARAM>(rightEdges));
    return bar;
}

/// `--run window|status [--hold-at PERCENT] [--escape-at PERCENT]`: runs at once and leaves.
struct Arguments {
    const char* run = nullptr;
    example::Script script;
};

Arguments Parse(int argc, char** argv) {
    Arguments arguments;
    for (int i = 1; i + 1 < argc; i += 2) {
        if (std::strcmp(argv[i], "--run") == 0) {
            arguments.run = argv[i + 1];
        } else if (std::strcmp(argv[i], "--hold-at") == 0) {
            arguments.script.holdAt = std::atoi(argv[i + 1]);
        } else if (std::strcmp(argv[i], "--escape-at") == 0) {
            arguments.script.escapeAt = std::atoi(argv[i + 1]);
        }
    }
    return arguments;
}

}  // namespace

int main(int argc, char** argv) {
    const Arguments arguments = Parse(argc, argv);
    const HINSTANCE instance = GetModuleHandle(nullptr);
    CWinApp application;
    CWnd window;
    window.Attach(MakeMainWindow(instance));
    CStatusBar statusBar;
    statusBar.Attach(MakeStatusBar(window.m_hWnd, instance));
    application.m_pMainWnd = &window;
    CORE_SetStatusBar(&statusBar);

    window.ShowWindow(SW_SHOW);
    window.UpdateWindow();
    if (arguments.run != nullptr) {
        const bool inWindow = std::strcmp(arguments.run, "window") == 0;
        RunAndTell(window.m_hWnd, inWindow ? DisplayKind::Window : DisplayKind::StatusBar,
                   arguments.script);
    } else {
        application.Run();
    }
    CORE_SetStatusBar(nullptr);
    application.m_pMainWnd = nullptr;
    window.DestroyWindow();
    return 0;
}
