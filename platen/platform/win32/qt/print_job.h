#pragma once

#include <QPainter>
#include <QPrinter>
#include <memory>

#include <platen/platform/win32/device.h>

namespace platen::win32 {

/// A printer and the document that is being printed on it.
class PrintJob {
  public:
    explicit PrintJob(std::unique_ptr<QPrinter> printer) : m_printer(std::move(printer)) {}

    [[nodiscard]] const QPrinter& Printer() const { return *m_printer; }
    bool StartDocument(const DOCINFO* document);
    bool StartPage();
    bool EndPage();
    /// A document without pages is not printed.
    bool EndDocument();
    /// A file that was being printed to is removed.
    bool Abort();
    /// Null when no page has been started.
    [[nodiscard]] QPainter* Page() { return m_onPage ? &m_painter : nullptr; }

  private:
    std::unique_ptr<QPrinter> m_printer;
    QPainter m_painter;  // ends before the printer does
    int m_pages = 0;
    bool m_onPage = false;
};

}  // namespace platen::win32
