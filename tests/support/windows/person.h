#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <platen/platform/win32.h>

#include "tests/support/deadline.h"

namespace platen::test {

inline void Press(int key) {
    keybd_event(static_cast<BYTE>(key), 0, 0, 0);
    keybd_event(static_cast<BYTE>(key), 0, KEYEVENTF_KEYUP, 0);
}

/// Who sits at a modal dialog: does one step after the other, a step again until it answers true.
/// A step is given the active window. Who gets no further cancels in the end, and the test has
/// failed.
class Person {
  public:
    using Step = std::function<bool(HWND active)>;

    explicit Person(std::vector<Step> steps) : m_steps(std::move(steps)) {
        g_person = this;
        m_timer = SetTimer(nullptr, 0, 20, &Tick);
    }
    ~Person() {
        KillTimer(nullptr, m_timer);
        g_person = nullptr;
        EXPECT_EQ(m_next, m_steps.size()) << "a step of the person's was not done";
    }
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;

    /// The steps of pressing keys: letters, digits and keys by number.
    static Step Types(std::string keys) {
        return [keys = std::move(keys)](HWND) {
            for (const char key : keys) {
                Press(key);
            }
            return true;
        };
    }
    /// Waits for another active window than `window`.
    static Step SeesOther(HWND window) {
        return [window](HWND active) { return active != nullptr && active != window; };
    }
    static Step Answers(WPARAM command) {
        return
            [command](HWND active) { return PostMessage(active, WM_COMMAND, command, 0) != FALSE; };
    }

  private:
    static void CALLBACK Tick(HWND /*window*/, UINT /*message*/, UINT_PTR /*timer*/,
                              DWORD /*time*/) {
        if (g_person != nullptr) {
            g_person->Act();
        }
    }

    void Act() {
        const HWND active = GetActiveWindow();
        if (m_deadline.IsOver()) {
            Press(VK_ESCAPE);
        } else if (!m_acting && m_next != m_steps.size()) {
            m_acting = true;
            if (m_steps[m_next](active)) {
                ++m_next;
            }
            m_acting = false;
        }
    }

    static inline Person* g_person = nullptr;
    std::vector<Step> m_steps;
    std::size_t m_next = 0;
    UINT_PTR m_timer;
    Deadline m_deadline;
    bool m_acting = false;
};

}  // namespace platen::test
