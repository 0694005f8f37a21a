#pragma once

#include <QFont>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <cstdint>
#include <memory>

class QMainWindow;

/// The library's services for its host, as this application uses them.
namespace inspector {

/// Asks for files to open; none when the user cancelled.
QStringList AskForFiles(QWidget& parent);

/// Asks where a copy goes; empty when the user cancelled.
QString AskForCopyName(const QString& proposal, QWidget& parent);

/// Lets the user choose the font of the texts; false when cancelled.
bool AskForFont(QFont& font, QWidget& parent);

/// A progress window, for as long as the object lives. Escape aborts.
class CopyProgress {
  public:
    CopyProgress(const QString& title, QWidget& parent);
    ~CopyProgress();
    CopyProgress(const CopyProgress&) = delete;
    CopyProgress& operator=(const CopyProgress&) = delete;

    /// For TiffCopy::CopyTo, with the object as the context.
    static int Report(void* context, std::int64_t done, std::int64_t total);

  private:
    class Window;
    std::unique_ptr<Window> m_window;
};

}  // namespace inspector
