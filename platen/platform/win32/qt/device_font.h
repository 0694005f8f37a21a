#pragma once

#include <QFont>

#include <platen/platform/win32/qt/device_context.h>

namespace platen::win32 {

/// A font as a device has it. Lengths are in pixels.
struct DeviceFont {
    QFont font;
    LONG angle = 0;  ///< of a line, in tenths of a degree, counter-clockwise
    TEXTMETRIC metrics{};
};

/// The font that is selected for a context.
DeviceFont SelectedFont(const DeviceContext& context);

}  // namespace platen::win32
