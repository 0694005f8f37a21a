#include <platen/platform/win32/qt/keys.h>

#include <QApplication>
#include <algorithm>
#include <array>
#include <chrono>
#include <deque>
#include <utility>

#include <platen/platform/win32/message.h>
#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kReleaseDelay{30};
constexpr std::size_t kKeys = 256;

struct Key {
    bool isDown = false;
    bool isToggled = false;
    bool isReleased = false;  ///< let go of at `released`, which is not sure yet
    Clock::time_point released;
};

struct PressedKey {
    int virtualKey;
    bool isRelease;
};

std::array<Key, kKeys> g_keys;

std::deque<PressedKey>& PressedKeys() {
    static auto* const keys = new std::deque<PressedKey>;
    return *keys;
}

constexpr auto kKeyTable = std::to_array<std::pair<int, int>>({
    {Qt::Key_Escape, VK_ESCAPE},    {Qt::Key_Tab, VK_TAB},       {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},    {Qt::Key_Enter, VK_RETURN},  {Qt::Key_Backspace, VK_BACK},
    {Qt::Key_Space, VK_SPACE},      {Qt::Key_Insert, VK_INSERT}, {Qt::Key_Delete, VK_DELETE},
    {Qt::Key_Home, VK_HOME},        {Qt::Key_End, VK_END},       {Qt::Key_PageUp, VK_PRIOR},
    {Qt::Key_PageDown, VK_NEXT},    {Qt::Key_Left, VK_LEFT},     {Qt::Key_Up, VK_UP},
    {Qt::Key_Right, VK_RIGHT},      {Qt::Key_Down, VK_DOWN},     {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL},  {Qt::Key_Alt, VK_MENU},      {Qt::Key_AltGr, VK_MENU},
    {Qt::Key_CapsLock, VK_CAPITAL}, {Qt::Key_Pause, VK_PAUSE},   {Qt::Key_Cancel, VK_CANCEL},
});

bool IsSameInBoth(int key) {
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

int QtKeyOf(int virtualKey) {
    if (IsSameInBoth(virtualKey)) {
        return virtualKey;
    }
    if (virtualKey >= VK_F1 && virtualKey < VK_F1 + 24) {
        return Qt::Key_F1 + virtualKey - VK_F1;
    }
    const auto* const found =
        std::ranges::find(kKeyTable, virtualKey, &std::pair<int, int>::second);
    return found == kKeyTable.end() ? Qt::Key_unknown : found->first;
}

Key& KeyOf(int virtualKey) {
    return g_keys[static_cast<std::size_t>(virtualKey) % kKeys];
}

bool IsDown(Key& key) {
    if (key.isReleased && Clock::now() - key.released >= kReleaseDelay) {
        key.isDown = false;
        key.isReleased = false;
    }
    return key.isDown;
}

Qt::KeyboardModifiers ModifiersDown() {
    Qt::KeyboardModifiers modifiers;
    modifiers.setFlag(Qt::ShiftModifier, IsDown(KeyOf(VK_SHIFT)));
    modifiers.setFlag(Qt::ControlModifier, IsDown(KeyOf(VK_CONTROL)));
    modifiers.setFlag(Qt::AltModifier, IsDown(KeyOf(VK_MENU)));
    return modifiers;
}

/// What a key types; small letters without Shift.
QString TextOf(int virtualKey, Qt::KeyboardModifiers modifiers) {
    if (virtualKey >= 'A' && virtualKey <= 'Z' && !modifiers.testFlag(Qt::ShiftModifier)) {
        return QChar(virtualKey + ('a' - 'A'));
    }
    const bool isTyped = IsSameInBoth(virtualKey) || virtualKey == VK_SPACE ||
                         virtualKey == VK_RETURN || virtualKey == VK_TAB || virtualKey == VK_BACK ||
                         virtualKey == VK_ESCAPE;
    return isTyped ? QString(QChar(virtualKey)) : QString();
}

void Note(const PressedKey& key) {
    if (key.isRelease) {
        NoteRelease(key.virtualKey, true);
    } else {
        NotePress(key.virtualKey);
    }
}

QWidget* KeyTarget() {
    const Window* const focus = Find(GetFocus());
    return focus == nullptr ? QApplication::focusWidget() : focus->widget.data();
}

}  // namespace

int VirtualKeyOf(int qtKey) {
    if (IsSameInBoth(qtKey)) {
        return qtKey;
    }
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24) {
        return VK_F1 + qtKey - Qt::Key_F1;
    }
    const auto* const found = std::ranges::find(kKeyTable, qtKey, &std::pair<int, int>::first);
    return found == kKeyTable.end() ? 0 : found->second;
}

void NotePress(int virtualKey) {
    Key& key = KeyOf(virtualKey);
    if (!IsDown(key)) {
        key.isToggled = !key.isToggled;
    }
    key.isDown = true;
    key.isReleased = false;
}

void NoteRelease(int virtualKey, bool atOnce) {
    Key& key = KeyOf(virtualKey);
    key.isReleased = key.isDown && !atOnce;
    key.isDown = key.isReleased;
    key.released = Clock::now();
}

void ReleaseAllKeys() {
    for (Key& key : g_keys) {
        key.isDown = false;
        key.isReleased = false;
    }
}

void NoteKeyEvent(const QKeyEvent& event) {
    const int virtualKey = VirtualKeyOf(event.key());
    if (virtualKey != 0 && event.type() == QEvent::KeyPress) {
        NotePress(virtualKey);
    } else if (virtualKey != 0) {
        NoteRelease(virtualKey, false);
    }
}

bool DeliverPressedKeys() {
    auto& keys = PressedKeys();
    const bool any = !keys.empty();
    while (!keys.empty()) {
        const PressedKey key = keys.front();
        keys.pop_front();
        const Qt::KeyboardModifiers modifiers = ModifiersDown();
        Note(key);
        if (QWidget* const target = KeyTarget()) {
            QKeyEvent event(key.isRelease ? QEvent::KeyRelease : QEvent::KeyPress,
                            QtKeyOf(key.virtualKey), modifiers, TextOf(key.virtualKey, modifiers));
            QCoreApplication::sendEvent(target, &event);
        }
    }
    return any;
}

}  // namespace platen::win32

SHORT GetKeyState(int key) {
    auto& state = platen::win32::KeyOf(key);
    const int down = platen::win32::IsDown(state) ? -0x8000 : 0;
    return static_cast<SHORT>(down | (state.isToggled ? 1 : 0));
}

void keybd_event(BYTE key, BYTE /*scanCode*/, DWORD flags, ULONG_PTR /*extra*/) {
    using namespace platen::win32;
    const PressedKey pressed{key, (flags & KEYEVENTF_KEYUP) != 0};
    if (!NeedDesktop() || KeyTarget() == nullptr) {
        Note(pressed);
        return;
    }
    PressedKeys().push_back(pressed);
    NoteWork();
}
