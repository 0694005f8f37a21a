#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <utility>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/painting.h>
#include <platen/platform/win32/qt/widgets.h>

namespace platen::win32 {
namespace {

constexpr DWORD kStaticKind = 0x1F;
constexpr DWORD kButtonKind = 0x0F;

/// While the program itself changes a control, its parent is told at once, in the midst of what Qt
/// does with the control, which stays until that is over. What the user does is told by a posted
/// message, so that handlers run when it is dispatched and not while Qt handles input.
bool g_changesByProgram = false;

class ByProgram {
  public:
    ByProgram() : m_before(std::exchange(g_changesByProgram, true)) {}
    ~ByProgram() { g_changesByProgram = m_before; }
    ByProgram(const ByProgram&) = delete;
    ByProgram& operator=(const ByProgram&) = delete;

  private:
    EventScope m_scope;
    bool m_before;
};

void Notify(HWND handle, WORD code) {
    const Window* const window = Find(handle);
    if (window == nullptr) {
        return;
    }
    const WPARAM wParam = MAKEWPARAM(static_cast<WORD>(window->identifier), code);
    const auto tell = g_changesByProgram
                          ? &SendMessage
                          : +[](HWND to, UINT message, WPARAM w, LPARAM l) -> LRESULT {
        return PostMessage(to, message, w, l);
    };
    tell(window->parent, WM_COMMAND, wParam, reinterpret_cast<LPARAM>(handle));
}

template <class Widget>
Widget* WidgetOf(HWND handle) {
    const Window* const window = Find(handle);
    return window == nullptr ? nullptr : qobject_cast<Widget*>(window->widget.data());
}

QString TextOf(HWND handle) {
    const Window* const window = Find(handle);
    return window == nullptr ? QString() : QString::fromStdString(window->text);
}

/// Without the marks before mnemonics: a label has none of its own to jump to.
QString WithoutPrefixes(QString text) {
    for (qsizetype at = text.indexOf('&'); at >= 0; at = text.indexOf('&', at + 1)) {
        text.remove(at, 1);
    }
    return text;
}

Qt::Alignment StaticAlignment(DWORD kind) {
    switch (kind) {
        case SS_CENTER:
            return Qt::AlignHCenter | Qt::AlignTop;
        case SS_RIGHT:
            return Qt::AlignRight | Qt::AlignTop;
        default:
            return Qt::AlignLeft | Qt::AlignTop;
    }
}

/// Frames and rectangles are a colour and whether it fills.
void DressStatic(QLabel& label, DWORD kind) {
    const auto set = [&label](const QColor& color, bool fills) {
        QPalette palette = label.palette();
        palette.setColor(QPalette::WindowText, color);
        palette.setColor(QPalette::Window, color);
        label.setPalette(palette);
        label.setAutoFillBackground(fills);
        if (!fills) {
            label.setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
        }
    };
    switch (kind) {
        case SS_BLACKRECT:
        case SS_BLACKFRAME:
            return set(Qt::black, kind == SS_BLACKRECT);
        case SS_GRAYRECT:
        case SS_GRAYFRAME:
            return set(Qt::gray, kind == SS_GRAYRECT);
        case SS_WHITERECT:
        case SS_WHITEFRAME:
            return set(Qt::white, kind == SS_WHITERECT);
        default:
            break;
    }
}

/// Checks a radio button and takes the mark from the others of its group.
void CheckInGroup(HWND handle) {
    for (const HWND member : GroupOf(handle)) {
        if (auto* const radio = WidgetOf<QRadioButton>(member)) {
            radio->setChecked(member == handle);
        }
    }
}

void Clicked(HWND handle) {
    const Window* const window = Find(handle);
    const DWORD kind = window == nullptr ? 0 : window->style & kButtonKind;
    if (kind == BS_AUTORADIOBUTTON) {
        CheckInGroup(handle);
    } else if (kind == BS_CHECKBOX || kind == BS_RADIOBUTTON) {
        // Only the program changes these.
        if (auto* const button = WidgetOf<QAbstractButton>(handle)) {
            button->setChecked(!button->isChecked());
        }
    }
    Notify(handle, BN_CLICKED);
}

/// Arrows belong to the dialog, which moves within the group.
template <class Button>
class ButtonWidget : public Hosted<Button> {
  public:
    using Hosted<Button>::Hosted;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down) {
            event->ignore();
        } else {
            Hosted<Button>::keyPressEvent(event);
        }
    }
};

template <class Button>
QAbstractButton* NewButton(HWND handle, QWidget* parent) {
    auto* const button = new ButtonWidget<Button>(handle, parent);
    button->setAutoExclusive(false);
    QObject::connect(button, &QAbstractButton::clicked, button, [handle] { Clicked(handle); });
    return button;
}

/// Enter belongs to the dialog, unless the style keeps it.
class TextEdit : public Hosted<QPlainTextEdit> {
  public:
    using Hosted::Hosted;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const Window* const window = Find(Handle());
        const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        const bool keeps = window == nullptr || (window->style & ES_WANTRETURN) != 0;
        if (isEnter && !keeps && event->modifiers() == Qt::NoModifier) {
            event->ignore();
        } else {
            Hosted::keyPressEvent(event);
        }
    }
};

Qt::ScrollBarPolicy BarPolicy(DWORD style, DWORD bar) {
    return (style & bar) != 0 ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff;
}

std::string EditText(HWND handle) {
    if (const auto* const line = WidgetOf<QLineEdit>(handle)) {
        return line->text().toStdString();
    }
    const auto* const page = WidgetOf<QPlainTextEdit>(handle);
    return page == nullptr ? std::string() : page->toPlainText().toStdString();
}

/// What a control shows follows the window's text.
template <class Show>
LRESULT TakeText(HWND handle, UINT message, WPARAM wParam, LPARAM lParam, Show show) {
    const ByProgram scope;
    const Window* const window = Find(handle);
    // The parent is not told of what a control starts with.
    const QSignalBlocker blocker(message == WM_NCCREATE && window != nullptr ? window->widget.data()
                                                                             : nullptr);
    const LRESULT result = DefWindowProc(handle, message, wParam, lParam);
    show(TextOf(handle));
    NoteWork();
    return result;
}

}  // namespace

QWidget* MakeStatic(HWND handle, const Window& window, QWidget* parent) {
    auto* const label = new Hosted<QLabel>(handle, parent);
    const DWORD kind = window.style & kStaticKind;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(StaticAlignment(kind));
    label->setWordWrap(kind <= SS_RIGHT);
    if ((window.style & (WS_BORDER | SS_SUNKEN)) != 0) {
        label->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    }
    DressStatic(*label, kind);
    return label;
}

QWidget* MakeButton(HWND handle, const Window& window, QWidget* parent) {
    switch (window.style & kButtonKind) {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
            return NewButton<QCheckBox>(handle, parent);
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON:
            return NewButton<QRadioButton>(handle, parent);
        case BS_GROUPBOX: {
            auto* const group = new Hosted<QGroupBox>(handle, parent);
            // What it surrounds are its siblings, which must stay within reach of the mouse.
            group->setAttribute(Qt::WA_TransparentForMouseEvents);
            group->lower();
            return group;
        }
        default: {
            auto* const button = static_cast<QPushButton*>(NewButton<QPushButton>(handle, parent));
            button->setAutoDefault(false);
            button->setDefault((window.style & kButtonKind) == BS_DEFPUSHBUTTON);
            return button;
        }
    }
}

QWidget* MakeEdit(HWND handle, const Window& window, QWidget* parent) {
    const bool isReadOnly = (window.style & ES_READONLY) != 0;
    const auto changed = [handle] { Notify(handle, EN_CHANGE); };
    if ((window.style & ES_MULTILINE) != 0) {
        auto* const page = new TextEdit(handle, parent);
        page->setTabChangesFocus(true);
        page->setReadOnly(isReadOnly);
        // A bar that comes and goes with the text can make Qt lay a small field out for ever.
        page->setVerticalScrollBarPolicy(BarPolicy(window.style, WS_VSCROLL));
        page->setHorizontalScrollBarPolicy(BarPolicy(window.style, WS_HSCROLL));
        QObject::connect(page, &QPlainTextEdit::textChanged, page, changed);
        return page;
    }
    auto* const line = new Hosted<QLineEdit>(handle, parent);
    line->setReadOnly(isReadOnly);
    line->setFrame((window.style & WS_BORDER) != 0 || (window.exStyle & WS_EX_CLIENTEDGE) != 0);
    if ((window.style & ES_PASSWORD) != 0) {
        line->setEchoMode(QLineEdit::Password);
    }
    if ((window.style & (ES_CENTER | ES_RIGHT)) != 0) {
        line->setAlignment((window.style & ES_CENTER) != 0 ? Qt::AlignCenter : Qt::AlignRight);
    }
    QObject::connect(line, &QLineEdit::textChanged, line, changed);
    return line;
}

LRESULT ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    const Window* const window = Find(handle);
    if (message == WM_ERASEBKGND) {
        ClearPicture(reinterpret_cast<HDC>(wParam));
        return 1;
    }
    if (message == WM_PAINT && window != nullptr && window->widget) {
        window->widget->update();
    }
    return DefWindowProc(handle, message, wParam, lParam);
}

LRESULT StaticProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE || message == WM_SETTEXT) {
        return TakeText(handle, message, wParam, lParam, [handle](const QString& text) {
            auto* const label = WidgetOf<QLabel>(handle);
            const bool isPlain = (Find(handle)->style & SS_NOPREFIX) != 0;
            if (label != nullptr) {
                label->setText(isPlain ? text : WithoutPrefixes(text));
            }
            InvalidateRect(handle, nullptr, TRUE);
        });
    }
    return message == WM_GETDLGCODE ? DLGC_STATIC
                                    : ControlProcedure(handle, message, wParam, lParam);
}

LRESULT ButtonProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const button = WidgetOf<QAbstractButton>(handle);
    switch (message) {
        case WM_NCCREATE:
        case WM_SETTEXT:
            return TakeText(handle, message, wParam, lParam, [=](const QString& text) {
                if (button != nullptr) {
                    button->setText(text);
                } else if (auto* const group = WidgetOf<QGroupBox>(handle)) {
                    group->setTitle(text);
                }
            });
        case BM_GETCHECK:
            return static_cast<LRESULT>(button != nullptr && button->isChecked() ? BST_CHECKED
                                                                                 : BST_UNCHECKED);
        case BM_SETCHECK:
            if (button != nullptr) {
                button->setChecked(wParam == BST_CHECKED);
            }
            return 0;
        case BM_CLICK:
            if (button != nullptr) {
                const ByProgram scope;
                button->click();
            }
            return 0;
        default:
            return ControlProcedure(handle, message, wParam, lParam);
    }
}

LRESULT EditProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCREATE:
        case WM_SETTEXT:
            return TakeText(handle, message, wParam, lParam, [handle](const QString& text) {
                if (auto* const line = WidgetOf<QLineEdit>(handle)) {
                    line->setText(text);
                } else if (auto* const page = WidgetOf<QPlainTextEdit>(handle)) {
                    // Win32 tells the parent of what the user changes there alone.
                    const QSignalBlocker silence(page);
                    page->setPlainText(text);
                }
            });
        case WM_GETTEXT:
        case WM_GETTEXTLENGTH:
            if (Window* const window = Find(handle)) {
                window->text = EditText(handle);
            }
            [[fallthrough]];
        default:
            return ControlProcedure(handle, message, wParam, lParam);
    }
}

}  // namespace platen::win32
