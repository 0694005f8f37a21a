#pragma once

#include <cstddef>
#include <cstdint>

namespace platen::tiff {

/// The directory offsets that a walk has been to, so that a chain which comes back is noticed.
/// Offset 0, which ends a chain, is never added.
class VisitedOffsets {
  public:
    VisitedOffsets();
    ~VisitedOffsets();
    VisitedOffsets(const VisitedOffsets&) = delete;
    VisitedOffsets& operator=(const VisitedOffsets&) = delete;

    /// False when memory is exhausted.
    bool Add(std::uint32_t offset);
    [[nodiscard]] bool Contains(std::uint32_t offset) const;

  private:
    static constexpr std::size_t kInPlace = 16;

    bool Grow();
    std::uint32_t* SlotOf(std::uint32_t* slots, std::size_t capacity, std::uint32_t offset) const;

    /// A hash table with open addressing, at most half full; short chains need no memory.
    std::uint32_t m_inPlace[kInPlace] = {};
    std::uint32_t* m_slots = m_inPlace;
    std::size_t m_capacity = kInPlace;
    std::size_t m_count = 0;
    std::uint32_t m_seed;
};

}  // namespace platen::tiff
