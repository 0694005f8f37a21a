#include <platen/platform/win32/qt/painting.h>

#include <QAbstractScrollArea>
#include <QPainter>
#include <algorithm>

#include <platen/platform/win32/device.h>
#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/device_context.h>
#include <platen/platform/win32/qt/widgets.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

/// The windows with something invalid, so that a look for messages need not ask them all.
std::vector<HWND>& InvalidWindows() {
    static auto* const windows = new std::vector<HWND>;
    return *windows;
}

QRect ClientRect(const Window& window) {
    return {QPoint(), window.ClientSize()};
}

/// The window's picture at its client area's size, transparent where nothing has been drawn yet.
QImage& PictureOf(Window& window) {
    const QSize size = window.ClientSize().expandedTo(QSize(1, 1));
    if (window.picture.size() != size) {
        QImage fresh(size, QImage::Format_ARGB32_Premultiplied);
        fresh.fill(Qt::transparent);
        QPainter(&fresh).drawImage(0, 0, window.picture);
        window.picture = fresh;
    }
    return window.picture;
}

/// What was drawn shows at once: Qt's own time for it may be long in coming.
void ShowDrawn(const Window& window, const QRegion& drawn) {
    if (window.widget && !drawn.isEmpty()) {
        window.widget->repaint(drawn.translated(window.border, window.border));
    }
}

void Invalidate(HWND handle, const RECT* rectangle, bool erase) {
    Window* const window = Find(handle);
    if (window == nullptr || !IsShown(handle)) {
        return;
    }
    QRect place = ClientRect(*window);
    if (rectangle != nullptr) {
        place &= QRect(QPoint(rectangle->left, rectangle->top),
                       QPoint(rectangle->right - 1, rectangle->bottom - 1));
    }
    if (place.isEmpty()) {
        return;
    }
    if (window->invalid.isEmpty()) {
        InvalidWindows().push_back(handle);
    }
    window->invalid += place;
    window->erase = window->erase || erase;
}

}  // namespace

void PaintPicture(HWND handle, QWidget& widget) {
    const Window* const window = Find(handle);
    // A field of several lines scrolls, and has no picture to scroll with it.
    const bool scrolls = qobject_cast<QAbstractScrollArea*>(&widget) != nullptr;
    if (window != nullptr && !window->picture.isNull() && !scrolls) {
        QPainter(&widget).drawImage(window->border, window->border, window->picture);
    }
}

HWND NextToPaint(const MessageFilter& filter) {
    const auto waits = [&filter](HWND handle) {
        const Window* const window = Find(handle);
        return window != nullptr && !window->invalid.isEmpty() && filter.Fits(handle, WM_PAINT) &&
               IsShown(handle);
    };
    const auto& invalid = InvalidWindows();
    const auto found = std::ranges::find_if(invalid, waits);
    if (found == invalid.end()) {
        return nullptr;
    }
    HWND outermost = *found;
    for (const Window* window = Find(outermost); window != nullptr; window = Find(window->parent)) {
        outermost = waits(window->handle) ? window->handle : outermost;
        if (!window->IsChild()) {
            break;
        }
    }
    return outermost;
}

void DropInvalid(HWND handle) {
    std::erase(InvalidWindows(), handle);
    if (Window* const window = Find(handle)) {
        window->invalid = QRegion();
        window->erase = false;
    }
}

void ResizePicture(Window& window, QSize before) {
    const QRect client = ClientRect(window);
    const bool redrawsAll = (window.windowClass->style & (CS_HREDRAW | CS_VREDRAW)) != 0;
    const QRegion fresh = redrawsAll ? QRegion(client) : QRegion(client) - QRect(QPoint(), before);
    for (const QRect& part : fresh) {
        const RECT place{part.x(), part.y(), part.right() + 1, part.bottom() + 1};
        Invalidate(window.handle, &place, true);
    }
    if (!window.picture.isNull()) {
        PictureOf(window);
    }
}

QImage* ImageOf(DeviceContext& context) {
    if (context.window == nullptr) {
        return context.MemoryImage();
    }
    Window* const window = Find(context.window);
    return window == nullptr ? nullptr : &PictureOf(*window);
}

bool EraseBackground(HDC context, HBRUSH background) {
    return background != nullptr && FillClip(context, ColorOfBrush(background));
}

void ClearPicture(HDC context) {
    const DeviceContext* const found = FindContext(context);
    const Window* const window = found == nullptr ? nullptr : Find(found->window);
    if (window != nullptr && !window->picture.isNull()) {
        FillClip(context, Qt::transparent);
    }
}

}  // namespace platen::win32

using namespace platen::win32;

BOOL InvalidateRect(HWND window, const RECT* rectangle, BOOL erase) {
    if (window == nullptr) {
        for (const HWND handle : AllWindows()) {
            Invalidate(handle, nullptr, true);
        }
        return TRUE;
    }
    Invalidate(window, rectangle, erase != 0);
    return IsWindow(window);
}

HDC BeginPaint(HWND handle, LPPAINTSTRUCT paint) {
    Window* const window = Find(handle);
    *paint = {};
    if (window == nullptr) {
        return nullptr;
    }
    const QRegion clip = window->invalid;
    const bool erase = window->erase;
    DropInvalid(handle);
    const QRect bounds = clip.boundingRect();
    paint->rcPaint = {bounds.x(), bounds.y(), bounds.x() + bounds.width(),
                      bounds.y() + bounds.height()};
    paint->hdc = NewContext(handle, clip);
    if (erase) {
        const auto context = reinterpret_cast<WPARAM>(paint->hdc);
        paint->fErase = SendMessage(handle, WM_ERASEBKGND, context, 0) == 0 ? TRUE : FALSE;
    }
    return paint->hdc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT* paint) {
    return ReleaseDC(window, paint->hdc) != 0 ? TRUE : FALSE;
}

HDC GetDC(HWND handle) {
    const Window* const window = Find(handle);
    if (window == nullptr) {
        return handle == nullptr ? CreateDC("DISPLAY", nullptr, nullptr, nullptr) : nullptr;
    }
    return NewContext(handle, ClientRect(*window));
}

int ReleaseDC(HWND /*window*/, HDC context) {
    const auto ended = TakeContext(context);
    if (ended == nullptr) {
        return 0;
    }
    if (const Window* const window = Find(ended->window)) {
        ShowDrawn(*window, ended->drawn);
    }
    NoteWork();
    return 1;
}
