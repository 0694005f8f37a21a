#pragma once

#include <QColor>
#include <QImage>
#include <memory>
#include <variant>

#include <platen/platform/win32/gdi.h>
#include <platen/platform/win32/logical_font.h>

namespace platen::win32 {

/// A font or a bitmap that was made.
struct GraphicsObject {
    std::variant<LOGFONT, QImage> content;
    HDC holder = nullptr;  ///< a bitmap's: the context that it is selected for
};

/// The bitmap that a memory context has at first, in a gap of the stock objects' numbers.
inline constexpr int kOwnBitmap = 9;

HGDIOBJ StockObject(int index);
/// The number of a stock object, or -1.
int StockIndex(HGDIOBJ object);
/// The colour of a stock brush; invalid for NULL_BRUSH and for what is none.
QColor StockBrushColor(HGDIOBJ brush);

/// What was made and not deleted, or null.
GraphicsObject* FindGraphicsObject(HGDIOBJ object);

/// A class's background: a brush, or a system colour's number plus one.
QColor ColorOfBrush(HBRUSH brush);
/// A system colour.
QColor SystemColor(int index);
COLORREF ColorRef(const QColor& color);

}  // namespace platen::win32
