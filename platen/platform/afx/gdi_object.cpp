#include <platen/platform/afx/gdi_object.h>
#include <platen/platform/afx/object_table.h>

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNCREATE(CFont, CGdiObject)

namespace {

using GdiTable = platen::afx::ObjectTable<CGdiObject, &CGdiObject::m_hObject>;

constinit GdiTable g_permanent;
constinit GdiTable g_temporary;

void DeleteTemporary(CGdiObject* object) {
    object->m_hObject = nullptr;
    delete object;
}

}  // namespace

CGdiObject::~CGdiObject() {
    CGdiObject::DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ object) {
    if (object == nullptr || m_hObject != nullptr) {
        return FALSE;
    }
    m_hObject = object;
    g_permanent.Insert(*this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
    const HGDIOBJ object = m_hObject;
    if (object != nullptr) {
        g_permanent.Remove(*this);
        m_hObject = nullptr;
    }
    return object;
}

BOOL CGdiObject::DeleteObject() {
    const HGDIOBJ object = Detach();
    return object == nullptr ? FALSE : ::DeleteObject(object);
}

void CGdiObject::DeleteTempMap() {
    g_temporary.RemoveIf([](const CGdiObject&) { return true; }, DeleteTemporary);
}

CGdiObject* CGdiObject::Find(HGDIOBJ object) {
    CGdiObject* const permanent = g_permanent.Find(object);
    return permanent != nullptr ? permanent : g_temporary.Find(object);
}

void CGdiObject::MakeTemporary(CGdiObject& object, HGDIOBJ handle) {
    // An application that is never idle would otherwise gather objects of what has been deleted.
    g_temporary.RemoveIf([](const CGdiObject& old) { return ::GetObjectType(old.m_hObject) == 0; },
                         DeleteTemporary);
    object.m_hObject = handle;
    g_temporary.Insert(object);
}

CFont* CFont::FromHandle(HFONT font) {
    if (font == nullptr) {
        return nullptr;
    }
    CGdiObject* const known = Find(font);
    if (known != nullptr && known->IsKindOf(RUNTIME_CLASS(CFont))) {
        return static_cast<CFont*>(known);
    }
    auto* const object = new (std::nothrow) CFont;
    if (object != nullptr) {
        MakeTemporary(*object, font);
    }
    return object;
}
