#include <platen/platform/win32/qt/dialog_items.h>

#include <QLineEdit>
#include <QPushButton>
#include <algorithm>

#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

bool TakesFocus(HWND handle) {
    const Window& window = *Find(handle);
    const bool isText = window.windowClass->name == "STATIC";
    return !isText && IsShownInParent(window) && (window.style & WS_DISABLED) == 0;
}

/// Items in a frame of their own count as the dialog's.
void CollectTabItems(HWND parent, std::vector<HWND>& items) {
    for (const HWND child : ChildrenOf(parent)) {
        const Window& window = *Find(child);
        if ((window.exStyle & WS_EX_CONTROLPARENT) != 0) {
            if (IsShownInParent(window) && (window.style & WS_DISABLED) == 0) {
                CollectTabItems(child, items);
            }
        } else if ((window.style & WS_TABSTOP) != 0 && TakesFocus(child)) {
            items.push_back(child);
        }
    }
}

HWND Neighbour(const std::vector<HWND>& items, HWND item, bool previous) {
    if (items.empty()) {
        return nullptr;
    }
    const auto count = static_cast<std::ptrdiff_t>(items.size());
    const auto place = std::ranges::find(items, item) - items.begin();
    if (place == count) {
        return previous ? items.back() : items.front();
    }
    return items[static_cast<std::size_t>((place + (previous ? count - 1 : 1)) % count)];
}

}  // namespace

HWND NextTabItem(HWND dialog, HWND item, bool previous) {
    std::vector<HWND> items;
    CollectTabItems(dialog, items);
    return Neighbour(items, item, previous);
}

HWND NextGroupItem(HWND item, bool previous) {
    std::vector<HWND> group;
    for (const HWND member : GroupOf(item)) {
        if (TakesFocus(member)) {
            group.push_back(member);
        }
    }
    return Neighbour(group, item, previous);
}

void FocusItem(HWND item) {
    SetFocus(item);
    const Window* const window = Find(item);
    auto* const line =
        window == nullptr ? nullptr : qobject_cast<QLineEdit*>(window->widget.data());
    if (line != nullptr) {
        line->selectAll();
    }
}

bool IsPushButton(HWND item) {
    const Window* const window = Find(item);
    return window != nullptr && qobject_cast<QPushButton*>(window->widget.data()) != nullptr;
}

}  // namespace platen::win32
