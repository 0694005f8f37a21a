#include <gtest/gtest.h>

#include <platen/tiff/tags.h>

namespace {

using platen::TagName;
using platen::TagNumber;
using platen::TagWord;

TEST(CliTags, NameIsNotFoundOrLeadsToAnotherTag) {
    EXPECT_EQ(TagNumber("imagewidth"), 256);
    EXPECT_EQ(TagNumber("T4OPTIONS"), 292);
    EXPECT_EQ(TagNumber("Group3Options"), 292);
    EXPECT_EQ(TagNumber("group4options"), 293);
    EXPECT_EQ(TagNumber("ColorResponseCurves"), 301);
    EXPECT_STREQ(TagName(301), "TransferFunction");
    for (const char* unknown : {"", "Image", "ImageWidth*", "ImageWidths"}) {
        EXPECT_EQ(TagNumber(unknown), 0) << unknown;
    }
    int known = 0;
    for (std::uint32_t tag = 0; tag <= 0xFFFF; ++tag) {
        const char* name = TagName(static_cast<std::uint16_t>(tag));
        if (name != nullptr) {
            ++known;
            EXPECT_EQ(TagNumber(name), tag);
        }
    }
    EXPECT_EQ(known, 59);
}

TEST(CliTags, WordIsThatOfAnotherValue) {
    EXPECT_STREQ(TagWord(259, 32773), "PackBits");
    EXPECT_STREQ(TagWord(259, 6), "Invalid");
    EXPECT_STREQ(TagWord(254, 0x10001), "Invalid");
    EXPECT_STREQ(TagWord(33445, 0x70080), "Densitometer");
    EXPECT_STREQ(TagWord(33445, 7), "Unknown");
    EXPECT_EQ(TagWord(256, 1), nullptr);
    EXPECT_EQ(TagWord(1, 1), nullptr);
}

}  // namespace
