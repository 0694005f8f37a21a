#include <platen/tiff/visited_offsets.h>

#include <platen/tiff/blocks.h>

namespace platen::tiff {
namespace {

/// Mixes every bit of the offset with every bit of the seed, so that no choice of offsets, made
/// without knowing the seed, makes long runs.
std::uint32_t Mix(std::uint32_t offset, std::uint32_t seed) {
    std::uint32_t hash = offset ^ seed;
    hash = (hash ^ hash >> 16U) * 0x85EBCA6BU;
    hash = (hash ^ hash >> 13U) * 0xC2B2AE35U;
    return hash ^ hash >> 16U;
}

}  // namespace

/// Where the object lies differs from run to run.
VisitedOffsets::VisitedOffsets()
    : m_seed(static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(this) >> 4U)) {}

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

/// The slot that holds `offset`, or the free one where it belongs. The capacity is a power of two.
std::uint32_t* VisitedOffsets::SlotOf(std::uint32_t* slots, std::size_t capacity,
                                      std::uint32_t offset) const {
    std::size_t at = Mix(offset, m_seed) & (capacity - 1);
    while (slots[at] != 0 && slots[at] != offset) {
        at = (at + 1) & (capacity - 1);
    }
    return &slots[at];
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
