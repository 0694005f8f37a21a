#include <platen/platform/win32/qt/device_context.h>

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <array>

#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/handle_table.h>
#include <platen/platform/win32/window.h>

namespace platen::win32 {
namespace {

HandleTable<HDC, DeviceContext>& Contexts() {
    static auto* const contexts = new HandleTable<HDC, DeviceContext>;
    return *contexts;
}

/// Stock objects are their numbers, out of the way of system colours and of null.
constexpr std::intptr_t kStock = 0x100;
constexpr int kStockObjects = DEFAULT_GUI_FONT + 1;

HGDIOBJ StockObject(int index) {
    return reinterpret_cast<HGDIOBJ>(kStock + index);
}

/// The number of a stock object, or -1.
int StockIndex(HGDIOBJ object) {
    const auto index = reinterpret_cast<std::intptr_t>(object) - kStock;
    return index >= 0 && index < kStockObjects ? static_cast<int>(index) : -1;
}

/// Invalid for NULL_BRUSH.
QColor StockBrushColor(int index) {
    static constexpr std::array<QRgb, 5> kColors = {0xFFFFFFFF, 0xFFC0C0C0, 0xFF808080, 0xFF404040,
                                                    0xFF000000};
    const auto place = static_cast<std::size_t>(index);
    return place < kColors.size() ? QColor::fromRgba(kColors[place]) : QColor();
}

COLORREF ColorRef(const QColor& color) {
    return RGB(color.red(), color.green(), color.blue());
}

void Fill(DeviceContext& context, const QRegion& region, const QColor& color) {
    QImage* const image = ImageOf(context);
    const QRegion clipped = region & context.clip;
    if (image == nullptr || clipped.isEmpty()) {
        return;
    }
    QPainter painter(image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& part : clipped) {
        painter.fillRect(part, color);
    }
    context.drawn += clipped;
}

}  // namespace

HDC NewContext(HWND window, const QRegion& clip) {
    auto context = std::make_unique<DeviceContext>();
    context->window = window;
    context->clip = clip;
    context->brush = StockObject(WHITE_BRUSH);
    context->pen = StockObject(BLACK_PEN);
    context->font = StockObject(SYSTEM_FONT);
    return Contexts().Add(std::move(context));
}

std::unique_ptr<DeviceContext> TakeContext(HDC context) {
    return Contexts().Take(context);
}

bool FillClip(HDC context, const QColor& color) {
    DeviceContext* const found = Contexts().Find(context);
    if (found != nullptr) {
        Fill(*found, found->clip, color);
    }
    return found != nullptr;
}

QColor SystemColor(int index) {
    const QPalette palette = NeedDesktop() ? QApplication::palette() : QPalette(Qt::lightGray);
    switch (index) {
        case COLOR_WINDOW:
            return palette.color(QPalette::Base);
        case COLOR_WINDOWTEXT:
            return palette.color(QPalette::WindowText);
        case COLOR_BTNFACE:
            return palette.color(QPalette::Window);
        default:
            return Qt::black;
    }
}

QColor ColorOfBrush(HBRUSH brush) {
    const int stock = StockIndex(brush);
    const auto number = static_cast<int>(reinterpret_cast<std::intptr_t>(brush));
    return stock >= 0 ? StockBrushColor(stock) : SystemColor(number - 1);
}

}  // namespace platen::win32

using namespace platen::win32;

HGDIOBJ GetStockObject(int index) {
    constexpr int kUnused = 9;
    return index >= 0 && index < kStockObjects && index != kUnused ? StockObject(index) : nullptr;
}

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) {
    DeviceContext* const found = Contexts().Find(context);
    const int stock = StockIndex(object);
    if (found == nullptr || stock < 0) {
        return nullptr;
    }
    if (stock <= NULL_BRUSH) {
        return std::exchange(found->brush, object);
    }
    return std::exchange(stock <= NULL_PEN ? found->pen : found->font, object);
}

BOOL DeleteObject(HGDIOBJ object) {
    return StockIndex(object) >= 0 ? TRUE : FALSE;
}

HDC CreateCompatibleDC(HDC /*context*/) {
    const HDC handle = NewContext(nullptr, QRect(0, 0, 1, 1));
    QImage& image = Contexts().Find(handle)->ownImage;
    image = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::black);
    return handle;
}

BOOL DeleteDC(HDC context) {
    return TakeContext(context) != nullptr ? TRUE : FALSE;
}

BOOL PatBlt(HDC context, int x, int y, int width, int height, DWORD operation) {
    DeviceContext* const found = Contexts().Find(context);
    if (found == nullptr) {
        return FALSE;
    }
    // A negative extent counts from the other edge.
    const QRect place = QRect(x, y, width, height).normalized();
    if (operation == PATCOPY) {
        const QColor color = StockBrushColor(StockIndex(found->brush));
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
    DeviceContext* const found = Contexts().Find(context);
    const QImage* const image =
        found == nullptr || !found->clip.contains(QPoint(x, y)) ? nullptr : ImageOf(*found);
    if (image == nullptr || !image->valid(x, y)) {
        return CLR_INVALID;
    }
    const QColor color = image->pixelColor(x, y);
    // Where nothing was drawn, the widget's own background is seen.
    return ColorRef(color.alpha() == 0 ? SystemColor(COLOR_BTNFACE) : color);
}

DWORD GetSysColor(int index) {
    return ColorRef(SystemColor(index));
}
