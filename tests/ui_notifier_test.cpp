#include <gtest/gtest.h>

#include <bit>
#include <cstddef>

#include <platen/ui/notifier.h>

namespace {

TEST(Notifiers, DefaultsAreNotNeutral) {
    Notifier source;
    EXPECT_EQ(source.bGetEnableDrawFlag(), 1);
    source.vSetEnableDrawFlag(7);
    Notifier copy(source);
    Notifier assigned;
    assigned = source;
    EXPECT_EQ(copy.bGetEnableDrawFlag(), 7);
    EXPECT_EQ(assigned.bGetEnableDrawFlag(), 7);
    EXPECT_EQ(copy.isModified(), 0);
    EXPECT_EQ(copy.onSelect(-3), -3);
    for (const auto event :
         {&Notifier::mouseMove, &Notifier::lButtonDown, &Notifier::lButtonUp,
          &Notifier::lButtonDblClk, &Notifier::rButtonDown, &Notifier::rButtonUp}) {
        EXPECT_EQ((copy.*event)(0, CPoint(1, 2)), 0);
    }
    for (const auto event : {&Notifier::keyChar, &Notifier::keyDown, &Notifier::keyUp}) {
        EXPECT_EQ((copy.*event)('A', 1, 0), 0);
    }
    EXPECT_EQ(copy.onRename(Notifier::TX_BEGIN, &source), 1);
    EXPECT_EQ(copy.onSize(Notifier::TX_END, 3, 4), 1);
    EXPECT_EQ(copy.onSize(Notifier::TX_END), 1);
    EXPECT_EQ(copy.onMove(Notifier::TX_END, -3, 4), 1);
    EXPECT_EQ(copy.onMove(Notifier::TX_END), 1);
    EXPECT_EQ(copy.onDestroy(), 0);
    EXPECT_EQ(copy.remove(), 1);
    EXPECT_EQ(copy.remove(&source), 1);
    EXPECT_EQ(copy.getAction(), 0U);
    EXPECT_EQ(copy.getData(), nullptr);
    EXPECT_EQ(copy.getInspector(), nullptr);
    CString text = "abc";
    EXPECT_STREQ(copy.save(text), "abc");
    EXPECT_STREQ(copy.load(text), "abc");
    EXPECT_STREQ(copy.GetRuntimeClass()->m_lpszClassName, "Notifier");
}

/// Where the table of virtual functions holds one, by the C++ ABI of these compilers: the
/// destructor takes two places.
template <typename Result, typename... Arguments>
std::ptrdiff_t SlotOf(Result (Notifier::*function)(Arguments...)) {
    struct Member {
        std::ptrdiff_t slot;
        std::ptrdiff_t adjustment;
    };
    const auto bytes = static_cast<std::ptrdiff_t>(sizeof(void*));
    return (std::bit_cast<Member>(function).slot - 1) / bytes - 1;
}

TEST(Notifiers, VirtualFunctionsStandElsewhere) {
    using N = Notifier;
    const std::ptrdiff_t slots[] = {
        SlotOf(&N::mouseMove),
        SlotOf(&N::lButtonDown),
        SlotOf(&N::lButtonUp),
        SlotOf(&N::lButtonDblClk),
        SlotOf(&N::rButtonDown),
        SlotOf(&N::rButtonUp),
        SlotOf(&N::keyChar),
        SlotOf(&N::keyDown),
        SlotOf(&N::keyUp),
        SlotOf(&N::onRename),
        SlotOf(&N::onSelect),
        SlotOf<int, N::TXSTATE, long, long>(&N::onSize),
        SlotOf<int, N::TXSTATE>(&N::onSize),
        SlotOf<int, N::TXSTATE, long, long>(&N::onMove),
        SlotOf<int, N::TXSTATE>(&N::onMove),
        SlotOf(&N::getData),
        SlotOf(&N::onDestroy),
        SlotOf<int>(&N::remove),
        SlotOf<int, N*>(&N::remove),
        SlotOf(&N::draw),
        SlotOf<void, unsigned, N*, N*>(&N::doAction),
        SlotOf<void, unsigned, N*>(&N::doAction),
        SlotOf<void, unsigned>(&N::doAction),
        SlotOf(&N::getAction),
        SlotOf(&N::save),
        SlotOf(&N::load),
        SlotOf(&N::isModified),
        SlotOf(&N::setInspector),
        SlotOf(&N::getInspector),
    };
    for (std::size_t i = 0; i < std::size(slots); ++i) {
        EXPECT_EQ(slots[i], static_cast<std::ptrdiff_t>(i + 2))
            << "the operation of slot " << i + 2;
    }
}

}  // namespace
