#pragma once

/// The framework classes, written once over the Win32 names of <platen/platform/win32.h>.
#include <platen/platform/afx/application.h>
#include <platen/platform/afx/cmd_target.h>
#include <platen/platform/afx/common_dialogs.h>
#include <platen/platform/afx/dc.h>
#include <platen/platform/afx/dialog.h>
#include <platen/platform/afx/dialog_template.h>
#include <platen/platform/afx/file_status.h>
#include <platen/platform/afx/frame.h>
#include <platen/platform/afx/gdi_object.h>
#include <platen/platform/afx/geometry.h>
#include <platen/platform/afx/message_map.h>
#include <platen/platform/afx/object.h>
#include <platen/platform/afx/status_bar.h>
#include <platen/platform/afx/string.h>
#include <platen/platform/afx/wnd.h>
