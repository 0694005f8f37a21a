#include <platen/platform/win32/qt/queue.h>

#include <QPoint>
#include <chrono>
#include <deque>

#include <platen/platform/win32/qt/desktop.h>
#include <platen/platform/win32/qt/window_record.h>

namespace platen::win32 {
namespace {

struct Waiting {
    MSG message;
    std::string text;
};

struct Queue {
    std::deque<Waiting> posted;
    std::deque<Waiting> input;
    std::optional<int> quit;
    Waiting lastKey{};  ///< the key message taken last, for TranslateMessage
    QPoint mouse;
};

Queue& TheQueue() {
    static auto* const queue = new Queue;
    return *queue;
}

bool IsKey(UINT message) {
    return message >= WM_KEYFIRST && message <= WM_KEYLAST;
}

DWORD Now() {
    using std::chrono::milliseconds;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<DWORD>(std::chrono::duration_cast<milliseconds>(now).count());
}

MSG MakeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const QPoint mouse = TheQueue().mouse;
    return {window, message, wParam, lParam, Now(), {mouse.x(), mouse.y()}};
}

std::optional<MSG> TakeFrom(std::deque<Waiting>& waiting, const MessageFilter& filter,
                            bool remove) {
    for (auto place = waiting.begin(); place != waiting.end(); ++place) {
        if (!filter.Fits(place->message.hwnd, place->message.message)) {
            continue;
        }
        const MSG message = place->message;
        if (remove) {
            if (IsKey(message.message)) {
                TheQueue().lastKey = std::move(*place);
            }
            waiting.erase(place);
        }
        return message;
    }
    return std::nullopt;
}

}  // namespace

bool MessageFilter::Fits(HWND target, UINT message) const {
    const bool inRange = (first == 0 && last == 0) || (message >= first && message <= last);
    return inRange && (window == nullptr || window == target || IsChild(window, target) != 0);
}

void PostInput(HWND window, UINT message, WPARAM wParam, LPARAM lParam, std::string text) {
    TheQueue().input.push_back({MakeMessage(window, message, wParam, lParam), std::move(text)});
}

void NoteMouse(QPoint place) {
    TheQueue().mouse = place;
}

std::optional<MSG> TakeMessage(const MessageFilter& filter, bool remove) {
    Queue& queue = TheQueue();
    if (auto message = TakeFrom(queue.posted, filter, remove)) {
        return message;
    }
    if (auto message = TakeFrom(queue.input, filter, remove)) {
        return message;
    }
    if (queue.quit) {
        const MSG message = MakeMessage(nullptr, WM_QUIT, static_cast<WPARAM>(*queue.quit), 0);
        if (remove) {
            queue.quit.reset();
        }
        return message;
    }
    if (const HWND window = NextToPaint(filter)) {
        return MakeMessage(window, WM_PAINT, 0, 0);
    }
    if (auto message = TakeTimer(filter, remove)) {
        message->time = Now();
        return message;
    }
    return std::nullopt;
}

bool HasMessages() {
    const Queue& queue = TheQueue();
    return !queue.posted.empty() || !queue.input.empty() || queue.quit || HasDueTimer() ||
           NextToPaint({}) != nullptr;
}

void DropMessages(HWND window) {
    const auto isFor = [window](const Waiting& waiting) { return waiting.message.hwnd == window; };
    std::erase_if(TheQueue().posted, isFor);
    std::erase_if(TheQueue().input, isFor);
}

std::optional<int> TakeQuit() {
    return std::exchange(TheQueue().quit, std::nullopt);
}

}  // namespace platen::win32

using platen::win32::Find;
using platen::win32::TheQueue;

BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window != nullptr && Find(window) == nullptr) {
        return FALSE;
    }
    TheQueue().posted.push_back({platen::win32::MakeMessage(window, message, wParam, lParam), {}});
    return TRUE;
}

void PostQuitMessage(int exitCode) {
    TheQueue().quit = exitCode;
}

BOOL TranslateMessage(const MSG* message) {
    const auto& key = TheQueue().lastKey;
    const bool isPress = message->message == WM_KEYDOWN;
    if (!isPress || key.message.hwnd != message->hwnd || key.message.wParam != message->wParam ||
        key.message.message != WM_KEYDOWN || key.message.time != message->time) {
        return isPress ? TRUE : FALSE;
    }
    // The first of the posted ones: it belongs behind its key, before what was posted meanwhile.
    const std::string backwards(key.text.rbegin(), key.text.rend());
    for (const char character : backwards) {
        MSG posted = *message;
        posted.message = WM_CHAR;
        posted.wParam = static_cast<unsigned char>(character);
        TheQueue().posted.push_front({posted, {}});
    }
    TheQueue().lastKey = {};
    return TRUE;
}

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const platen::win32::Window* found = Find(window);
    return found == nullptr || found->procedure == nullptr
               ? 0
               : found->procedure(window, message, wParam, lParam);
}
