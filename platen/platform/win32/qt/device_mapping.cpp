#include <span>

#include <platen/platform/win32/qt/device_context.h>

using namespace platen::win32;

namespace {

/// Notes a value for a caller who wants it.
template <class Value>
void Tell(Value* place, const Value& value) {
    if (place != nullptr) {
        *place = value;
    }
}

template <class Value, class Get>
BOOL TellOf(HDC context, Value* place, Get get) {
    const DeviceContext* const found = FindContext(context);
    if (found == nullptr || place == nullptr) {
        return FALSE;
    }
    *place = get(found->mapping);
    return TRUE;
}

BOOL MoveOrg(HDC context, POINT Mapping::*org, POINT point, LPPOINT before) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr) {
        return FALSE;
    }
    Tell(before, found->mapping.*org);
    found->mapping.*org = point;
    return TRUE;
}

BOOL Convert(HDC context, LPPOINT points, int count, POINT (Mapping::*convert)(POINT) const) {
    const DeviceContext* const found = FindContext(context);
    if (found == nullptr || count < 0) {
        return FALSE;
    }
    for (POINT& point : std::span(points, static_cast<std::size_t>(count))) {
        point = (found->mapping.*convert)(point);
    }
    return TRUE;
}

}  // namespace

int SetMapMode(HDC context, int mode) {
    DeviceContext* const found = FindContext(context);
    const int before = GetMapMode(context);
    return found != nullptr && found->mapping.SetMode(mode) ? before : 0;
}

int GetMapMode(HDC context) {
    const DeviceContext* const found = FindContext(context);
    return found == nullptr ? 0 : found->mapping.Mode();
}

BOOL SetWindowOrgEx(HDC context, int x, int y, LPPOINT before) {
    return MoveOrg(context, &Mapping::windowOrg, {x, y}, before);
}

BOOL SetViewportOrgEx(HDC context, int x, int y, LPPOINT before) {
    return MoveOrg(context, &Mapping::viewportOrg, {x, y}, before);
}

BOOL SetWindowExtEx(HDC context, int width, int height, LPSIZE before) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr) {
        return FALSE;
    }
    Tell(before, found->mapping.WindowExt());
    return found->mapping.SetWindowExt({width, height}) ? TRUE : FALSE;
}

BOOL SetViewportExtEx(HDC context, int width, int height, LPSIZE before) {
    DeviceContext* const found = FindContext(context);
    if (found == nullptr) {
        return FALSE;
    }
    Tell(before, found->mapping.ViewportExt());
    return found->mapping.SetViewportExt({width, height}) ? TRUE : FALSE;
}

BOOL GetWindowOrgEx(HDC context, LPPOINT origin) {
    return TellOf(context, origin, [](const Mapping& mapping) { return mapping.windowOrg; });
}

BOOL GetViewportOrgEx(HDC context, LPPOINT origin) {
    return TellOf(context, origin, [](const Mapping& mapping) { return mapping.viewportOrg; });
}

BOOL GetWindowExtEx(HDC context, LPSIZE extent) {
    return TellOf(context, extent, [](const Mapping& mapping) { return mapping.WindowExt(); });
}

BOOL GetViewportExtEx(HDC context, LPSIZE extent) {
    return TellOf(context, extent, [](const Mapping& mapping) { return mapping.ViewportExt(); });
}

BOOL LPtoDP(HDC context, LPPOINT points, int count) {
    return Convert(context, points, count, &Mapping::ToDevice);
}

BOOL DPtoLP(HDC context, LPPOINT points, int count) {
    return Convert(context, points, count, &Mapping::ToLogical);
}
