#pragma once

#include <platen/platform/afx/object.h>
#include <platen/platform/api.h>
#include <platen/platform/win32.h>

class CCmdTarget;

/// One row of a message map: what it answers, and the function that takes the message's two words
/// apart and calls the handler.
struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode;  ///< of a WM_COMMAND: the notification
    UINT nID;    ///< of a WM_COMMAND: the command or control
    LRESULT (*pfn)(CCmdTarget& target, WPARAM wParam, LPARAM lParam);  ///< null ends the map
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();  ///< null: no map below
    const AFX_MSGMAP_ENTRY* lpEntries;
};

/// Marks a message handler in a class; it has no meaning for the compiler.
#define afx_msg

/// In a class with a message map. <platen/platform/afx/message_map.h> has the macros that fill it.
#define DECLARE_MESSAGE_MAP()                     \
  protected:                                      \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    [[nodiscard]] const AFX_MSGMAP* GetMessageMap() const override;

/// What can be told to do something: the base of windows and of the application object.
class PLATEN_API CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)

  public:
    CCmdTarget() = default;

    /// Carries out a command or a control's notification: the first row that fits, from the
    /// object's own map down to its bases'. FALSE when there is none.
    virtual BOOL OnCmdMsg(UINT identifier, int code);

  protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    [[nodiscard]] virtual const AFX_MSGMAP* GetMessageMap() const;

    /// The row for a message, and for a WM_COMMAND also of that notification and identifier; null
    /// when there is none.
    [[nodiscard]] const AFX_MSGMAP_ENTRY* FindEntry(UINT message, UINT code, UINT identifier) const;
};
