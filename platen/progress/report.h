#pragma once

#include <platen/platform/api.h>

class CStatusBar;

/// The registry through which an application hands three report callbacks and a message to its own
/// modules, and its status bar to the library. One registry per process; the library never calls
/// the callbacks. Nothing is owned and nothing is locked.

extern "C" {
/// A callback of any signature; who fetches it casts it back to its own type.
using CORE_ReportCallBack = void (*)();

/// Switches the callbacks' getters on (not 0) or off; the switch as it was before.
PLATEN_API int CORE_EnableReportCallBack(int enable);
/// Keeps the text's first 255 characters; null counts as empty.
PLATEN_API void CORE_SetReportMessage(const char* text);
/// The text kept, at first empty. It stays where it is and changes with the next one set.
PLATEN_API const char* CORE_GetReportMessage();

/// Setting works whatever the switch; getting answers null while it is off.
PLATEN_API void CORE_SetBeginReportCallBack(CORE_ReportCallBack callback);
PLATEN_API CORE_ReportCallBack CORE_GetBeginReportCallBack();
PLATEN_API void CORE_SetInReportCallBack(CORE_ReportCallBack callback);
PLATEN_API CORE_ReportCallBack CORE_GetInReportCallBack();
PLATEN_API void CORE_SetEndReportCallBack(CORE_ReportCallBack callback);
PLATEN_API CORE_ReportCallBack CORE_GetEndReportCallBack();

/// The bar whose pane 0 receives progress texts and whose pane 1 receives the memory text; null
/// switches them off. The caller owns the bar and takes it back before it goes.
PLATEN_API void CORE_SetStatusBar(CStatusBar* statusBar);
}
