#include "examples/inspector/text_font.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <platen/platform/win32/qt_window.h>

namespace inspector {
namespace {

/// The system's font of fixed width, with the size in tenths of a point.
CLogFont FixedFont() {
    const QFontInfo font(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    return {static_cast<int>(font.pointSizeF() * 10), font.family().toUtf8().constData(),
            FIXED_PITCH};
}

}  // namespace

TextFont::TextFont() : m_font(FixedFont()) {}

bool TextFont::Edit(QWidget& parent) {
    CWnd* window = CWnd::FromHandle(PlatenWindowOfWidget(&parent));
    return m_font.bEdit(window, 0) != 0;
}

QFont TextFont::Font() const {
    QFont font(QString::fromUtf8(m_font.lfFaceName));
    font.setPointSizeF(m_font.m_iPointSize / 10.0);
    font.setWeight(static_cast<QFont::Weight>(m_font.lfWeight));
    font.setItalic(m_font.lfItalic != 0);
    font.setUnderline(m_font.lfUnderline != 0);
    font.setStrikeOut(m_font.lfStrikeOut != 0);
    font.setStyleHint(QFont::Monospace);
    return font;
}

QColor TextFont::Color() const {
    const COLORREF color = m_font.m_crColor;
    return {static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
            static_cast<int>(color >> 16 & 0xFF)};
}

}  // namespace inspector
