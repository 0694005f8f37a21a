#include <platen/tiff/visited_offsets.h>

#include <platen/tiff/blocks.h>

namespace platen::tiff {
namespace {

/// The slot that holds `offset`, or the free one where it belongs. The capacity is a power of two.
/// The step differs from offset to offset, so that no choice of offsets makes long runs.
std::uint32_t* SlotOf(std::uint32_t* slots, std::size_t capacity, std::uint32_t offset) {
    constexpr std::uint32_t kScatter = 2654435769U;  // 2^32 over the golden ratio
    const std::uint32_t hash = offset * kScatter;
    const std::size_t step = hash >> 24U | 1U;
    std::size_t at = hash >> 8U & (capacity - 1);
    while (slots[at] != 0 && slots[at] != offset) {
        at = (at + step) & (capacity - 1);
    }
    return &slots[at];
}

}  // namespace

VisitedOffsets::~VisitedOffsets() {
    if (m_slots != m_inPlace) {
        ReleaseBlock(m_slots);
    }
}

bool VisitedOffsets::Add(std::uint32_t offset) {
    if (m_count >= m_capacity / 2 && !Grow()) {
        return false;
    }
    *SlotOf(m_slots, m_capacity, offset) = offset;
    ++m_count;
    return true;
}

bool VisitedOffsets::Contains(std::uint32_t offset) const {
    return *SlotOf(m_slots, m_capacity, offset) == offset;
}

bool VisitedOffsets::Grow() {
    const std::size_t capacity = 4 * m_capacity;
    auto* slots = NewBlock<std::uint32_t>(capacity);
    if (slots == nullptr) {
        return false;
    }
    for (std::size_t i = 0; i < m_capacity; ++i) {
        if (m_slots[i] != 0) {
            *SlotOf(slots, capacity, m_slots[i]) = m_slots[i];
        }
    }
    if (m_slots != m_inPlace) {
        ReleaseBlock(m_slots);
    }
    m_slots = slots;
    m_capacity = capacity;
    return true;
}

}  // namespace platen::tiff
