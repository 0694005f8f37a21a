#include <platen/ui/log_font.h>

namespace {

constexpr int kTenthsOfPointPerInch = 720;

const char* StyleName(const LOGFONT& font) {
    const bool bold = font.lfWeight > FW_NORMAL;
    if (font.lfItalic != 0) {
        return bold ? "Bold Italic" : "Italic";
    }
    return bold ? "Bold" : "Regular";
}

}  // namespace

int CLogFont::bEdit(CWnd* parent, unsigned long flags) {
    CDC screen;
    screen.Attach(CreateCompatibleDC(nullptr));
    lfHeight = static_cast<LONG>(std::int64_t{screen.GetDeviceCaps(LOGPIXELSY)} * m_iPointSize /
                                 kTenthsOfPointPerInch);

    CFontDialog dialog(this, static_cast<DWORD>(flags), nullptr, parent);
    dialog.m_cf.rgbColors = m_crColor;
    dialog.m_cf.Flags |= CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_EFFECTS;
    dialog.m_cf.Flags &= ~static_cast<DWORD>(CF_SHOWHELP);
    dialog.SetStyleName(StyleName(*this));
    if (dialog.DoModal() != IDOK) {
        return 0;
    }
    m_crColor = dialog.m_cf.rgbColors;
    m_iPointSize = dialog.m_cf.iPointSize;
    lfHeight = m_iPointSize / 10;
    return 1;
}
