#pragma once

#include <platen/platform/win32/qt/mapping.h>

class QPrinter;

namespace platen::win32 {

/// How large a device is, and how fine.
struct DeviceFigures {
    Mapping::Device area;  ///< what can be drawn on
    SIZE perInch{96, 96};
    SIZE sheet{};  ///< a printer's paper, in pixels
    POINT margin{};
    int technology = 0;  ///< DT_
};

/// Of the primary screen, in device-independent pixels.
DeviceFigures DisplayFigures();
DeviceFigures PrinterFigures(const QPrinter& printer);

}  // namespace platen::win32
