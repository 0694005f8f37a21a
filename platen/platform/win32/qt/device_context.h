#pragma once

#include <QImage>
#include <QPainter>
#include <QRegion>
#include <memory>
#include <vector>

#include <platen/platform/win32/font.h>
#include <platen/platform/win32/gdi.h>
#include <platen/platform/win32/qt/device_figures.h>
#include <platen/platform/win32/qt/graphics_object.h>
#include <platen/platform/win32/qt/print_job.h>

namespace platen::win32 {

/// What SaveDC notes of a context.
struct ContextState {
    Mapping mapping;
    HGDIOBJ brush = StockObject(WHITE_BRUSH);
    HGDIOBJ pen = StockObject(BLACK_PEN);
    HGDIOBJ font = StockObject(SYSTEM_FONT);
    LOGFONT fontRecord{};  ///< of a font that is not a stock object, which may be deleted meanwhile
    COLORREF textColor = RGB(0, 0, 0);
    int backgroundMode = OPAQUE;
};

/// What may be drawn into, and what is selected for it.
struct DeviceContext : ContextState {
    explicit DeviceContext(const DeviceFigures& device);

    DeviceFigures figures;
    HWND window = nullptr;                     ///< whose client area is drawn on, or null
    QRegion clip;                              ///< in device units
    QRegion drawn;                             ///< what has to be shown
    QImage ownImage;                           ///< a memory context's before a bitmap is selected
    HGDIOBJ bitmap = StockObject(kOwnBitmap);  ///< a memory context's: its own or a selected one
    std::unique_ptr<PrintJob> printJob;
    std::vector<ContextState> saved;

    [[nodiscard]] bool IsMemory() const { return !ownImage.isNull(); }
    /// What a memory context draws on; null for others.
    QImage* MemoryImage();
};

HDC AddContext(std::unique_ptr<DeviceContext> context);
HDC NewContext(HWND window, const QRegion& clip);
DeviceContext* FindContext(HDC context);
std::unique_ptr<DeviceContext> TakeContext(HDC context);
/// Where a context draws; null when its window is gone, and for a printer.
QImage* ImageOf(DeviceContext& context);

/// Lets `draw` paint on a part of a context's device; nothing where there is nothing to draw on.
template <class Draw>
void PaintOn(DeviceContext& context, const QRegion& place, Draw draw) {
    const QRegion clipped = place & context.clip;
    if (clipped.isEmpty()) {
        return;
    }
    QPainter* const page = context.printJob == nullptr ? nullptr : context.printJob->Page();
    QImage* const image = ImageOf(context);
    if (page != nullptr) {
        page->save();
        draw(*page, clipped);
        page->restore();
    } else if (image != nullptr && !image->isNull()) {
        QPainter painter(image);
        painter.setClipRegion(clipped);
        draw(painter, clipped);
        context.drawn += clipped;
    }
}

/// Where a logical point lies on the device; what is far outside comes so near that sums of such
/// coordinates fit.
POINT DevicePoint(const Mapping& mapping, POINT point);

/// Replaces the colour of all that the context may draw into; false for a context that is gone.
bool FillClip(HDC context, const QColor& color);

}  // namespace platen::win32
