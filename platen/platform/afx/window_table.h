#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <platen/platform/afx/wnd.h>

namespace platen::afx {

/// Window objects by handle. The chains run through the objects, so that entering one needs no
/// memory, and a table of static storage serves objects that are destroyed after it.
class WindowTable {
  public:
    [[nodiscard]] CWnd* Find(HWND window) const {
        CWnd* object = m_chains[Index(window)];
        while (object != nullptr && object->m_hWnd != window) {
            object = object->m_next;
        }
        return object;
    }

    void Insert(CWnd& object) {
        CWnd*& first = m_chains[Index(object.m_hWnd)];
        object.m_next = first;
        first = &object;
    }

    void Remove(CWnd& object) {
        CWnd** link = &m_chains[Index(object.m_hWnd)];
        while (*link != nullptr && *link != &object) {
            link = &(*link)->m_next;
        }
        if (*link != nullptr) {
            *link = object.m_next;
        }
    }

    /// Removes the objects that fit, and hands each one over.
    template <class Fits, class Take>
    void RemoveIf(Fits fits, Take take) {
        for (CWnd*& first : m_chains) {
            CWnd** link = &first;
            while (*link != nullptr) {
                CWnd* object = *link;
                if (fits(*object)) {
                    *link = object->m_next;
                    take(object);
                } else {
                    link = &object->m_next;
                }
            }
        }
    }

  private:
    static std::size_t Index(HWND window) {
        const auto bits = reinterpret_cast<std::uintptr_t>(window);
        return (bits ^ (bits >> 4) ^ (bits >> 10)) % kChains;
    }

    static constexpr std::size_t kChains = 64;
    std::array<CWnd*, kChains> m_chains = {};
};

}  // namespace platen::afx
