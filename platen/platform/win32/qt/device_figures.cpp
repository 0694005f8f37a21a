#include <platen/platform/win32/qt/device_figures.h>

#include <QGuiApplication>
#include <QPageLayout>
#include <QPrinter>
#include <QScreen>
#include <algorithm>

#include <platen/platform/win32/device.h>
#include <platen/platform/win32/qt/desktop.h>

namespace platen::win32 {
namespace {

LONG AtLeastOne(int value) {
    return std::max(value, 1);
}

LONG Millimetres(LONG pixels, LONG perInch) {
    constexpr double kMillimetresPerInch = 25.4;
    return AtLeastOne(qRound(pixels * kMillimetresPerInch / perInch));
}

void SetArea(DeviceFigures& figures, QSize pixels) {
    figures.area.pixels = {AtLeastOne(pixels.width()), AtLeastOne(pixels.height())};
    figures.area.millimetres = {Millimetres(figures.area.pixels.cx, figures.perInch.cx),
                                Millimetres(figures.area.pixels.cy, figures.perInch.cy)};
}

}  // namespace

DeviceFigures DisplayFigures() {
    DeviceFigures figures;
    figures.technology = DT_RASDISPLAY;
    QSize size(1024, 768);
    const QScreen* const screen = NeedDesktop() ? QGuiApplication::primaryScreen() : nullptr;
    if (screen != nullptr) {
        figures.perInch = {AtLeastOne(qRound(screen->logicalDotsPerInchX())),
                           AtLeastOne(qRound(screen->logicalDotsPerInchY()))};
        size = screen->size();
    }
    SetArea(figures, size);
    return figures;
}

DeviceFigures PrinterFigures(const QPrinter& printer) {
    DeviceFigures figures;
    figures.technology = DT_RASPRINTER;
    const int resolution = printer.resolution();
    figures.perInch = {AtLeastOne(resolution), AtLeastOne(resolution)};
    const QPageLayout layout = printer.pageLayout();
    const QRect sheet = layout.fullRectPixels(resolution);
    const QRect printable = layout.paintRectPixels(resolution);
    SetArea(figures, printable.size());
    figures.sheet = {sheet.width(), sheet.height()};
    figures.margin = {printable.x(), printable.y()};
    return figures;
}

}  // namespace platen::win32
