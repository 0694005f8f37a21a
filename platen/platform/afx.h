#pragma once

/// The framework classes, written once over the Win32 names of <platen/platform/win32.h>.
#include <platen/platform/afx/object.h>
#include <platen/platform/afx/string.h>
