#include "examples/inspector/text_font.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <platen/platform/win32/qt_window.h>
#include <platen/ui/modal_dialogs.h>

namespace inspector {
namespace {

constexpr int kTenthsOfPointPerInch = 720;

}  // namespace

TextFont::TextFont() : m_color(GetSysColor(COLOR_WINDOWTEXT)) {
    const QFontInfo font(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_size = static_cast<int>(font.pointSizeF() * 10);
    m_font.lfWeight = FW_NORMAL;
    m_font.lfPitchAndFamily = FIXED_PITCH;
    qstrncpy(m_font.lfFaceName, font.family().toUtf8().constData(), LF_FACESIZE);
}

bool TextFont::Edit(QWidget& parent) {
    m_font.lfHeight = -(parent.logicalDpiY() * m_size / kTenthsOfPointPerInch);
    LOGFONT chosen = m_font;
    CXFontDlg dialog(&chosen, CF_EFFECTS | CF_SCREENFONTS, nullptr,
                     CWnd::FromHandle(PlatenWindowOfWidget(&parent)));
    dialog.m_cf.rgbColors = m_color;
    if (dialog.DoModal() != IDOK) {
        return false;
    }
    m_font = chosen;
    m_size = dialog.GetSize();
    m_color = dialog.GetColor();
    return true;
}

QFont TextFont::Font() const {
    QFont font(QString::fromUtf8(m_font.lfFaceName));
    font.setPointSizeF(m_size / 10.0);
    font.setWeight(static_cast<QFont::Weight>(m_font.lfWeight));
    font.setItalic(m_font.lfItalic != 0);
    font.setUnderline(m_font.lfUnderline != 0);
    font.setStrikeOut(m_font.lfStrikeOut != 0);
    font.setStyleHint(QFont::Monospace);
    return font;
}

QColor TextFont::Color() const {
    return {static_cast<int>(m_color & 0xFF), static_cast<int>(m_color >> 8 & 0xFF),
            static_cast<int>(m_color >> 16 & 0xFF)};
}

}  // namespace inspector
