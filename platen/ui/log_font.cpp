#include <platen/ui/log_font.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <tuple>

namespace {

constexpr int kUnitsPerInch = 1440;

/// The absolute value of a size; the one that has none counts as the largest.
std::int32_t SizeWithoutSign(int size) {
    return size < 0 ? -std::max(size, -INT32_MAX) : size;
}

/// How many bytes of a name fit into `limit` without cutting a character (UTF-8) in two.
std::size_t FittingLength(const char* name, std::size_t limit) {
    std::size_t length = std::strlen(name);
    if (length <= limit) {
        return length;
    }
    length = limit;
    while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) {
        --length;
    }
    return length;
}

/// A device context's mapping, put back when the object ends.
class SavedMapping {
  public:
    /// Notes the mapping and switches to one of 1440 units an inch.
    explicit SavedMapping(CDC& context)
        : m_context(context),
          m_saved(context.SaveDC()),
          m_mode(context.SetMapMode(MM_ANISOTROPIC)),
          m_windowExt(context.SetWindowExt(kUnitsPerInch, kUnitsPerInch)),
          m_viewportExt(context.SetViewportExt(context.GetDeviceCaps(LOGPIXELSX),
                                               context.GetDeviceCaps(LOGPIXELSY))) {
        context.SetWindowOrg(0, 0);
        context.SetViewportOrg(0, 0);
    }

    /// Setting the values again one by one would not do: in MM_ISOTROPIC each changes the others.
    ~SavedMapping() { m_context.RestoreDC(m_saved); }

    SavedMapping(const SavedMapping&) = delete;
    SavedMapping& operator=(const SavedMapping&) = delete;

    /// Device units in the units of the noted mapping, whose axes count as pointing down and right.
    LONG ToNotedUnits(LONG deviceUnits) {
        m_context.SetMapMode(m_mode);
        SetExtents(WithoutSign(m_windowExt), WithoutSign(m_viewportExt));
        POINT point = {0, deviceUnits};
        m_context.DPtoLP(&point);
        return point.y;
    }

  private:
    static CSize WithoutSign(const CSize& size) {
        const auto withoutSign = [](LONG extent) {
            return static_cast<int>(std::abs(std::max<LONG>(extent, -INT32_MAX)));
        };
        return {withoutSign(size.cx), withoutSign(size.cy)};
    }

    void SetExtents(const CSize& window, const CSize& viewport) {
        m_context.SetWindowExt(window.cx, window.cy);
        m_context.SetViewportExt(viewport.cx, viewport.cy);
    }

    CDC& m_context;
    int m_saved;
    int m_mode;
    CSize m_windowExt;
    CSize m_viewportExt;
};

}  // namespace

CLogFont::CLogFont() : CLogFont(100, "Arial", 0) {}

CLogFont::CLogFont(int pointSize, int escapement, int orientation, int weight, std::uint8_t italic,
                   std::uint8_t underline, std::uint8_t strikeOut, std::uint8_t charSet,
                   std::uint8_t outPrecision, std::uint8_t clipPrecision, std::uint8_t quality,
                   std::uint8_t pitchAndFamily, const char* faceName)
    : LOGFONT{},
      m_crColor(GetSysColor(COLOR_WINDOWTEXT)),
      m_iPointSize(SizeWithoutSign(pointSize)) {
    lfEscapement = escapement;
    lfOrientation = orientation;
    lfWeight = weight;
    lfItalic = italic;
    lfUnderline = underline;
    lfStrikeOut = strikeOut;
    lfCharSet = charSet;
    lfOutPrecision = outPrecision;
    lfClipPrecision = clipPrecision;
    lfQuality = quality;
    lfPitchAndFamily = pitchAndFamily;
    SetFaceName(faceName);
}

CLogFont::CLogFont(int pointSize, const char* faceName, std::uint8_t pitchAndFamily)
    : CLogFont(pointSize, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, pitchAndFamily, faceName) {}

CLogFont::CLogFont(const LOGFONT& font)
    : LOGFONT(font), m_crColor(GetSysColor(COLOR_WINDOWTEXT)), m_iPointSize(0) {}

void CLogFont::operator=(const CLogFont* other) {  // NOLINT: assigns from a pointer
    if (other != nullptr) {
        *this = *other;
    }
}

int CLogFont::operator==(const CLogFont& other) const {
    const auto fields = [](const CLogFont& font) {
        return std::make_tuple(font.m_crColor, font.m_iPointSize, font.lfHeight, font.lfWidth,
                               font.lfEscapement, font.lfOrientation, font.lfWeight, font.lfItalic,
                               font.lfUnderline, font.lfStrikeOut, font.lfCharSet,
                               font.lfOutPrecision, font.lfClipPrecision, font.lfQuality,
                               font.lfPitchAndFamily);
    };
    const bool sameName = std::strncmp(lfFaceName, other.lfFaceName, sizeof(lfFaceName)) == 0;
    return fields(*this) == fields(other) && sameName ? 1 : 0;
}

int CLogFont::operator!=(const CLogFont& other) const {
    return *this == other ? 0 : 1;
}

void CLogFont::SetFaceName(const char* name) {
    const char* text = name == nullptr ? "" : name;
    std::memcpy(lfFaceName, text, FittingLength(text, sizeof(lfFaceName) - 1));
}

void CLogFont::AskForStoredSize() {
    // Twice the tenths of a point are units of the measuring mapping.
    const std::int64_t units =
        std::min<std::int64_t>(std::abs(std::int64_t{m_iPointSize} * 2), INT32_MAX);
    lfHeight = static_cast<LONG>(-units);
    lfWidth = 0;
}

/// The character height, in device units, of a font of this record in the measuring mapping.
LONG CLogFont::MeasuredHeight(CDC& context) const {
    CFont font;
    font.Attach(CreateFontIndirect(this));
    CFont* before = context.SelectObject(&font);
    TEXTMETRIC metrics = {};
    context.GetTextMetrics(&metrics);
    context.SelectObject(before);
    POINT point = {0, metrics.tmHeight - metrics.tmInternalLeading};
    context.LPtoDP(&point);
    return point.y;
}

void CLogFont::vMap(CDC& context) {
    AskForStoredSize();
    SavedMapping mapping(context);
    lfHeight = -std::abs(mapping.ToNotedUnits(MeasuredHeight(context)));
    lfWidth = 0;
}

void CLogFont::vMap() {
    CDC display;
    display.Attach(CreateDC("DISPLAY", nullptr, nullptr, nullptr));
    AskForStoredSize();
    const SavedMapping mapping(display);
    lfHeight = -std::abs(MeasuredHeight(display));
    lfWidth = 0;
}
