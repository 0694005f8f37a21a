#pragma once

#include <platen/platform/afx.h>
#include <platen/platform/api.h>

/// The base of an application's interactive objects: things that take mouse and keyboard events,
/// are told about selection, sizing, moving, renaming and destruction, draw themselves, carry out
/// numbered actions and save themselves as text. Every operation has a neutral default, so that a
/// derived class overrides only what it needs. The library creates none and calls none of it.
///
/// Objects are used by the thread of the user interface. Pointers that are passed stay the
/// caller's.
class PLATEN_API Notifier {
  public:
    /// The stage of a change that takes a while, such as dragging a border. The library passes it
    /// through.
    enum TXSTATE { TX_BEGIN, TX_CONTINUE, TX_END, TX_CANCEL };

    /// Drawing enabled, not modified.
    Notifier();
    /// Copies share nothing: they start with the source's modified state and enable-draw flag.
    Notifier(const Notifier& other);
    Notifier& operator=(const Notifier& other);

    /// The class "Notifier", whose base on record is CCmdTarget; not creatable by name.
    [[nodiscard]] virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~Notifier();

    /// \name Events
    /// The arguments are those of the window messages; 0 says that the event was left alone.
    /// @{
    virtual int mouseMove(unsigned int flags, CPoint point);
    virtual int lButtonDown(unsigned int flags, CPoint point);
    virtual int lButtonUp(unsigned int flags, CPoint point);
    virtual int lButtonDblClk(unsigned int flags, CPoint point);
    virtual int rButtonDown(unsigned int flags, CPoint point);
    virtual int rButtonUp(unsigned int flags, CPoint point);
    virtual int keyChar(unsigned int character, unsigned int repeats, unsigned int flags);
    virtual int keyDown(unsigned int key, unsigned int repeats, unsigned int flags);
    virtual int keyUp(unsigned int key, unsigned int repeats, unsigned int flags);
    /// @}

    /// \name Changes
    /// 1 lets the change happen; `onSelect` answers its argument.
    /// @{
    virtual int onRename(TXSTATE state, Notifier* other);
    virtual int onSelect(int selected);
    virtual int onSize(TXSTATE state, long width, long height);
    virtual int onSize(TXSTATE state);
    virtual int onMove(TXSTATE state, long x, long y);
    virtual int onMove(TXSTATE state);
    virtual Notifier* getData();
    virtual int onDestroy();
    virtual int remove();
    virtual int remove(Notifier* other);
    /// @}

    /// Draws the object; here nothing.
    virtual void draw(CDC* context);

    /// \name Actions, by numbers of the application's own
    /// @{
    virtual void doAction(unsigned int action, Notifier* first, Notifier* second);
    virtual void doAction(unsigned int action, Notifier* other);
    virtual void doAction(unsigned int action);
    virtual unsigned int getAction();
    /// @}

    /// The text with this object's own added; here the text alone. The argument is not changed.
    virtual CString save(CString& text);
    /// What is left of the text once this object took its own; here the text. The argument is not
    /// changed.
    virtual CString load(CString& text);
    virtual int isModified();

    virtual void setInspector(CObject* inspector);
    virtual CObject* getInspector();

    [[nodiscard]] int bGetEnableDrawFlag() const;
    /// Stores the flag as it is given, not reduced to 0 or 1.
    void vSetEnableDrawFlag(int flag);

    static CRuntimeClass classNotifier;

  private:
    void zeroInit();

    int m_bModified;
    int m_bEnableDrawFlag = 1;
};
