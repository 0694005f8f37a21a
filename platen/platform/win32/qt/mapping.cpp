#include <platen/platform/win32/qt/mapping.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace platen::win32 {
namespace {

constexpr std::int64_t kLargest = std::numeric_limits<LONG>::max();
constexpr std::int64_t kSmallest = std::numeric_limits<LONG>::min();

LONG Clamped(std::int64_t value) {
    return static_cast<LONG>(std::clamp(value, kSmallest, kLargest));
}

/// value * numerator / denominator, to the nearest, halves up. A value of 33 bits times 32 bits
/// just fits; nothing may be added before the division.
std::int64_t Scaled(std::int64_t value, LONG numerator, LONG denominator) {
    std::int64_t product = value * numerator;
    std::int64_t divisor = denominator;
    if (divisor < 0) {
        product = -product;
        divisor = -divisor;
    }
    std::int64_t quotient = product / divisor;
    std::int64_t rest = product % divisor;
    if (rest < 0) {
        rest += divisor;
        --quotient;
    }
    return 2 * rest >= divisor ? quotient + 1 : quotient;
}

LONG Mapped(LONG value, LONG fromOrg, LONG fromExt, LONG toOrg, LONG toExt) {
    return Clamped(Scaled(std::int64_t{value} - fromOrg, toExt, fromExt) + toOrg);
}

/// A length is clamped without its sign, which can be changed then.
LONG WholePixels(LONG value, LONG windowExt, LONG viewportExt) {
    const LONG length = Clamped(std::abs(std::int64_t{value} * viewportExt / windowExt));
    return value < 0 ? -length : length;
}

LONG NearestUnits(LONG value, LONG windowExt, LONG viewportExt) {
    const LONG length =
        Clamped(std::abs(Scaled(std::abs(std::int64_t{value}), windowExt, viewportExt)));
    return value < 0 ? -length : length;
}

}  // namespace

bool Mapping::SetMode(int mode) {
    constexpr int kTenInchesInTenthsOfMillimetre = 2540;
    constexpr int kTwipsPerTenInches = 14400;
    if (mode == MM_ANISOTROPIC || (mode == MM_ISOTROPIC && m_mode == MM_ISOTROPIC)) {
        m_mode = mode;
        return true;
    }
    switch (mode) {
        case MM_TEXT:
            m_windowExt = {1, 1};
            m_viewportExt = {1, 1};
            break;
        case MM_LOMETRIC:
        case MM_ISOTROPIC:
            SetScale(kTenInchesInTenthsOfMillimetre);
            break;
        case MM_HIMETRIC:
            SetScale(kTenInchesInTenthsOfMillimetre * 10);
            break;
        case MM_LOENGLISH:
            SetScale(1000);
            break;
        case MM_HIENGLISH:
            SetScale(10000);
            break;
        case MM_TWIPS:
            SetScale(kTwipsPerTenInches);
            break;
        default:
            return false;
    }
    m_mode = mode;
    return true;
}

/// The vertical axis points up.
void Mapping::SetScale(int unitsPerTenInches) {
    const auto units = [unitsPerTenInches](LONG millimetres) {
        return Clamped(Scaled(millimetres, unitsPerTenInches, 254));
    };
    m_windowExt = {units(m_device.millimetres.cx), units(m_device.millimetres.cy)};
    m_viewportExt = {m_device.pixels.cx, -m_device.pixels.cy};
}

bool Mapping::SetExtent(SIZE& place, SIZE extent) {
    if (m_mode != MM_ISOTROPIC && m_mode != MM_ANISOTROPIC) {
        return true;
    }
    if (extent.cx == 0 || extent.cy == 0) {
        return false;
    }
    place = extent;
    if (m_mode == MM_ISOTROPIC) {
        MakeIsotropic();
    }
    return true;
}

/// Shrinks the viewport in the direction where a logical unit is longer, so that it is equally long
/// in both. Products of usual sizes are exact in a double, and so are halves among their quotients.
void Mapping::MakeIsotropic() {
    const auto product = [](LONG viewport, LONG millimetres, LONG otherPixels, LONG otherWindow) {
        return std::abs(double{1} * viewport * millimetres * otherPixels * otherWindow);
    };
    const auto shrink = [](LONG& extent, double smaller, double larger) {
        const LONG least = extent < 0 ? -1 : 1;
        extent = static_cast<LONG>(std::floor(extent * smaller / larger + 0.5));
        extent = extent == 0 ? least : extent;
    };
    const double across =
        product(m_viewportExt.cx, m_device.millimetres.cx, m_device.pixels.cy, m_windowExt.cy);
    const double down =
        product(m_viewportExt.cy, m_device.millimetres.cy, m_device.pixels.cx, m_windowExt.cx);
    if (across > down) {
        shrink(m_viewportExt.cx, down, across);
    } else {
        shrink(m_viewportExt.cy, across, down);
    }
}

POINT Mapping::ToDevice(POINT point) const {
    return {Mapped(point.x, windowOrg.x, m_windowExt.cx, viewportOrg.x, m_viewportExt.cx),
            Mapped(point.y, windowOrg.y, m_windowExt.cy, viewportOrg.y, m_viewportExt.cy)};
}

POINT Mapping::ToLogical(POINT point) const {
    return {Mapped(point.x, viewportOrg.x, m_viewportExt.cx, windowOrg.x, m_windowExt.cx),
            Mapped(point.y, viewportOrg.y, m_viewportExt.cy, windowOrg.y, m_windowExt.cy)};
}

LONG Mapping::DeviceHeight(LONG height) const {
    return WholePixels(height, m_windowExt.cy, m_viewportExt.cy);
}

LONG Mapping::DeviceWidth(LONG width) const {
    return WholePixels(width, m_windowExt.cx, m_viewportExt.cx);
}

LONG Mapping::LogicalHeight(LONG height) const {
    return NearestUnits(height, m_windowExt.cy, m_viewportExt.cy);
}

LONG Mapping::LogicalWidth(LONG width) const {
    return NearestUnits(width, m_windowExt.cx, m_viewportExt.cx);
}

}  // namespace platen::win32
