#include <QLabel>
#include <QStatusBar>
#include <algorithm>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/widgets.h>

namespace platen::win32 {
namespace {

constexpr std::size_t kMostParts = 256;

/// Part 0 is the bar's message, the others are labels at its right.
QString LabelName(std::size_t part) {
    return QStringLiteral("part %1").arg(part);
}

QLabel* LabelOf(QStatusBar& bar, std::size_t part) {
    const QString name = LabelName(part);
    if (auto* const label = bar.findChild<QLabel*>(name, Qt::FindDirectChildrenOnly)) {
        return label;
    }
    auto* const label = new QLabel(&bar);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    bar.addPermanentWidget(label);
    // The bar itself shows new widgets only while it has no message.
    label->show();
    return label;
}

bool SetPart(Window& window, QStatusBar& bar, std::size_t part, LPCSTR text) {
    if (part >= window.parts.size()) {
        if (!window.isHosts || part >= kMostParts) {
            return false;
        }
        window.parts.resize(part + 1);
    }
    window.parts[part] = text == nullptr ? "" : text;
    const QString shown = QString::fromStdString(window.parts[part]);
    if (part > 0) {
        LabelOf(bar, part)->setText(shown);
    } else if (shown.isEmpty()) {
        bar.clearMessage();
    } else {
        bar.showMessage(shown);
    }
    NoteWork();
    return true;
}

/// The host, or a menu's hints, may have changed the message meanwhile.
const std::string& PartText(Window& window, const QStatusBar& bar, std::size_t part) {
    static const std::string kNone;
    if (part >= window.parts.size()) {
        return kNone;
    }
    if (part == 0) {
        window.parts[0] = bar.currentMessage().toStdString();
    }
    return window.parts[part];
}

/// Parts are as wide as their right edges ask for; the last one takes what is left.
void SetParts(Window& window, QStatusBar& bar, std::size_t count, const int* edges) {
    window.parts.resize(count);
    for (std::size_t part = 1; part < count; ++part) {
        LabelOf(bar, part)->setMinimumWidth(std::max(edges[part] - edges[part - 1], 0));
    }
    for (std::size_t part = count; auto* const label = bar.findChild<QLabel*>(LabelName(part));
         ++part) {
        bar.removeWidget(label);
        delete label;
    }
}

/// A bar of its own lies along its parent's lower edge.
void PlaceAtEdge(HWND handle) {
    const Window* const window = Find(handle);
    RECT around{};
    if (window == nullptr || window->isHosts || GetClientRect(window->parent, &around) == 0) {
        return;
    }
    const int height = window->widget->sizeHint().height();
    SetWindowPos(handle, nullptr, 0, around.bottom - height, around.right, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

QWidget* MakeStatusBar(HWND handle, const Window& /*window*/, QWidget* parent) {
    auto* const bar = new Hosted<QStatusBar>(handle, parent);
    bar->setSizeGripEnabled(false);
    return bar;
}

LRESULT StatusBarProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* const window = Find(handle);
    auto* const bar =
        window == nullptr ? nullptr : qobject_cast<QStatusBar*>(window->widget.data());
    if (bar == nullptr) {
        return DefWindowProc(handle, message, wParam, lParam);
    }
    if (window->parts.empty()) {
        window->parts.emplace_back();
    }
    // Beside the part's number stands how its edge is drawn, which is Qt's affair.
    const std::size_t part = wParam & 0xFF;
    switch (message) {
        case WM_NCCREATE:
            SetPart(*window, *bar, 0, reinterpret_cast<const CREATESTRUCT*>(lParam)->lpszName);
            return TRUE;
        case WM_SETTEXT:
            return SetPart(*window, *bar, 0, reinterpret_cast<LPCSTR>(lParam));
        case SB_SETTEXT:
            return SetPart(*window, *bar, part, reinterpret_cast<LPCSTR>(lParam));
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH:
            window->text = PartText(*window, *bar, 0);
            return DefWindowProc(handle, message, wParam, lParam);
        case SB_GETTEXTLENGTH:
            return static_cast<LRESULT>(PartText(*window, *bar, part).size());
        case SB_GETTEXT: {
            const std::string& text = PartText(*window, *bar, part);
            text.copy(reinterpret_cast<char*>(lParam), text.size());
            reinterpret_cast<char*>(lParam)[text.size()] = 0;
            return static_cast<LRESULT>(text.size());
        }
        case SB_SETPARTS:
            if (wParam == 0 || wParam > kMostParts) {
                return FALSE;
            }
            SetParts(*window, *bar, wParam, reinterpret_cast<const int*>(lParam));
            return TRUE;
        case SB_GETPARTS:
            return static_cast<LRESULT>(window->parts.size());
        case WM_CREATE:
        case WM_SIZE:
            PlaceAtEdge(handle);
            return 0;
        default:
            return window->isHosts ? HostProcedure(handle, message, wParam, lParam)
                                   : ControlProcedure(handle, message, wParam, lParam);
    }
}

}  // namespace platen::win32
