#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <platen/platform/win32.h>

namespace platen::test {

/// Windows of one class that note, by their caption, which of the watched messages reach them.
class Recording {
  public:
    using Note = std::pair<std::string, UINT>;
    using Notes = std::vector<Note>;
    using Handler = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    explicit Recording(std::vector<UINT> watched, Handler handler = &::DefWindowProc) {
        s_current = this;
        m_watched = std::move(watched);
        m_handler = handler;
        WNDCLASS description{};
        description.lpfnWndProc = &Procedure;
        description.lpszClassName = kClass;
        description.hbrBackground = reinterpret_cast<HBRUSH>(std::intptr_t{COLOR_BTNFACE + 1});
        RegisterClass(&description);
    }
    ~Recording() { s_current = nullptr; }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    static HWND Make(LPCSTR name, DWORD style, HWND parent = nullptr, int identifier = 0) {
        const auto menu = reinterpret_cast<HMENU>(static_cast<std::intptr_t>(identifier));
        return CreateWindowEx(0, kClass, name, style, 10, 20, 200, 100, parent, menu, nullptr,
                              nullptr);
    }

    /// What was noted since the last call.
    Notes Take() { return std::exchange(m_notes, {}); }
    /// How often a message came since the notes were last taken.
    [[nodiscard]] std::ptrdiff_t Count(UINT message) const {
        return std::ranges::count(m_notes, message, &Note::second);
    }

  private:
    static constexpr LPCSTR kClass = "PlatenTestRecorder";

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (s_current == nullptr) {
            return ::DefWindowProc(window, message, wParam, lParam);
        }
        if (std::ranges::count(s_current->m_watched, message) > 0) {
            char name[16] = "";
            ::DefWindowProc(window, WM_GETTEXT, sizeof(name), reinterpret_cast<LPARAM>(name));
            s_current->m_notes.emplace_back(name, message);
        }
        return s_current->m_handler(window, message, wParam, lParam);
    }

    static inline Recording* s_current = nullptr;
    std::vector<UINT> m_watched;
    Handler m_handler = nullptr;
    Notes m_notes;
};

/// Dispatches what waits, until nothing does.
inline void Pump() {
    MSG message;
    while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        TranslateMessage(&message);
        DispatchMessage(&message);
    }
}

/// A window that ends with the test.
class Scoped {
  public:
    explicit Scoped(HWND window) : m_window(window) {}
    ~Scoped() { DestroyWindow(m_window); }
    Scoped(const Scoped&) = delete;
    Scoped& operator=(const Scoped&) = delete;
    operator HWND() const { return m_window; }  // NOLINT(google-explicit-constructor)

  private:
    HWND m_window;
};

}  // namespace platen::test
