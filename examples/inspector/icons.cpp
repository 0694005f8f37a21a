#include "examples/inspector/icons.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace inspector {
namespace {

/// Icons are drawn on a field of 24 units.
constexpr int kField = 24;
constexpr int kPixels = 96;

void DrawLens(QPainter& painter, bool plus) {
    painter.drawEllipse(QRectF(3, 3, 13, 13));
    painter.drawLine(QPointF(14.5, 14.5), QPointF(20.5, 20.5));
    painter.drawLine(QPointF(6.5, 9.5), QPointF(12.5, 9.5));
    if (plus) {
        painter.drawLine(QPointF(9.5, 6.5), QPointF(9.5, 12.5));
    }
}

/// A frame, and an arrow into each corner.
void DrawFit(QPainter& painter) {
    for (int corner = 0; corner < 4; ++corner) {
        painter.save();
        painter.translate(kField / 2.0, kField / 2.0);
        painter.rotate(90 * corner);
        painter.drawPolyline(QPolygonF({{3, -8.5}, {8.5, -8.5}, {8.5, -3}}));
        painter.drawLine(QPointF(3, -3), QPointF(7.5, -7.5));
        painter.restore();
    }
}

void DrawActualSize(QPainter& painter) {
    QFont font = painter.font();
    font.setPixelSize(12);
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(QRect(0, 0, kField, kField), Qt::AlignCenter, "1:1");
}

void DrawPrinter(QPainter& painter) {
    painter.drawRect(QRectF(6.5, 3, 11, 6));
    painter.drawRoundedRect(QRectF(3, 9, 18, 8), 1.5, 1.5);
    painter.setBrush(QApplication::palette().window());
    painter.drawRect(QRectF(6.5, 14, 11, 7));
}

void DrawContrast(QPainter& painter, const QColor& color) {
    QPainterPath half(QPointF(12, 4));
    half.arcTo(QRectF(4, 4, 16, 16), 90, -180);
    half.closeSubpath();
    painter.fillPath(half, color);
    painter.drawEllipse(QRectF(4, 4, 16, 16));
}

void DrawColorTable(QPainter& painter) {
    constexpr QRgb kColors[] = {0xFF4145AB, 0xFF1BCFD4, 0xFF61FC6C, 0xFFF3C63A, 0xFFD93806};
    double top = 19;
    for (const QRgb color : kColors) {
        top -= 3.2;
        painter.fillRect(QRectF(5, top, 14, 3.2), QColor(color));
    }
    painter.drawRect(QRectF(5, top, 14, 16));
}

}  // namespace

QIcon SignIcon(Sign sign) {
    QPixmap pixmap(kPixels, kPixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<double>(kPixels) / kField, static_cast<double>(kPixels) / kField);
    const QColor color = QApplication::palette().color(QPalette::ButtonText);
    painter.setPen(QPen(color, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    switch (sign) {
        case Sign::ZoomIn:
        case Sign::ZoomOut:
            DrawLens(painter, sign == Sign::ZoomIn);
            break;
        case Sign::Fit:
            DrawFit(painter);
            break;
        case Sign::ActualSize:
            DrawActualSize(painter);
            break;
        case Sign::Print:
            DrawPrinter(painter);
            break;
        case Sign::Contrast:
            DrawContrast(painter, color);
            break;
        case Sign::ColorTable:
            DrawColorTable(painter);
            break;
    }
    painter.end();
    return pixmap;
}

}  // namespace inspector
