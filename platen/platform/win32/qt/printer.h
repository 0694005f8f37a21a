#pragma once

#include <memory>

#include <platen/platform/win32/types.h>

class QPrinter;

namespace platen::win32 {

/// A device context that draws on a printer and owns it until DeleteDC; 0 when memory is exhausted.
HDC MakePrinterContext(std::unique_ptr<QPrinter> printer);

}  // namespace platen::win32
