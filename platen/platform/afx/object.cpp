#include <platen/platform/afx/object.h>

#include <cstring>

namespace {

/// Set before any static initialiser runs, so that records of every file find it.
constinit CRuntimeClass* g_first = nullptr;

}  // namespace

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* record) {
    record->m_pNextClass = g_first;
    g_first = record;
}

CObject* CRuntimeClass::CreateObject() const {
    return m_pfnCreateObject == nullptr ? nullptr : m_pfnCreateObject();
}

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
    const CRuntimeClass* step = this;
    while (step != nullptr && step != base) {
        step = step->m_pfnGetBaseClass == nullptr ? nullptr : step->m_pfnGetBaseClass();
    }
    return step != nullptr;
}

CRuntimeClass* CRuntimeClass::FromName(const char* name) {
    CRuntimeClass* record = g_first;
    while (record != nullptr && std::strcmp(record->m_lpszClassName, name) != 0) {
        record = record->m_pNextClass;
    }
    return record;
}

CRuntimeClass* CRuntimeClass::First() {
    return g_first;
}

CRuntimeClass CObject::classCObject = {
    "CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr, nullptr, nullptr};
static const AFX_CLASSINIT g_initCObject(&CObject::classCObject);

CRuntimeClass* CObject::GetRuntimeClass() const {
    return &classCObject;
}

void CObject::Serialize(CArchive& /*archive*/) {}

void CObject::AssertValid() const {}

void CObject::Dump(CDumpContext& /*context*/) const {}

bool CObject::IsKindOf(const CRuntimeClass* base) const {
    return GetRuntimeClass()->IsDerivedFrom(base);
}
