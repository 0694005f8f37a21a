#pragma once

#include <platen/platform/win32.h>

namespace platen {

/// What HowMuchMemory answers when the system gives these figures.
DWORD MemoryFigure(int flags, const MEMORYSTATUS& status);

}  // namespace platen
