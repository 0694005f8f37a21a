#include <QFontMetricsF>
#include <algorithm>
#include <limits>
#include <numeric>

#include <platen/platform/win32/qt/device_font.h>

using namespace platen::win32;

namespace {

QString TextOf(LPCSTR text, int length) {
    return QString::fromUtf8(text, length);
}

/// Qt's own sum ends at 25 bits of pixels, and wraps.
int WidthOf(const DeviceFont& font, const QString& text) {
    constexpr double kWidest = 0x1FFFFFF;
    const QFontMetricsF metrics(font.font);
    const auto length = static_cast<double>(text.size());
    if (length * static_cast<double>(font.metrics.tmMaxCharWidth) < kWidest) {
        return qRound(metrics.horizontalAdvance(text));
    }
    const double width = std::accumulate(
        text.begin(), text.end(), 0.0,
        [&](double sum, QChar character) { return sum + metrics.horizontalAdvance(character); });
    return static_cast<int>(std::min<double>(width, std::numeric_limits<int>::max()));
}

/// Draws as if the text's upper left corner were the origin.
void DrawText(QPainter& painter, const DeviceContext& context, const DeviceFont& font,
              const QString& text) {
    if (context.backgroundMode == OPAQUE) {
        const QSize size(WidthOf(font, text), static_cast<int>(font.metrics.tmHeight));
        painter.fillRect(QRect(QPoint(), size), Qt::white);
    }
    const COLORREF color = context.textColor;
    painter.setPen(QColor(GetRValue(color), GetGValue(color), GetBValue(color)));
    painter.setFont(font.font);
    painter.drawText(QPointF(0, font.metrics.tmAscent), text);
}

/// Around a text that may be turned.
QRect Bounds(const QTransform& transform, const DeviceFont& font, const QString& text) {
    // Slanted and overhanging characters leave their cells.
    const int spare = static_cast<int>(font.metrics.tmHeight);
    const QRect cell(0, 0, WidthOf(font, text), static_cast<int>(font.metrics.tmHeight));
    return transform.mapRect(cell.adjusted(-spare, -spare, spare, spare));
}

}  // namespace

BOOL GetTextMetrics(HDC context, LPTEXTMETRIC metrics) {
    const DeviceContext* const found = FindContext(context);
    if (found == nullptr || metrics == nullptr) {
        return FALSE;
    }
    *metrics = SelectedFont(*found).metrics;
    const Mapping& mapping = found->mapping;
    for (LONG* const height : {&metrics->tmHeight, &metrics->tmAscent, &metrics->tmDescent,
                               &metrics->tmInternalLeading, &metrics->tmExternalLeading}) {
        *height = mapping.LogicalHeight(*height);
    }
    for (LONG* const width : {&metrics->tmAveCharWidth, &metrics->tmMaxCharWidth}) {
        *width = mapping.LogicalWidth(*width);
    }
    return TRUE;
}

BOOL GetTextExtentPoint32(HDC context, LPCSTR text, int length, LPSIZE size) {
    const DeviceContext* const found = FindContext(context);
    if (found == nullptr || text == nullptr || length < 0 || size == nullptr) {
        return FALSE;
    }
    const DeviceFont font = SelectedFont(*found);
    *size = {found->mapping.LogicalWidth(WidthOf(font, TextOf(text, length))),
             found->mapping.LogicalHeight(font.metrics.tmHeight)};
    return TRUE;
}

BOOL TextOut(HDC context, int x, int y, LPCSTR text, int length) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr || text == nullptr || length < 0) {
        return FALSE;
    }
    const DeviceFont font = SelectedFont(*found);
    const POINT place = DevicePoint(found->mapping, {x, y});
    QTransform transform = QTransform::fromTranslate(place.x, place.y);
    transform.rotate(-font.angle / 10.0);
    const QString string = TextOf(text, length);
    PaintOn(*found, Bounds(transform, font, string), [&](QPainter& painter, const QRegion&) {
        painter.setTransform(transform, true);
        DrawText(painter, *found, font, string);
    });
    return TRUE;
}

COLORREF SetTextColor(HDC context, COLORREF color) {
    DeviceContext* const found = FindContext(context);
    return found == nullptr ? CLR_INVALID : std::exchange(found->textColor, color);
}

int SetBkMode(HDC context, int mode) {
    DeviceContext* const found = FindContext(context);
    const bool isMode = mode == OPAQUE || mode == TRANSPARENT;
    return found == nullptr || !isMode ? 0 : std::exchange(found->backgroundMode, mode);
}
