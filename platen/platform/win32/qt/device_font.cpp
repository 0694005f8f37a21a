#include <platen/platform/win32/qt/device_font.h>

#include <QApplication>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QRawFont>
#include <algorithm>
#include <cmath>
#include <optional>

#include <platen/platform/win32/qt/desktop.h>

namespace platen::win32 {
namespace {

/// The height of a line where none is asked for, at 96 pixels an inch.
constexpr LONG kUsualLine = 16;
/// What FreeType can still draw.
constexpr LONG kLargestSize = 0xFFFF;

/// A face's measures, in parts of its size.
struct FaceMeasures {
    double ascent = 0;
    double descent = 0;
    double externalLeading = 0;
    double averageWidth = 0;
    double maximalWidth = 0;
};

/// A 16-bit number of a font's table, at a place.
std::optional<int> Number(const QByteArray& table, int place, bool hasSign) {
    if (table.size() < place + 2) {
        return std::nullopt;
    }
    const int value =
        static_cast<quint8>(table[place]) << 8 | static_cast<quint8>(table[place + 1]);
    return hasSign ? static_cast<qint16>(value) : value;
}

/// As the tables of a TrueType font tell them, which Qt's own metrics are not always taken from;
/// nothing for other fonts.
std::optional<FaceMeasures> MeasuresOfTables(const QRawFont& face) {
    const QByteArray os2 = face.fontTable("OS/2");
    const QByteArray horizontal = face.fontTable("hhea");
    const QByteArray head = face.fontTable("head");
    const auto average = Number(os2, 2, true);
    const auto ascent = Number(os2, 74, false);
    const auto descent = Number(os2, 76, false);
    const auto designedAscent = Number(horizontal, 4, true);
    const auto designedDescent = Number(horizontal, 6, true);
    const auto lineGap = Number(horizontal, 8, true);
    const auto left = Number(head, 36, true);
    const auto right = Number(head, 40, true);
    const double size = face.unitsPerEm();
    if (!average || !descent || !lineGap || !right || size <= 0 || *ascent + *descent == 0) {
        return std::nullopt;
    }
    const int gap = *lineGap - (*ascent + *descent - (*designedAscent - *designedDescent));
    return FaceMeasures{*ascent / size, *descent / size, std::max(gap, 0) / size, *average / size,
                        (*right - *left) / size};
}

FaceMeasures Measure(QFont font) {
    constexpr int kSample = 1000;
    font.setPixelSize(kSample);
    if (const auto measures = MeasuresOfTables(QRawFont::fromFont(font))) {
        return *measures;
    }
    const QFontMetricsF metrics(font);
    return {metrics.ascent() / kSample, metrics.descent() / kSample, metrics.leading() / kSample,
            metrics.averageCharWidth() / kSample, metrics.maxWidth() / kSample};
}

QFont::StyleHint StyleHint(BYTE pitchAndFamily) {
    switch (pitchAndFamily & 0xF0) {
        case FF_ROMAN:
            return QFont::Serif;
        case FF_SWISS:
            return QFont::SansSerif;
        case FF_MODERN:
            return QFont::Monospace;
        case FF_SCRIPT:
            return QFont::Cursive;
        case FF_DECORATIVE:
            return QFont::Fantasy;
        default:
            return (pitchAndFamily & 3) == FIXED_PITCH ? QFont::Monospace : QFont::AnyStyle;
    }
}

QFont::StyleStrategy Strategy(BYTE quality) {
    if (quality == NONANTIALIASED_QUALITY) {
        return QFont::NoAntialias;
    }
    return quality == ANTIALIASED_QUALITY ? QFont::PreferAntialias : QFont::PreferDefault;
}

/// Everything but the size.
QFont Face(const LOGFONT& record) {
    const auto length =
        static_cast<qsizetype>(qstrnlen(record.lfFaceName, sizeof(record.lfFaceName)));
    QFont font = length == 0 ? QFont() : QFont(QString::fromUtf8(record.lfFaceName, length));
    font.setStyleHint(StyleHint(record.lfPitchAndFamily), Strategy(record.lfQuality));
    const int weight = static_cast<int>(std::clamp<LONG>(record.lfWeight, 1, 1000));
    font.setWeight(record.lfWeight == FW_DONTCARE ? QFont::Normal : QFont::Weight(weight));
    font.setItalic(record.lfItalic != 0);
    font.setUnderline(record.lfUnderline != 0);
    font.setStrikeOut(record.lfStrikeOut != 0);
    return font;
}

LONG Rounded(double value) {
    return static_cast<LONG>(std::floor(value + 0.5));
}

/// The largest size whose line is no higher.
LONG SizeOfLine(const FaceMeasures& face, LONG line) {
    auto size = static_cast<LONG>(line / (face.ascent + face.descent)) + 1;
    while (size > 1 && Rounded(face.ascent * size) + Rounded(face.descent * size) > line) {
        --size;
    }
    return size;
}

LONG SizeInPixels(const LOGFONT& record, const FaceMeasures& face, const Mapping& mapping,
                  const DeviceFigures& device) {
    constexpr LONG kUsualPerInch = 96;
    if (record.lfHeight == 0) {
        return SizeOfLine(face, kUsualLine * device.perInch.cy / kUsualPerInch);
    }
    const LONG height =
        std::clamp<LONG>(std::abs(mapping.DeviceHeight(record.lfHeight)), 1, kLargestSize);
    return record.lfHeight < 0 ? height : SizeOfLine(face, height);
}

/// Makes the characters wider or narrower than designed; the factor that it comes to.
double Stretch(QFont& font, LONG width, double designed) {
    if (width == 0 || designed <= 0) {
        return 1;
    }
    const int percent = static_cast<int>(std::clamp(100.0 * width / designed, 1.0, 4000.0));
    font.setStretch(percent);
    return percent / 100.0;
}

/// What TEXTMETRIC says of a font with outlines: the bit for pitch means a varying one.
BYTE PitchAndFamily(const LOGFONT& record, const QFont& font) {
    constexpr int kOutlines = 2 | 4;
    const int varies = QFontInfo(font).fixedPitch() ? 0 : 1;
    return static_cast<BYTE>((record.lfPitchAndFamily & 0xF0) | kOutlines | varies);
}

TEXTMETRIC Metrics(const FaceMeasures& face, LONG size, double stretch,
                   const DeviceFigures& device) {
    TEXTMETRIC metrics{};
    metrics.tmAscent = Rounded(face.ascent * size);
    metrics.tmDescent = Rounded(face.descent * size);
    metrics.tmHeight = metrics.tmAscent + metrics.tmDescent;
    metrics.tmInternalLeading = metrics.tmHeight - size;
    metrics.tmExternalLeading = Rounded(face.externalLeading * size);
    metrics.tmAveCharWidth = std::max<LONG>(Rounded(face.averageWidth * size * stretch), 1);
    metrics.tmMaxCharWidth = std::max<LONG>(Rounded(face.maximalWidth * size * stretch), 1);
    metrics.tmDigitizedAspectX = device.perInch.cx;
    metrics.tmDigitizedAspectY = device.perInch.cy;
    metrics.tmFirstChar = ' ';
    metrics.tmLastChar = 0xFF;
    metrics.tmDefaultChar = '?';
    metrics.tmBreakChar = ' ';
    return metrics;
}

/// The application's own font; its height is in pixels whatever the mapping.
LOGFONT StockFont() {
    LOGFONT record{};
    const QFontInfo font(QApplication::font());
    record.lfHeight = -font.pixelSize();
    record.lfWeight = font.weight();
    const QByteArray name = font.family().toUtf8().left(LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), record.lfFaceName);
    return record;
}

}  // namespace

DeviceFont SelectedFont(const DeviceContext& context) {
    if (!NeedDesktop()) {
        return {};
    }
    const bool isStock = StockIndex(context.font) >= 0;
    const LOGFONT record = isStock ? StockFont() : context.fontRecord;
    const Mapping mapping = isStock ? Mapping() : context.mapping;
    DeviceFont result;
    result.font = Face(record);
    const FaceMeasures face = Measure(result.font);
    const LONG size = SizeInPixels(record, face, mapping, context.figures);
    result.font.setPixelSize(size);
    const LONG width = std::abs(mapping.DeviceWidth(record.lfWidth));
    const double stretch = Stretch(result.font, width, face.averageWidth * size);
    result.metrics = Metrics(face, size, stretch, context.figures);
    result.metrics.tmWeight = result.font.weight();
    result.metrics.tmItalic = record.lfItalic;
    result.metrics.tmUnderlined = record.lfUnderline;
    result.metrics.tmStruckOut = record.lfStrikeOut;
    result.metrics.tmCharSet = record.lfCharSet;
    result.metrics.tmPitchAndFamily = PitchAndFamily(record, result.font);
    result.angle = isStock ? 0 : record.lfEscapement;
    return result;
}

}  // namespace platen::win32
