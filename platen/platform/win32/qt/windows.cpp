#include <QApplication>
#include <algorithm>
#include <cctype>
#include <map>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/activation.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/queue.h>
#include <platen/platform/win32/qt/widgets.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

QWidget* MakePlain(HWND handle, const Window& window, QWidget* parent) {
    if (window.IsChild()) {
        return new PlainWidget(handle, parent, Qt::Widget);
    }
    const bool hasCaption = (window.style & WS_CAPTION) == WS_CAPTION;
    Qt::WindowFlags flags = Qt::Tool | Qt::FramelessWindowHint;
    if (hasCaption || (window.style & WS_POPUP) == 0) {
        flags = parent == nullptr ? Qt::Window : Qt::Dialog | Qt::WindowTitleHint;
        flags.setFlag(Qt::WindowCloseButtonHint, (window.style & WS_SYSMENU) != 0);
    }
    flags.setFlag(Qt::WindowStaysOnTopHint, (window.exStyle & WS_EX_TOPMOST) != 0);
    return new PlainWidget(handle, parent, flags);
}

/// Sizes of a window that leaves them to the system.
constexpr int kDefaultWidth = 640;
constexpr int kDefaultHeight = 400;

std::unique_ptr<Window> DescribeWindow(const WindowClass& windowClass,
                                       const CREATESTRUCT& creation) {
    auto window = std::make_unique<Window>();
    window->windowClass = &windowClass;
    window->procedure = windowClass.procedure;
    window->style = static_cast<DWORD>(creation.style) & ~WS_VISIBLE;
    // What has neither bit is an overlapped window, which always has a caption.
    window->style |= (window->style & (WS_CHILD | WS_POPUP)) == 0 ? WS_CAPTION : 0;
    window->exStyle = creation.dwExStyle;
    window->instance = creation.hInstance;
    window->identifier = window->IsChild() ? reinterpret_cast<LONG_PTR>(creation.hMenu) : 0;
    window->parent = window->IsChild() ? creation.hwndParent : TopLevelOf(creation.hwndParent);
    if (windowClass.makeWidget == nullptr) {
        window->border = BorderOf(window->style, window->exStyle);
    }
    return window;
}

void PlaceNewWidget(Window& window, const CREATESTRUCT& creation) {
    QWidget& widget = *window.widget;
    const bool sizeIsOpen = creation.cx == CW_USEDEFAULT;
    widget.resize(sizeIsOpen ? kDefaultWidth : std::max(creation.cx, 0),
                  sizeIsOpen ? kDefaultHeight : std::max(creation.cy, 0));
    if (creation.x != CW_USEDEFAULT) {
        const Window* const parent = window.IsChild() ? Find(window.parent) : nullptr;
        const int inset = parent == nullptr ? 0 : parent->border;
        widget.move(creation.x + inset, creation.y + inset);
    }
    widget.setEnabled(!window.IsChild() || (window.style & WS_DISABLED) == 0);
}

/// The messages of creation; false when the window refuses.
bool Announce(HWND handle, CREATESTRUCT& creation) {
    const auto lParam = reinterpret_cast<LPARAM>(&creation);
    if (SendMessage(handle, WM_NCCREATE, 0, lParam) == 0 || Find(handle) == nullptr) {
        return false;
    }
    return SendMessage(handle, WM_CREATE, 0, lParam) != -1 && Find(handle) != nullptr;
}

void SendDestroy(HWND handle) {
    SendMessage(handle, WM_DESTROY, 0, 0);
    for (const HWND child : ChildrenOf(handle)) {
        SendDestroy(child);
    }
}

/// Ends the record, innermost windows first.
void Finish(HWND handle) {
    for (const HWND child : ChildrenOf(handle)) {
        Finish(child);
    }
    SendMessage(handle, WM_NCDESTROY, 0, 0);
    Window* const window = Find(handle);
    if (window == nullptr) {
        return;
    }
    const bool isOurs = !window->isHosts && !window->widgetDies;
    QWidget* const widget = isOurs ? window->widget.data() : nullptr;
    KillTimers(handle);
    DropMessages(handle);
    DropInvalid(handle);
    ForgetWindow(handle);
    Bury(widget);
}

void DestroyOwned(HWND owner) {
    const std::vector<HWND> all(AllWindows().begin(), AllWindows().end());
    for (const HWND handle : all) {
        const Window* const window = Find(handle);
        if (window != nullptr && !window->IsChild() && window->parent == owner) {
            DestroyWindow(handle);
        }
    }
}

void End(HWND handle) {
    LeaveWindow(handle);
    SendDestroy(handle);
    Finish(handle);
}

std::string Upper(LPCSTR name) {
    std::string upper = name;
    std::ranges::transform(upper, upper.begin(), [](unsigned char letter) {
        return static_cast<char>(std::toupper(letter));
    });
    return upper;
}

struct Classes {
    std::map<std::string, WindowClass> byName;
    std::map<ATOM, const WindowClass*> byAtom;
};

void AddClass(Classes& classes, const WindowClass& description) {
    constexpr ATOM kFirstAtom = 0xC000;
    const auto atom = static_cast<ATOM>(kFirstAtom + classes.byAtom.size());
    classes.byAtom[atom] = &(classes.byName[Upper(description.name.c_str())] = description);
}

Classes& TheClasses() {
    static auto* const classes = [] {
        auto* const fresh = new Classes;
        const auto dialogBrush = reinterpret_cast<HBRUSH>(std::intptr_t{COLOR_BTNFACE + 1});
        AddClass(*fresh, {"STATIC", &StaticProcedure, 0, nullptr, &MakeStatic});
        AddClass(*fresh, {"BUTTON", &ButtonProcedure, 0, nullptr, &MakeButton});
        AddClass(*fresh, {"EDIT", &EditProcedure, 0, nullptr, &MakeEdit});
        AddClass(*fresh, {STATUSCLASSNAME, &StatusBarProcedure, 0, nullptr, &MakeStatusBar});
        AddClass(*fresh, {"#32770", &DefDlgProc, 0, dialogBrush, nullptr});
        return fresh;
    }();
    return *classes;
}

}  // namespace

const WindowClass* FindClass(LPCSTR nameOrAtom) {
    const Classes& classes = TheClasses();
    if (IS_INTRESOURCE(nameOrAtom)) {
        const auto found =
            classes.byAtom.find(static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(nameOrAtom)));
        return found == classes.byAtom.end() ? nullptr : found->second;
    }
    const auto found = classes.byName.find(Upper(nameOrAtom));
    return found == classes.byName.end() ? nullptr : &found->second;
}

void WidgetDies(HWND handle) {
    if (Window* const window = Find(handle); window != nullptr && !window->isDying) {
        const EventScope scope;
        window->isDying = true;
        window->widgetDies = true;
        DestroyOwned(handle);
        End(handle);
    }
}

}  // namespace platen::win32

using namespace platen::win32;

ATOM RegisterClass(const WNDCLASS* description) {
    Classes& classes = TheClasses();
    const LPCSTR name = description->lpszClassName;
    if (IS_INTRESOURCE(name) || description->lpfnWndProc == nullptr || FindClass(name) != nullptr) {
        return 0;
    }
    AddClass(classes, {name, description->lpfnWndProc, description->style,
                       description->hbrBackground, nullptr});
    return classes.byAtom.rbegin()->first;
}

void InitCommonControls() {}

HWND CreateWindowEx(DWORD exStyle, LPCSTR className, LPCSTR name, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                    LPVOID parameter) {
    const WindowClass* const windowClass = FindClass(className);
    const bool isChild = (style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
    const Window* const around = Find(parent);
    if (windowClass == nullptr || (isChild && (around == nullptr || !around->widget)) ||
        (parent != nullptr && around == nullptr) || !NeedDesktop()) {
        return nullptr;
    }
    // A window that is both is a pop-up.
    const DWORD kind = isChild ? style : style & ~WS_CHILD;
    CREATESTRUCT creation{
        parameter, instance,  menu,   parent, height, width, y, x, static_cast<LONG>(kind),
        name,      className, exStyle};
    Window* window = AddWindow(DescribeWindow(*windowClass, creation));
    const HWND handle = window->handle;
    const Window* const host = Find(window->parent);
    QWidget* const hostWidget = host == nullptr ? nullptr : host->widget.data();
    const auto make = windowClass->makeWidget == nullptr ? &MakePlain : windowClass->makeWidget;
    SetWidget(*window, make(handle, *window, hostWidget));
    PlaceNewWidget(*window, creation);
    if (!Announce(handle, creation)) {
        if (Window* const refused = Find(handle); refused != nullptr && !refused->isDying) {
            refused->isDying = true;
            Finish(handle);
        }
        return nullptr;
    }
    if ((kind & (WS_CHILD | WS_POPUP)) != 0) {
        TellPlace(handle);
    }
    if ((style & WS_VISIBLE) != 0) {
        ShowWindow(handle, SW_SHOW);
    }
    return IsWindow(handle) != 0 ? handle : nullptr;
}

BOOL DestroyWindow(HWND handle) {
    Window* const window = Find(handle);
    if (window == nullptr || window->isDying) {
        return FALSE;
    }
    window->isDying = true;
    if (!window->isHosts && IsWindowVisible(handle) != 0) {
        ShowWindow(handle, SW_HIDE);
    }
    DestroyOwned(handle);
    if (Find(handle) != nullptr) {
        End(handle);
    }
    return TRUE;
}

BOOL IsWindow(HWND window) {
    return Find(window) != nullptr ? TRUE : FALSE;
}

LRESULT CallWindowProc(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure == nullptr ? 0 : procedure(window, message, wParam, lParam);
}
