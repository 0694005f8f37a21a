#include <QApplication>
#include <algorithm>
#include <string_view>

#include <unistd.h>

#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/window_record.h>
#include <platen/platform/win32/window.h>

using namespace platen::win32;

HWND GetParent(HWND window) {
    const Window* const found = Find(window);
    // An overlapped window has an owner at most, which GetWindow tells.
    const bool tells = found != nullptr && (found->style & (WS_CHILD | WS_POPUP)) != 0;
    return tells && Find(found->parent) != nullptr ? found->parent : nullptr;
}

HWND GetWindow(HWND window, UINT relation) {
    const Window* const found = Find(window);
    if (found == nullptr) {
        return nullptr;
    }
    if (relation == GW_OWNER) {
        return found->IsChild() || Find(found->parent) == nullptr ? nullptr : found->parent;
    }
    if (relation == GW_CHILD) {
        const auto children = ChildrenOf(window);
        return children.empty() ? nullptr : children.front();
    }
    if (relation != GW_HWNDNEXT) {
        return nullptr;
    }
    const auto& all = AllWindows();
    auto next = std::find(all.begin(), all.end(), window);
    next = std::find_if(next + 1, all.end(), [found](HWND other) {
        const Window& candidate = *Find(other);
        return candidate.IsChild() == found->IsChild() &&
               (!found->IsChild() || candidate.parent == found->parent);
    });
    return next == all.end() ? nullptr : *next;
}

BOOL IsChild(HWND parent, HWND window) {
    for (const Window* found = Find(window); found != nullptr && found->IsChild();
         found = Find(found->parent)) {
        if (found->parent == parent) {
            return TRUE;
        }
    }
    return FALSE;
}

HWND GetDlgItem(HWND dialog, int identifier) {
    for (const HWND child : AllWindows()) {
        const Window& window = *Find(child);
        if (window.IsChild() && window.parent == dialog && window.identifier == identifier) {
            return child;
        }
    }
    return nullptr;
}

int GetDlgCtrlID(HWND window) {
    const Window* const found = Find(window);
    return found == nullptr ? 0 : static_cast<int>(found->identifier);
}

BOOL EnumThreadWindows(DWORD thread, WNDENUMPROC each, LPARAM lParam) {
    if (thread != GetCurrentThreadId() || !NeedDesktop()) {
        return FALSE;
    }
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        const Qt::WindowType type = widget->windowType();
        if (type == Qt::Window || type == Qt::Dialog || type == Qt::Tool) {
            Adopt(widget);
        }
    }
    // A copy: the calls may make and destroy windows.
    const std::vector<HWND> all(AllWindows().begin(), AllWindows().end());
    for (const HWND handle : all) {
        const Window* const window = Find(handle);
        if (window != nullptr && !window->IsChild() && each(handle, lParam) == 0) {
            return FALSE;
        }
    }
    return TRUE;
}

DWORD GetCurrentThreadId() {
    return static_cast<DWORD>(gettid());
}

int GetClassName(HWND window, LPSTR text, int capacity) {
    const Window* const found = Find(window);
    if (found == nullptr || capacity <= 0) {
        return 0;
    }
    const std::string_view name = found->windowClass->name;
    const std::size_t length = name.copy(text, static_cast<std::size_t>(capacity) - 1);
    text[length] = 0;
    return static_cast<int>(length);
}
