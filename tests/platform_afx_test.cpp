#include <gtest/gtest.h>

#include <memory>
#include <new>

#include <platen/platform/afx.h>

class Instrument : public CObject {
    DECLARE_DYNCREATE(Instrument)
  public:
    int reading = 7;
};
IMPLEMENT_DYNCREATE(Instrument, CObject)

namespace {

TEST(Classes, ARegisteredClassIsNotFoundOrNotCreated) {
    CRuntimeClass* record = CRuntimeClass::FromName("Instrument");
    ASSERT_EQ(record, RUNTIME_CLASS(Instrument));
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(Instrument)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFU);
    EXPECT_EQ(record->m_pfnGetBaseClass(), RUNTIME_CLASS(CObject));
    const std::unique_ptr<CObject> object(record->CreateObject());
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetRuntimeClass(), record);
    EXPECT_EQ(static_cast<Instrument*>(object.get())->reading, 7);
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_TRUE(object->IsKindOf(record));
}

TEST(Classes, AnUnrelatedUnknownOrAbstractClassIsAccepted) {
    EXPECT_FALSE(RUNTIME_CLASS(CObject)->IsDerivedFrom(RUNTIME_CLASS(Instrument)));
    EXPECT_EQ(CRuntimeClass::FromName("Instrumen"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName(""), nullptr);
    ASSERT_NE(CRuntimeClass::FromName("CObject"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName("CObject")->CreateObject(), nullptr);
}

TEST(Text, CopiesShareTheirTextOrNullIsRead) {
    CString text("scan");
    const CString copy = text;
    text += " 2";
    text += nullptr;
    EXPECT_STREQ(text, "scan 2");
    EXPECT_STREQ(copy, "scan");
    EXPECT_EQ(text.GetAt(5), '2');
    EXPECT_TRUE(CString(nullptr) == "");
    text.Empty();
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_FALSE(copy == text);
}

TEST(Text, FormattingATextIntoItselfReadsReleasedMemory) {
    CString text("a text that is too long for any place inside the object");
    text.Format("%s, %d of %d", static_cast<LPCSTR>(text), 2, 5);
    EXPECT_STREQ(text, "a text that is too long for any place inside the object, 2 of 5");
    EXPECT_EQ(text.GetLength(), 63);
    text.Format("%s", "");
    EXPECT_TRUE(text.IsEmpty());
}

}  // namespace
