#pragma once

/// Every public header of the library.
#include <platen/base/buffer.h>
#include <platen/base/files.h>
#include <platen/base/memory.h>
#include <platen/platform/afx.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/TiffCopy.h>
#include <platen/tiff/records.h>
#include <platen/tiff/tags.h>
