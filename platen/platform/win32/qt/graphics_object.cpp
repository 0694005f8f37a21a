#include <platen/platform/win32/qt/graphics_object.h>

#include <QApplication>
#include <QPalette>
#include <array>

#include <platen/platform/win32/device.h>
#include <platen/platform/win32/font.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/handle_table.h>
#include <platen/platform/win32/window.h>

namespace platen::win32 {
namespace {

HandleTable<HGDIOBJ, GraphicsObject>& Objects() {
    static auto* const objects = new HandleTable<HGDIOBJ, GraphicsObject>;
    return *objects;
}

/// Stock objects are their numbers, out of the way of system colours and of null.
constexpr std::intptr_t kStock = 0x100;
constexpr int kStockObjects = DEFAULT_GUI_FONT + 1;

template <class Content>
HGDIOBJ AddObject(const Content& content) {
    auto object = std::make_unique<GraphicsObject>();
    object->content = content;
    return Objects().Add(std::move(object));
}

}  // namespace

HGDIOBJ StockObject(int index) {
    return reinterpret_cast<HGDIOBJ>(kStock + index);
}

int StockIndex(HGDIOBJ object) {
    const auto index = reinterpret_cast<std::intptr_t>(object) - kStock;
    return index >= 0 && index < kStockObjects ? static_cast<int>(index) : -1;
}

QColor StockBrushColor(HGDIOBJ brush) {
    static constexpr std::array<QRgb, 5> kColors = {0xFFFFFFFF, 0xFFC0C0C0, 0xFF808080, 0xFF404040,
                                                    0xFF000000};
    const auto place = static_cast<std::size_t>(StockIndex(brush));
    return place < kColors.size() ? QColor::fromRgba(kColors[place]) : QColor();
}

GraphicsObject* FindGraphicsObject(HGDIOBJ object) {
    return Objects().Find(object);
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
    const auto number = static_cast<int>(reinterpret_cast<std::intptr_t>(brush));
    return StockIndex(brush) >= 0 ? StockBrushColor(brush) : SystemColor(number - 1);
}

COLORREF ColorRef(const QColor& color) {
    return RGB(color.red(), color.green(), color.blue());
}

}  // namespace platen::win32

using namespace platen::win32;

HGDIOBJ GetStockObject(int index) {
    const bool isOne = index >= 0 && index < kStockObjects && index != kOwnBitmap;
    return isOne ? StockObject(index) : nullptr;
}

DWORD GetObjectType(HGDIOBJ object) {
    const GraphicsObject* const made = Objects().Find(object);
    if (made != nullptr) {
        return std::holds_alternative<LOGFONT>(made->content) ? OBJ_FONT : OBJ_BITMAP;
    }
    const int stock = StockIndex(object);
    if (stock < 0) {
        return 0;
    }
    if (stock == kOwnBitmap) {
        return OBJ_BITMAP;
    }
    return stock <= NULL_BRUSH ? OBJ_BRUSH : stock <= NULL_PEN ? OBJ_PEN : OBJ_FONT;
}

HFONT CreateFontIndirect(const LOGFONT* font) {
    return font == nullptr ? nullptr : static_cast<HFONT>(AddObject(*font));
}

HBITMAP CreateCompatibleBitmap(HDC /*context*/, int width, int height) {
    if (width < 1 || height < 1) {
        return nullptr;
    }
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return nullptr;
    }
    image.fill(Qt::black);
    return static_cast<HBITMAP>(AddObject(image));
}

BOOL DeleteObject(HGDIOBJ object) {
    if (StockIndex(object) >= 0) {
        return TRUE;
    }
    const GraphicsObject* const found = Objects().Find(object);
    if (found == nullptr || found->holder != nullptr) {
        return FALSE;
    }
    return Objects().Take(object) != nullptr ? TRUE : FALSE;
}

DWORD GetSysColor(int index) {
    return ColorRef(SystemColor(index));
}
