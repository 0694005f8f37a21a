#pragma once

#include <platen/platform/win32.h>

#include "tests/support/deadline.h"

namespace platen::test {

/// Dispatches what comes until the condition holds; false when it never does.
template <class Condition>
bool PumpUntil(Condition holds) {
    // Without other messages the condition is looked at now and then.
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, nullptr);
    for (const Deadline deadline; !holds() && !deadline.IsOver();) {
        MSG message = {};
        GetMessage(&message, nullptr, 0, 0);
        TranslateMessage(&message);
        DispatchMessage(&message);
    }
    KillTimer(nullptr, timer);
    return holds();
}

}  // namespace platen::test
