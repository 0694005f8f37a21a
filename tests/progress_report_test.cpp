#include <gtest/gtest.h>

#include <string>

#include <platen/progress/report.h>

namespace {

void Begun() {}
void Going() {}
void Ended() {}

TEST(Report, DisablingLosesACallbackOrShowsIt) {
    EXPECT_EQ(CORE_EnableReportCallBack(0), 0);
    CORE_SetBeginReportCallBack(&Begun);
    CORE_SetInReportCallBack(&Going);
    CORE_SetEndReportCallBack(&Ended);
    EXPECT_EQ(CORE_GetBeginReportCallBack(), nullptr);
    EXPECT_EQ(CORE_GetInReportCallBack(), nullptr);
    EXPECT_EQ(CORE_GetEndReportCallBack(), nullptr);
    EXPECT_EQ(CORE_EnableReportCallBack(5), 0);
    EXPECT_EQ(CORE_GetBeginReportCallBack(), &Begun);
    EXPECT_EQ(CORE_GetInReportCallBack(), &Going);
    EXPECT_EQ(CORE_GetEndReportCallBack(), &Ended);
    EXPECT_EQ(CORE_EnableReportCallBack(0), 5) << "the switch is kept as it was given";
}

TEST(Report, ALongMessageIsNotCutOrAShortOneKeepsARest) {
    CORE_SetReportMessage(std::string(300, 'x').c_str());
    EXPECT_EQ(CORE_GetReportMessage(), std::string(255, 'x'));
    CORE_SetReportMessage("short");
    EXPECT_STREQ(CORE_GetReportMessage(), "short");
    CORE_SetReportMessage("a part of the message that is kept");
    CORE_SetReportMessage(CORE_GetReportMessage() + 2);
    CORE_SetReportMessage(CORE_GetReportMessage());
    EXPECT_STREQ(CORE_GetReportMessage(), "part of the message that is kept");
    CORE_SetReportMessage(nullptr);
    EXPECT_STREQ(CORE_GetReportMessage(), "");
}

}  // namespace
