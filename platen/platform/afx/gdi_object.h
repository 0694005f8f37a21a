#pragma once

#include <platen/platform/afx/object.h>

namespace platen::afx {
template <class Object, auto HandleOf>
class ObjectTable;
}

/// A drawing object of the system's as an object. One that was created or attached is deleted with
/// the object unless it is detached before.
class PLATEN_API CGdiObject : public CObject {
    DECLARE_DYNCREATE(CGdiObject)

  public:
    HGDIOBJ m_hObject = nullptr;

    CGdiObject() = default;
    ~CGdiObject() override;

    /// FALSE when there is nothing to attach, or something is attached already.
    BOOL Attach(HGDIOBJ object);
    HGDIOBJ Detach();
    /// FALSE when there is nothing to delete, or the system refuses; nothing is attached
    /// afterwards.
    BOOL DeleteObject();
    [[nodiscard]] HGDIOBJ GetSafeHandle() const { return m_hObject; }

    /// Releases the temporary objects. The application object calls it when idle.
    static void DeleteTempMap();

  protected:
    /// The object that has been made this one's, or a temporary one; null when there is none.
    static CGdiObject* Find(HGDIOBJ object);
    /// Makes the object a temporary one, which never deletes what it stands for.
    static void MakeTemporary(CGdiObject& object, HGDIOBJ handle);

  private:
    template <class Object, auto HandleOf>
    friend class platen::afx::ObjectTable;

    CGdiObject* m_next = nullptr;  ///< the table's chain
};

class PLATEN_API CFont : public CGdiObject {
    DECLARE_DYNCREATE(CFont)

  public:
    /// The font's object: the one attached to it, or else a temporary one, which serves until the
    /// application is next idle. Null for null, and when memory is exhausted.
    static CFont* FromHandle(HFONT font);

    /// FALSE when the system cannot make one, or there is one already.
    BOOL CreateFontIndirect(const LOGFONT* font) { return Attach(::CreateFontIndirect(font)); }
};
