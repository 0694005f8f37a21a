#pragma once

#include <unistd.h>

#include <utility>

namespace platen {

/// A descriptor that is closed with the object; -1 is none.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0) {
            close(m_number);
        }
    }
    Descriptor(Descriptor&& other) noexcept : m_number(other.Release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_number, other.m_number);
        return *this;
    }
    [[nodiscard]] int Number() const { return m_number; }
    [[nodiscard]] bool IsOpen() const { return m_number >= 0; }
    int Release() { return std::exchange(m_number, -1); }

  private:
    int m_number = -1;
};

}  // namespace platen
