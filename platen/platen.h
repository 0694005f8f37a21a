#pragma once

/// Every public header of the library.
#include <platen/base/buffer.h>
#include <platen/base/files.h>
#include <platen/base/memory.h>
#include <platen/base/system.h>
#include <platen/platform/afx.h>
#include <platen/progress/progress_bar.h>
#include <platen/progress/report.h>
#include <platen/progress/status_progress.h>
#include <platen/tags/catalogue.h>
#include <platen/tags/field_type.h>
#include <platen/tags/values.h>
#include <platen/tiff/Tiff.h>
#include <platen/tiff/TiffCopy.h>
#include <platen/tiff/records.h>
#include <platen/tiff/tags.h>
#include <platen/ui/base_modal.h>
#include <platen/ui/log_font.h>
#include <platen/ui/modal_dialogs.h>
#include <platen/ui/notifier.h>
