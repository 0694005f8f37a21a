#include <platen/platform/win32/qt/print_job.h>

#include <QFile>

#include <platen/platform/win32/qt/device_context.h>
#include <platen/platform/win32/qt/printer.h>

namespace platen::win32 {

bool PrintJob::StartDocument(const DOCINFO* document) {
    if (m_painter.isActive() || document == nullptr) {
        return false;
    }
    m_printer->setDocName(QString::fromUtf8(document->lpszDocName));
    if (document->lpszOutput != nullptr) {
        m_printer->setOutputFileName(QString::fromUtf8(document->lpszOutput));
    }
    m_pages = 0;
    return m_painter.begin(m_printer.get());
}

bool PrintJob::StartPage() {
    if (!m_painter.isActive() || m_onPage) {
        return false;
    }
    // The document's start is its first page's as well.
    m_onPage = m_pages == 0 || m_printer->newPage();
    m_pages += m_onPage ? 1 : 0;
    return m_onPage;
}

bool PrintJob::EndPage() {
    return std::exchange(m_onPage, false);
}

bool PrintJob::EndDocument() {
    if (m_painter.isActive() && m_pages == 0) {
        return Abort();
    }
    m_onPage = false;
    return m_painter.isActive() && m_painter.end() && m_printer->printerState() != QPrinter::Error;
}

bool PrintJob::Abort() {
    if (!m_painter.isActive()) {
        return false;
    }
    m_onPage = false;
    m_printer->abort();
    m_painter.end();
    const QString file = m_printer->outputFileName();
    return file.isEmpty() || QFile::remove(file);
}

HDC MakePrinterContext(std::unique_ptr<QPrinter> printer) {
    auto context = std::make_unique<DeviceContext>(PrinterFigures(*printer));
    context->printJob = std::make_unique<PrintJob>(std::move(printer));
    return AddContext(std::move(context));
}

}  // namespace platen::win32

using namespace platen::win32;

namespace {

/// 1 when the context is a printer's and the step succeeds.
int Step(HDC context, bool (PrintJob::*step)()) {
    DeviceContext* const found = FindContext(context);
    const bool done =
        found != nullptr && found->printJob != nullptr && ((*found->printJob).*step)();
    return done ? 1 : SP_ERROR;
}

}  // namespace

int StartDoc(HDC context, const DOCINFO* document) {
    DeviceContext* const found = FindContext(context);
    const bool done =
        found != nullptr && found->printJob != nullptr && found->printJob->StartDocument(document);
    return done ? 1 : SP_ERROR;
}

int StartPage(HDC context) {
    return Step(context, &PrintJob::StartPage);
}

int EndPage(HDC context) {
    return Step(context, &PrintJob::EndPage);
}

int EndDoc(HDC context) {
    return Step(context, &PrintJob::EndDocument);
}

int AbortDoc(HDC context) {
    return Step(context, &PrintJob::Abort);
}
