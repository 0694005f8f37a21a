#include <platen/platform/win32/qt/desktop.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QBasicTimer>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <clocale>
#include <memory>
#include <string>
#include <vector>

#include <platen/platform/win32/qt/activation.h>
#include <platen/platform/win32/qt/keys.h>
#include <platen/platform/win32/qt/pump.h>
#include <platen/platform/win32/qt/queue.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

/// How long no window of the program has the focus before the program counts as left: moving from
/// one window to another looks the same at first.
constexpr int kLeaveDelay = 50;

/// The widget of a native window, or null.
QWidget* WidgetOf(const QObject* object) {
    if (object->isWidgetType()) {
        return qobject_cast<QWidget*>(const_cast<QObject*>(object));
    }
    if (!object->isWindowType()) {
        return nullptr;
    }
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->windowHandle() == object) {
            return widget;
        }
    }
    return nullptr;
}

bool IsDisabled(const QObject* object) {
    const QWidget* const widget = WidgetOf(object);
    const HWND handle = widget == nullptr ? nullptr : HandleOf(widget->window());
    return handle != nullptr && (Find(handle)->style & WS_DISABLED) != 0;
}

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::NativeGesture:
        case QEvent::ContextMenu:
            return true;
        default:
            return false;
    }
}

/// Watches the application: keys, what disabled windows must not get, focus, and idle moments of a
/// host's own loop.
class Watcher : public QObject {
  public:
    explicit Watcher(QApplication& application) : QObject(&application) {
        application.installEventFilter(this);
        connect(&application, &QApplication::focusChanged, this,
                [](QWidget* /*old*/, QWidget* now) { FollowFocus(now); });
        connect(&application, &QGuiApplication::focusWindowChanged, this,
                [this](QWindow* window) { FollowWindow(window); });
        connect(&application, &QGuiApplication::applicationStateChanged, this,
                [](Qt::ApplicationState state) {
                    if (state != Qt::ApplicationActive) {
                        ReleaseAllKeys();
                    }
                });
        auto* const dispatcher = QAbstractEventDispatcher::instance();
        connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [this] { WakeLoop(); });
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const QEvent::Type type = event->type();
        if (watched->isWindowType() && (type == QEvent::KeyPress || type == QEvent::KeyRelease) &&
            event->spontaneous()) {
            NoteKeyEvent(*static_cast<QKeyEvent*>(event));
        }
        if (type == QEvent::ShortcutOverride && IsDisabled(watched)) {
            event->accept();
            return true;
        }
        if (type == QEvent::Close && event->spontaneous() && IsDisabled(watched)) {
            event->ignore();
            return true;
        }
        if (!IsInput(type)) {
            return false;
        }
        if (watched->isWindowType()) {
            return event->spontaneous() && HoldInput(watched, *event);
        }
        return watched->isWidgetType() && IsDisabled(watched);
    }

    void customEvent(QEvent* /*event*/) override {
        m_isWaking = false;
        if (!IsPumping()) {
            DispatchWaiting();
        }
    }

    void timerEvent(QTimerEvent* /*event*/) override {
        m_leaving.stop();
        if (QGuiApplication::focusWindow() == nullptr) {
            FollowActiveWindow(nullptr);
        }
    }

  private:
    void FollowWindow(const QWindow* window) {
        if (window != nullptr) {
            FollowActiveWindow(WidgetOf(window));
            return;
        }
        m_leaving.start(kLeaveDelay, this);
    }

    /// A host's own loop is about to sleep while messages wait.
    void WakeLoop() {
        if (!m_isWaking && !IsPumping() && HasMessages()) {
            m_isWaking = true;
            QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        }
    }

    bool m_isWaking = false;
    QBasicTimer m_leaving;
};

QPointer<Watcher>& TheWatcher() {
    static auto* const watcher = new QPointer<Watcher>;
    return *watcher;
}

/// The application object lives as long as the program: Qt cannot make a second one reliably.
void MakeApplication() {
    static int count = 1;
    static char name[] = "platen";
    static char* arguments[] = {name, nullptr};
    if (!qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("WAYLAND_DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // Qt sets the program's locale, which is not a library's to change.
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    static auto* const application = new QApplication(count, arguments);
    std::setlocale(LC_ALL, locale.c_str());
    application->setQuitOnLastWindowClosed(false);
}

std::vector<QPointer<QWidget>>& BuriedWidgets() {
    static auto* const widgets = new std::vector<QPointer<QWidget>>;
    return *widgets;
}

}  // namespace

bool NeedDesktop() {
    if (TheWatcher()) {
        return true;
    }
    if (QCoreApplication::instance() == nullptr) {
        MakeApplication();
    }
    auto* const application = qobject_cast<QApplication*>(QCoreApplication::instance());
    if (application != nullptr) {
        TheWatcher() = new Watcher(*application);
    }
    return application != nullptr;
}

void Bury(QWidget* widget) {
    if (widget == nullptr) {
        return;
    }
    widget->hide();
    if (!EventScope::IsOpen()) {
        delete widget;
        return;
    }
    BuriedWidgets().emplace_back(widget);
    widget->deleteLater();
}

void DeleteBuried() {
    if (EventScope::IsOpen() || BuriedWidgets().empty()) {
        return;
    }
    for (const QPointer<QWidget>& widget : std::exchange(BuriedWidgets(), {})) {
        delete widget.data();
    }
}

}  // namespace platen::win32
