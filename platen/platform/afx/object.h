#pragma once

#include <new>

#include <platen/platform/api.h>
#include <platen/platform/win32.h>

class CArchive;
class CDumpContext;
class CObject;

/// What is known of a class at run time. One static record a class, registered when the library is
/// loaded; records are never released.
struct PLATEN_API CRuntimeClass {
    const char* m_lpszClassName;
    int m_nObjectSize;                      ///< bytes
    UINT m_wSchema;                         ///< 0xFFFF: not serialised
    CObject* (*m_pfnCreateObject)();        ///< null: cannot be created by name
    CRuntimeClass* (*m_pfnGetBaseClass)();  ///< null for CObject itself
    CRuntimeClass* m_pNextClass;            ///< the registry's chain

    /// A new object, owned by the caller; null when the class cannot be created or memory is
    /// exhausted.
    [[nodiscard]] CObject* CreateObject() const;
    [[nodiscard]] bool IsDerivedFrom(const CRuntimeClass* base) const;

    /// The registered class of that name, or null.
    static CRuntimeClass* FromName(const char* name);
    /// The registry's first record; `m_pNextClass` leads to the others.
    static CRuntimeClass* First();
};

/// Puts a class record into the registry. One static instance beside each record does it at load
/// time, before any thread is started.
struct PLATEN_API AFX_CLASSINIT {
    explicit AFX_CLASSINIT(CRuntimeClass* record);
};

/// The base of all framework objects: run-time class information and three hooks that do nothing.
class PLATEN_API CObject {
  public:
    [[nodiscard]] virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject() = default;
    virtual void Serialize(CArchive& archive);
    virtual void AssertValid() const;
    virtual void Dump(CDumpContext& context) const;

    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;

    [[nodiscard]] bool IsKindOf(const CRuntimeClass* base) const;

    static CRuntimeClass classCObject;

  protected:
    CObject() = default;
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

/// In a class with run-time class information: its record and what the record points to.
#define DECLARE_DYNAMIC(class_name)                                \
  public:                                                          \
    static CRuntimeClass class##class_name;                        \
    [[nodiscard]] CRuntimeClass* GetRuntimeClass() const override; \
    static CRuntimeClass* _GetBaseClass();

/// The same, in a class that can also be created by name.
#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name)       \
    static CObject* CreateObject();

#define PLATEN_IMPLEMENT_RUNTIME_CLASS(class_name, base_name, create)         \
    CRuntimeClass class_name::class##class_name = {                           \
        #class_name, static_cast<int>(sizeof(class_name)), 0xFFFF,            \
        create,      &class_name::_GetBaseClass,           nullptr};          \
    static const AFX_CLASSINIT g_init##class_name(RUNTIME_CLASS(class_name)); \
    CRuntimeClass* class_name::GetRuntimeClass() const {                      \
        return RUNTIME_CLASS(class_name);                                     \
    }                                                                         \
    CRuntimeClass* class_name::_GetBaseClass() {                              \
        return RUNTIME_CLASS(base_name);                                      \
    }

/// Beside the class: the record defined and registered.
#define IMPLEMENT_DYNAMIC(class_name, base_name) \
    PLATEN_IMPLEMENT_RUNTIME_CLASS(class_name, base_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_name)                                   \
    PLATEN_IMPLEMENT_RUNTIME_CLASS(class_name, base_name, &class_name::CreateObject) \
    CObject* class_name::CreateObject() {                                            \
        return new (std::nothrow) class_name;                                        \
    }
