#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>

#include <platen/platform/win32/memory.h>
#include <platen/platform/win32/qt/common_dialog.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/printer.h>

namespace platen::win32 {
namespace {

/// What printing into a PDF goes by; the output is the file.
constexpr char kPdfPrinter[] = "PDF";

/// A record in a global block, as long as it lives.
template <class Record>
class LockedBlock {
  public:
    explicit LockedBlock(HGLOBAL block)
        : m_block(block), m_record(static_cast<Record*>(GlobalLock(block))) {}
    ~LockedBlock() {
        if (m_record != nullptr) {
            GlobalUnlock(m_block);
        }
    }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;

    explicit operator bool() const { return m_record != nullptr; }
    Record* operator->() const { return m_record; }
    [[nodiscard]] char* Text(std::size_t offset) const {
        return reinterpret_cast<char*>(m_record) + offset;
    }

  private:
    HGLOBAL m_block;
    Record* m_record;
};

HGLOBAL NewBlock(HGLOBAL before, std::size_t size) {
    GlobalFree(before);
    return GlobalAlloc(GHND, size);
}

/// The printer that the record's blocks describe, or the usual one.
std::unique_ptr<QPrinter> MakePrinter(const PRINTDLG& record) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (const LockedBlock<DEVNAMES> names(record.hDevNames); names) {
        const char* const device = names.Text(names->wDeviceOffset);
        if (std::strcmp(device, kPdfPrinter) == 0) {
            printer->setOutputFormat(QPrinter::PdfFormat);
            printer->setOutputFileName(QFile::decodeName(names.Text(names->wOutputOffset)));
        } else if (QPrinterInfo::availablePrinterNames().contains(QString::fromUtf8(device))) {
            printer->setPrinterName(QString::fromUtf8(device));
        }
    }
    if (const LockedBlock<DEVMODE> mode(record.hDevMode); mode) {
        if ((mode->dmFields & DM_PAPERSIZE) != 0) {
            printer->setPageSize(QPageSize(QPageSize::id(mode->dmPaperSize)));
        }
        if ((mode->dmFields & DM_ORIENTATION) != 0) {
            printer->setPageOrientation(mode->dmOrientation == DMORIENT_LANDSCAPE
                                            ? QPageLayout::Landscape
                                            : QPageLayout::Portrait);
        }
        if ((mode->dmFields & DM_COPIES) != 0) {
            printer->setCopyCount(std::max<int>(mode->dmCopies, 1));
        }
    } else {
        printer->setCopyCount(std::max<int>(record.nCopies, 1));
    }
    printer->setCollateCopies((record.Flags & PD_COLLATE) != 0);
    return printer;
}

class PrintDialog : public CommonDialog<QPrintDialog> {
  public:
    PrintDialog(HWND handle, QWidget* parent, QPrinter& printer, const PRINTDLG& record)
        : CommonDialog(handle, &printer, parent) {
        const bool isSetup = (record.Flags & PD_PRINTSETUP) != 0;
        setWindowTitle(isSetup ? tr("Print Setup") : tr("Print"));
        setOptions(PrintToFile | PrintShowPageSize);
        setOption(PrintCollateCopies, !isSetup);
        setOption(PrintPageRange, !isSetup && (record.Flags & PD_NOPAGENUMS) == 0);
        setOption(PrintSelection, !isSetup && (record.Flags & PD_NOSELECTION) == 0);
        if (record.nMaxPage > 0) {
            setMinMax(record.nMinPage, record.nMaxPage);
        }
        if ((record.Flags & PD_PAGENUMS) != 0) {
            setPrintRange(PageRange);
            setFromTo(record.nFromPage, record.nToPage);
        } else if ((record.Flags & PD_SELECTION) != 0) {
            setPrintRange(Selection);
        }
        ProposeFile();
    }

    [[nodiscard]] std::vector<DialogPart> Parts() const {
        const auto* const buttons = findChild<QDialogButtonBox*>();
        return {{buttons->button(QDialogButtonBox::Ok), IDOK, "BUTTON"},
                {buttons->button(QDialogButtonBox::Cancel), IDCANCEL, "BUTTON"}};
    }

  private:
    /// Not on every desktop does Qt propose more than a folder to print into.
    void ProposeFile() {
        auto* const file = findChild<QLineEdit*>(QStringLiteral("filename"));
        if (file != nullptr && file->text().endsWith('/')) {
            file->setText(file->text() + QStringLiteral("print.pdf"));
        }
    }
};

HGLOBAL DescribeMode(HGLOBAL before, const QPrinter& printer) {
    const HGLOBAL block = NewBlock(before, sizeof(DEVMODE));
    if (const LockedBlock<DEVMODE> mode(block); mode) {
        const QPageLayout layout = printer.pageLayout();
        const int paper = layout.pageSize().windowsId();
        mode->dmSize = sizeof(DEVMODE);
        mode->dmFields = DM_ORIENTATION | DM_COPIES | (paper > 0 ? DM_PAPERSIZE : 0);
        mode->dmPaperSize = static_cast<SHORT>(paper);
        mode->dmOrientation =
            layout.orientation() == QPageLayout::Landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
        mode->dmCopies = static_cast<SHORT>(printer.copyCount());
        qstrncpy(reinterpret_cast<char*>(mode->dmDeviceName),
                 printer.printerName().toUtf8().constData(), sizeof(mode->dmDeviceName));
    }
    return block;
}

HGLOBAL DescribeNames(HGLOBAL before, const QPrinter& printer) {
    const bool isPdf = printer.outputFormat() == QPrinter::PdfFormat;
    const std::string device = isPdf ? kPdfPrinter : printer.printerName().toStdString();
    const std::string output = QFile::encodeName(printer.outputFileName()).toStdString();
    const HGLOBAL block =
        NewBlock(before, sizeof(DEVNAMES) + 1 + device.size() + 1 + output.size() + 1);
    if (const LockedBlock<DEVNAMES> names(block); names) {
        names->wDriverOffset = sizeof(DEVNAMES);  // an empty text
        names->wDeviceOffset = sizeof(DEVNAMES) + 1;
        names->wOutputOffset = static_cast<WORD>(names->wDeviceOffset + device.size() + 1);
        device.copy(names.Text(names->wDeviceOffset), device.size());
        output.copy(names.Text(names->wOutputOffset), output.size());
    }
    return block;
}

void StoreRange(PRINTDLG& record, const QPrinter& printer) {
    record.Flags &= ~(PD_PAGENUMS | PD_SELECTION | PD_COLLATE);
    if (printer.printRange() == QPrinter::PageRange) {
        record.Flags |= PD_PAGENUMS;
        record.nFromPage = static_cast<WORD>(printer.fromPage());
        record.nToPage = static_cast<WORD>(printer.toPage());
    } else if (printer.printRange() == QPrinter::Selection) {
        record.Flags |= PD_SELECTION;
    }
    record.Flags |= printer.collateCopies() ? PD_COLLATE : 0;
}

/// Divides the copies between the printer and the program.
void StoreCopies(PRINTDLG& record, QPrinter& printer) {
    const int copies = printer.copyCount();
    const bool byPrinter =
        (record.Flags & PD_USEDEVMODECOPIES) != 0 && printer.supportsMultipleCopies();
    record.nCopies = static_cast<WORD>(byPrinter ? 1 : copies);
    printer.setCopyCount(byPrinter ? copies : 1);
}

BOOL Ask(PRINTDLG& record) {
    record.hDC = nullptr;
    if (!NeedDesktop()) {
        SetDialogError(CDERR_INITIALIZATION);
        return FALSE;
    }
    const bool isSetup = (record.Flags & PD_PRINTSETUP) != 0;
    const bool hasHook = (record.Flags & (isSetup ? PD_ENABLESETUPHOOK : PD_ENABLEPRINTHOOK)) != 0;
    DialogHook hook;
    if (hasHook) {
        hook = {isSetup ? record.lpfnSetupHook : record.lpfnPrintHook,
                reinterpret_cast<LPARAM>(&record)};
    }
    auto printer = MakePrinter(record);
    const bool isConfirmed =
        RunCommonDialog(record.hwndOwner, hook, [&](HWND handle, QWidget* owner) {
            auto* const dialog = new PrintDialog(handle, owner, *printer, record);
            return MadeDialog{dialog, dialog->Parts()};
        });
    if (!isConfirmed) {
        return FALSE;
    }
    record.hDevMode = DescribeMode(record.hDevMode, *printer);
    record.hDevNames = DescribeNames(record.hDevNames, *printer);
    if (!isSetup) {
        StoreRange(record, *printer);
        StoreCopies(record, *printer);
    }
    if ((record.Flags & (PD_RETURNDC | PD_RETURNIC)) != 0) {
        record.hDC = MakePrinterContext(std::move(printer));
    }
    return TRUE;
}

}  // namespace
}  // namespace platen::win32

BOOL PrintDlg(LPPRINTDLG choice) {
    return platen::win32::Ask(*choice);
}
