#include <algorithm>
#include <limits>
#include <utility>

#include <platen/platform/win32/qt/device_context.h>
#include <platen/platform/win32/window.h>

namespace platen::win32 {
namespace {

void Fill(DeviceContext& context, const QRegion& region, const QColor& color) {
    PaintOn(context, region, [&color](QPainter& painter, const QRegion& clipped) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        for (const QRect& part : clipped) {
            painter.fillRect(part, color);
        }
    });
}

/// The pixels from `first` to just before `last`; the other way round, those behind `last` up to
/// and with `first`.
void Order(LONG& first, LONG& last) {
    if (first > last) {
        first = std::exchange(last, first + 1) + 1;
    }
}

QRect DeviceRect(const Mapping& mapping, POINT from, POINT to) {
    from = DevicePoint(mapping, from);
    to = DevicePoint(mapping, to);
    Order(from.x, to.x);
    Order(from.y, to.y);
    return {QPoint(from.x, from.y), QPoint(to.x - 1, to.y - 1)};
}

LONG Sum(int first, int second) {
    constexpr std::int64_t kLargest = std::numeric_limits<LONG>::max();
    constexpr std::int64_t kSmallest = std::numeric_limits<LONG>::min();
    return static_cast<LONG>(std::clamp(std::int64_t{first} + second, kSmallest, kLargest));
}

}  // namespace

POINT DevicePoint(const Mapping& mapping, POINT point) {
    constexpr LONG kFar = 1 << 24;
    const POINT device = mapping.ToDevice(point);
    return {std::clamp<LONG>(device.x, -kFar, kFar), std::clamp<LONG>(device.y, -kFar, kFar)};
}

bool FillClip(HDC context, const QColor& color) {
    DeviceContext* const found = FindContext(context);
    if (found != nullptr) {
        Fill(*found, found->clip, color);
    }
    return found != nullptr;
}

}  // namespace platen::win32

using namespace platen::win32;

BOOL PatBlt(HDC context, int x, int y, int width, int height, DWORD operation) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr) {
        return FALSE;
    }
    const QRect place = DeviceRect(found->mapping, {x, y}, {Sum(x, width), Sum(y, height)});
    if (operation == PATCOPY) {
        const QColor color = StockBrushColor(found->brush);
        if (color.isValid()) {
            Fill(*found, place, color);
        }
        return TRUE;
    }
    if (operation == BLACKNESS || operation == WHITENESS) {
        Fill(*found, place, operation == BLACKNESS ? Qt::black : Qt::white);
        return TRUE;
    }
    return FALSE;
}

COLORREF GetPixel(HDC context, int x, int y) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr) {
        return CLR_INVALID;
    }
    const POINT device = DevicePoint(found->mapping, {x, y});
    const QPoint place(device.x, device.y);
    const QImage* const image = found->clip.contains(place) ? ImageOf(*found) : nullptr;
    if (image == nullptr || !image->valid(place)) {
        return CLR_INVALID;
    }
    const QColor color = image->pixelColor(place);
    // Where nothing was drawn, the widget's own background is seen.
    return ColorRef(color.alpha() == 0 ? SystemColor(COLOR_BTNFACE) : color);
}
