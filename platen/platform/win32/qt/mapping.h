#pragma once

#include <platen/platform/win32/mapping.h>

namespace platen::win32 {

/// How a device context turns logical units into the device's pixels and back: the mode, and where
/// and how large window (logical) and viewport (device) are. Arithmetic alone.
class Mapping {
  public:
    /// What the modes that keep a scale take from a device: its width and height.
    struct Device {
        SIZE millimetres{1, 1};
        SIZE pixels{1, 1};
    };

    Mapping() = default;
    explicit Mapping(const Device& device) : m_device(device) {}

    [[nodiscard]] int Mode() const { return m_mode; }
    /// False for what is no mode.
    bool SetMode(int mode);

    POINT windowOrg{};
    POINT viewportOrg{};
    [[nodiscard]] SIZE WindowExt() const { return m_windowExt; }
    [[nodiscard]] SIZE ViewportExt() const { return m_viewportExt; }
    /// The modes with a scale of their own keep it. False for an extent of zero, where it counts.
    bool SetWindowExt(SIZE extent) { return SetExtent(m_windowExt, extent); }
    bool SetViewportExt(SIZE extent) { return SetExtent(m_viewportExt, extent); }

    /// Rounded to the nearest unit, halves up; what is beyond 32 bits becomes the outermost value.
    [[nodiscard]] POINT ToDevice(POINT point) const;
    [[nodiscard]] POINT ToLogical(POINT point) const;
    /// A vertical or horizontal distance in whole pixels, without what is beyond them, and back to
    /// the nearest unit, whichever way the axes point.
    [[nodiscard]] LONG DeviceHeight(LONG height) const;
    [[nodiscard]] LONG DeviceWidth(LONG width) const;
    [[nodiscard]] LONG LogicalHeight(LONG height) const;
    [[nodiscard]] LONG LogicalWidth(LONG width) const;

  private:
    bool SetExtent(SIZE& place, SIZE extent);
    void SetScale(int unitsPerTenInches);
    void MakeIsotropic();

    int m_mode = MM_TEXT;
    SIZE m_windowExt{1, 1};
    SIZE m_viewportExt{1, 1};
    Device m_device;
};

}  // namespace platen::win32
