#pragma once

#include <QObject>

#include <platen/platform/win32/types.h>

class QWidget;
class QWindow;

namespace platen::win32 {

/// Makes sure that there is a QApplication, and that its events are watched. False when the program
/// has an application object that cannot show windows.
bool NeedDesktop();

/// Says that something waits to be done by Qt, so that the next look for messages lets it.
void NoteWork();

/// While one lives, an event of one of this library's widgets is being handled, or Qt is in the
/// midst of something else that needs the widgets: none is deleted.
class EventScope {
  public:
    EventScope() { ++m_depth; }
    ~EventScope() { --m_depth; }
    EventScope(const EventScope&) = delete;
    EventScope& operator=(const EventScope&) = delete;
    static bool IsOpen() { return m_depth > 0; }

  private:
    static inline int m_depth = 0;
};

/// Deletes a widget now or, while an event is being handled, soon.
void Bury(QWidget* widget);
/// Deletes what was left for later.
void DeleteBuried();

}  // namespace platen::win32
