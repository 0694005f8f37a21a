#include <platen/platform/win32/qt/window_record.h>

#include <algorithm>

#include <platen/platform/win32/qt/handle_table.h>

namespace platen::win32 {
namespace {

/// Never destroyed: widgets may be deleted after all static objects.
struct Tables {
    HandleTable<HWND, Window> windows;
    std::unordered_map<const QWidget*, HWND> byWidget;
    std::vector<HWND> order;
};

Tables& TheTables() {
    static auto* const tables = new Tables;
    return *tables;
}

}  // namespace

QSize Window::ClientSize() const {
    const QSize size = widget ? widget->size() : QSize();
    return (size - QSize(2 * border, 2 * border)).expandedTo(QSize(0, 0));
}

Window* Find(HWND handle) {
    return TheTables().windows.Find(handle);
}

HWND HandleOf(const QWidget* widget) {
    const auto& handles = TheTables().byWidget;
    const auto found = handles.find(widget);
    return found == handles.end() ? nullptr : found->second;
}

HWND NearestHandle(const QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (const HWND handle = HandleOf(widget)) {
            return handle;
        }
    }
    return nullptr;
}

const std::vector<HWND>& AllWindows() {
    return TheTables().order;
}

std::vector<HWND> ChildrenOf(HWND parent) {
    std::vector<HWND> children;
    std::ranges::copy_if(AllWindows(), std::back_inserter(children), [parent](HWND handle) {
        const Window& window = *Find(handle);
        return window.IsChild() && window.parent == parent;
    });
    return children;
}

HWND TopLevelOf(HWND handle) {
    const Window* window = Find(handle);
    while (window != nullptr && window->IsChild() && Find(window->parent) != nullptr) {
        window = Find(window->parent);
    }
    return window == nullptr ? nullptr : window->handle;
}

bool IsShownInParent(const Window& window) {
    return window.isHosts ? window.widget && !window.widget->isHidden()
                          : (window.style & WS_VISIBLE) != 0;
}

std::vector<HWND> GroupOf(HWND handle) {
    const Window* const window = Find(handle);
    std::vector<HWND> group;
    bool holds = false;
    for (const HWND sibling : ChildrenOf(window == nullptr ? nullptr : window->parent)) {
        if ((Find(sibling)->style & WS_GROUP) != 0) {
            if (holds) {
                break;
            }
            group.clear();
        }
        holds = holds || sibling == handle;
        group.push_back(sibling);
    }
    return group;
}

bool IsShown(HWND handle) {
    const Window* window = Find(handle);
    while (window != nullptr) {
        const bool shown = IsShownInParent(*window);
        if (!shown || !window->IsChild()) {
            return shown;
        }
        window = Find(window->parent);
    }
    return false;
}

bool IsUsable(HWND handle) {
    const Window* window = Find(handle);
    while (window != nullptr) {
        const bool usable = (window->style & WS_DISABLED) == 0;
        if (!usable || !window->IsChild()) {
            return usable;
        }
        window = Find(window->parent);
    }
    return false;
}

void MoveToFront(HWND handle) {
    auto& order = TheTables().order;
    const auto found = std::ranges::find(order, handle);
    std::rotate(order.begin(), found, found == order.end() ? found : found + 1);
}

Window* AddWindow(std::unique_ptr<Window> window) {
    Tables& tables = TheTables();
    Window* const added = window.get();
    added->handle = tables.windows.Add(std::move(window));
    const auto place = added->IsChild() ? tables.order.end() : tables.order.begin();
    tables.order.insert(place, added->handle);
    return added;
}

void SetWidget(Window& window, QWidget* widget) {
    window.widget = widget;
    TheTables().byWidget[widget] = window.handle;
}

void ForgetWindow(HWND handle) {
    Tables& tables = TheTables();
    std::erase(tables.order, handle);
    std::erase_if(tables.byWidget, [handle](const auto& entry) { return entry.second == handle; });
    tables.windows.Take(handle);
}

}  // namespace platen::win32
