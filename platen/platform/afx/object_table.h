#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace platen::afx {

/// Objects by handle. The chains run through the objects, so that entering one needs no memory, and
/// a table of static storage serves objects that are destroyed after it.
template <class Object, auto HandleOf>
class ObjectTable {
    using Handle = std::remove_cvref_t<decltype(std::declval<Object&>().*HandleOf)>;

  public:
    [[nodiscard]] Object* Find(Handle handle) const {
        Object* object = m_chains[Index(handle)];
        while (object != nullptr && object->*HandleOf != handle) {
            object = object->m_next;
        }
        return object;
    }

    void Insert(Object& object) {
        Object*& first = m_chains[Index(object.*HandleOf)];
        object.m_next = first;
        first = &object;
    }

    void Remove(Object& object) {
        Object** link = &m_chains[Index(object.*HandleOf)];
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
        for (Object*& first : m_chains) {
            Object** link = &first;
            while (*link != nullptr) {
                Object* object = *link;
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
    static std::size_t Index(Handle handle) {
        const auto bits = reinterpret_cast<std::uintptr_t>(handle);
        return (bits ^ (bits >> 4) ^ (bits >> 10)) % kChains;
    }

    static constexpr std::size_t kChains = 64;
    std::array<Object*, kChains> m_chains = {};
};

}  // namespace platen::afx
