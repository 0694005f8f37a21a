#include <platen/platform/win32/qt/device_context.h>

#include <string_view>

#include <platen/platform/win32/device.h>
#include <platen/platform/win32/qt/handle_table.h>

namespace platen::win32 {
namespace {

HandleTable<HDC, DeviceContext>& Contexts() {
    static auto* const contexts = new HandleTable<HDC, DeviceContext>;
    return *contexts;
}

int Capability(const DeviceFigures& figures, int index) {
    switch (index) {
        case TECHNOLOGY:
            return figures.technology;
        case HORZSIZE:
            return figures.area.millimetres.cx;
        case VERTSIZE:
            return figures.area.millimetres.cy;
        case HORZRES:
            return figures.area.pixels.cx;
        case VERTRES:
            return figures.area.pixels.cy;
        case BITSPIXEL:
            return 32;
        case PLANES:
            return 1;
        case LOGPIXELSX:
            return figures.perInch.cx;
        case LOGPIXELSY:
            return figures.perInch.cy;
        case PHYSICALWIDTH:
            return figures.sheet.cx;
        case PHYSICALHEIGHT:
            return figures.sheet.cy;
        case PHYSICALOFFSETX:
            return figures.margin.x;
        case PHYSICALOFFSETY:
            return figures.margin.y;
        default:
            return 0;
    }
}

/// A bitmap is lent to one memory context at a time.
HGDIOBJ SelectBitmap(HDC handle, DeviceContext& context, HGDIOBJ bitmap) {
    GraphicsObject* const chosen = FindGraphicsObject(bitmap);
    const bool isLent = chosen != nullptr && chosen->holder != nullptr && chosen->holder != handle;
    if (!context.IsMemory() || isLent) {
        return nullptr;
    }
    if (GraphicsObject* const before = FindGraphicsObject(context.bitmap)) {
        before->holder = nullptr;
    }
    if (chosen != nullptr) {
        chosen->holder = handle;
    }
    const HGDIOBJ before = std::exchange(context.bitmap, bitmap);
    context.clip = context.MemoryImage()->rect();
    return before;
}

}  // namespace

DeviceContext::DeviceContext(const DeviceFigures& device)
    : figures(device), clip(QRect(0, 0, device.area.pixels.cx, device.area.pixels.cy)) {
    mapping = Mapping(device.area);
}

QImage* DeviceContext::MemoryImage() {
    GraphicsObject* const selected = FindGraphicsObject(bitmap);
    if (selected != nullptr) {
        return &std::get<QImage>(selected->content);
    }
    return IsMemory() ? &ownImage : nullptr;
}

HDC AddContext(std::unique_ptr<DeviceContext> context) {
    return Contexts().Add(std::move(context));
}

HDC NewContext(HWND window, const QRegion& clip) {
    auto context = std::make_unique<DeviceContext>(DisplayFigures());
    context->window = window;
    context->clip = clip;
    return AddContext(std::move(context));
}

DeviceContext* FindContext(HDC context) {
    return Contexts().Find(context);
}

std::unique_ptr<DeviceContext> TakeContext(HDC context) {
    auto taken = Contexts().Take(context);
    GraphicsObject* const lent = taken == nullptr ? nullptr : FindGraphicsObject(taken->bitmap);
    if (lent != nullptr) {
        lent->holder = nullptr;
    }
    return taken;
}

}  // namespace platen::win32

using namespace platen::win32;

HGDIOBJ SelectObject(HDC context, HGDIOBJ object) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr) {
        return nullptr;
    }
    const GraphicsObject* const made = FindGraphicsObject(object);
    switch (GetObjectType(object)) {
        case OBJ_BRUSH:
            return std::exchange(found->brush, object);
        case OBJ_PEN:
            return std::exchange(found->pen, object);
        case OBJ_FONT:
            if (made != nullptr) {
                found->fontRecord = std::get<LOGFONT>(made->content);
            }
            return std::exchange(found->font, object);
        case OBJ_BITMAP:
            return SelectBitmap(context, *found, object);
        default:
            return nullptr;
    }
}

HDC CreateDC(LPCSTR driver, LPCSTR /*device*/, LPCSTR /*output*/, const DEVMODE* /*settings*/) {
    const bool isDisplay = driver != nullptr && std::string_view(driver) == "DISPLAY";
    return isDisplay ? AddContext(std::make_unique<DeviceContext>(DisplayFigures())) : nullptr;
}

HDC CreateCompatibleDC(HDC /*context*/) {
    auto context = std::make_unique<DeviceContext>(DisplayFigures());
    context->ownImage = QImage(1, 1, QImage::Format_ARGB32_Premultiplied);
    context->ownImage.fill(Qt::black);
    context->clip = context->ownImage.rect();
    return AddContext(std::move(context));
}

BOOL DeleteDC(HDC context) {
    return TakeContext(context) != nullptr ? TRUE : FALSE;
}

int GetDeviceCaps(HDC context, int index) {
    const DeviceContext* const found = FindContext(context);
    return found == nullptr ? 0 : Capability(found->figures, index);
}

int SaveDC(HDC context) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr) {
        return 0;
    }
    found->saved.push_back(*found);
    return static_cast<int>(found->saved.size());
}

BOOL RestoreDC(HDC context, int depth) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr) {
        return FALSE;
    }
    const int top = static_cast<int>(found->saved.size());
    const int level = depth < 0 ? top + depth + 1 : depth;
    if (level < 1 || level > top) {
        return FALSE;
    }
    const auto place = static_cast<std::size_t>(level) - 1;
    static_cast<ContextState&>(*found) = found->saved[place];
    found->saved.resize(place);
    return TRUE;
}
