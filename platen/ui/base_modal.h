#pragma once

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

/// The modal states of a process: a count that all derived classes share, and the switching off and
/// on of the application's other windows around a modal one. Derived classes of the application
/// call `vEnterModal` and `vExitModal` in pairs around their own modal windows; the library never
/// does. For the thread of the user interface.
class PLATEN_API CXBaseModal {
  protected:
    CXBaseModal() = default;
    CXBaseModal(const CXBaseModal&) = default;
    CXBaseModal& operator=(const CXBaseModal&) = default;
    ~CXBaseModal() = default;

    /// Enters a modal state. The outermost one disables the application's main window and every
    /// pop-up window of the thread, except `modal`, the window that is shown (may be null).
    void vEnterModal(HWND modal);
    /// Leaves a modal state. The outermost one enables the same windows again, whatever they were
    /// before.
    void vExitModal(HWND modal);

    /// States entered and not yet left.
    static int iModCnt;
};
