#include <gtest/gtest.h>

#include "core/errors/MErrorCom.h"
#include "core/errors/MErrorLocation.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"

namespace {

using hx::MError;

MError WithParameters(std::wstring code, const MError::Parameters& parameters) {
    MError error(std::move(code));
    for (const auto& [name, value] : parameters) error.AddParameter(name, value);
    return error;
}

TEST(Errors, ACodeLeavesOutEmptyPartsWithTheirSeparators) {
    struct Row {
        const char* class_name;
        const char* method;
        const wchar_t* error;
        const wchar_t* code;
    };
    const Row rows[] = {
        {"MLocale", "MLocale", L"BadCLocale", L"MLocale.MLocale:BadCLocale"},
        {"MLocale", "", L"BadCLocale", L"MLocale:BadCLocale"},
        {"", "Method", L"Bad", L"Method:Bad"},
        {"", "", L"Bad", L"Bad"},
        {"C", "M", L"", L"C.M"},
        {"C", "", L"", L"C"},
        {"", "M", L"", L"M"},
        {"", "", L"", L""},
    };
    for (const Row& row : rows) EXPECT_EQ(hx::ErrorCode(row.class_name, row.method, row.error), row.code);
}

TEST(Errors, ParametersAreSortedAndTheFirstValueStays) {
    MError error;
    error.AddParameter(L"b", L"1");
    error.AddParameter(L"a", 4294967295u);
    error.AddParameter(L"B", 0xABCDu, true);
    error.AddParameter(L"z", 0u, true);
    error.AddParameter(L"b", L"2");
    const MError::Parameters expected = {
        {L"B", L"0000abcdh"}, {L"a", L"4294967295"}, {L"b", L"1"}, {L"z", L"00000000h"}};
    EXPECT_EQ(error.GetParameters(), expected);
    EXPECT_EQ(error.GetParameters().begin()->first, L"B") << "by code, not by dictionary";
}

TEST(Errors, EveryKindHasItsMessageCloneAndDescriptor) {
    struct Row {
        std::unique_ptr<MError> error;
        const wchar_t* kind;
        const wchar_t* message;
        const wchar_t* new_message;
    };
    Row rows[] = {
        {std::make_unique<MError>(), L"MError", L"Unspecified error", L"Unspecified error"},
        {std::make_unique<MError>(L"C.M:E"), L"MError", L"C.M:E", L"Unspecified error"},
        {std::make_unique<hx::MErrorOutOfMemory>(L"C.M:E"), L"MErrorOutOfMemory", L"Out of memory",
         L"Out of memory"},
        {std::make_unique<hx::MErrorCom>(), L"MErrorCom", L"MErrorCom.MErrorCom:", L"MErrorCom.MErrorCom:"},
    };
    for (Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(row.kind)));
        row.error->AddParameter(L"p", L"v");
        const auto clone = row.error->Clone();
        const auto fresh = row.error->CreateNew();
        for (const hx::MDynObject* object :
             {static_cast<hx::MDynObject*>(row.error.get()), clone.get(), fresh.get()}) {
            EXPECT_EQ(object->GetDynClass().Name(), row.kind);
            EXPECT_TRUE(object->IsOfKind(MError::Class()) && object->IsOfKind(hx::MDynObject::Class()));
        }
        const auto& cloned = dynamic_cast<const MError&>(*clone);
        EXPECT_EQ(cloned.GetMessage(), row.message);
        EXPECT_EQ(cloned.GetCode(), row.error->GetCode());
        EXPECT_EQ(cloned.GetParameters(), row.error->GetParameters());
        const auto& created = dynamic_cast<const MError&>(*fresh);
        EXPECT_EQ(created.GetMessage(), row.new_message);
        EXPECT_TRUE(created.GetParameters().empty());
    }
    EXPECT_EQ(hx::MDynObject().Clone(), nullptr);
    EXPECT_EQ(hx::MDynObject().CreateNew(), nullptr);
}

TEST(Errors, KindsAreRegisteredAndComparedByName) {
    for (const wchar_t* name : {L"MErrorBadInput", L"MErrorDivisionByZero", L"MErrorInternal",
                                L"MErrorOutOfMemory", L"MErrorUserEscape", L"MErrorCom"}) {
        const hx::MDynClass* kind = hx::MDynClass::Find(name);
        ASSERT_NE(kind, nullptr);
        EXPECT_EQ(kind->Base(), &MError::Class());
        EXPECT_TRUE(kind->IsOfKind(MError::Class()) && kind->IsOfKind(hx::MDynObject::Class()));
        EXPECT_FALSE(MError::Class().IsOfKind(*kind));
    }
    EXPECT_EQ(hx::MDynClass::Find(L"MError")->Base(), &hx::MDynObject::Class());
    EXPECT_EQ(hx::MDynClass::Find(L"MDynObject")->Base(), nullptr);
    EXPECT_EQ(hx::MDynClass::Find(L"MErr"), nullptr);
    // Another module's descriptor of the same class is the same kind.
    static const hx::MDynClass elsewhere(L"MErrorOutOfMemory", nullptr);
    EXPECT_TRUE(hx::MErrorOutOfMemory().IsOfKind(elsewhere));
    EXPECT_FALSE(MError().IsOfKind(elsewhere));
}

TEST(Errors, ARecordIsFiledAndReadBackAsAPlainOne) {
    const MError::Parameters none;
    const MError::Parameters some = {{L"a", L"1"}, {L"b", L"<&>\n"}, {L"", L""}};
    for (const MError& error :
         {WithParameters(L"C.M:E", some), WithParameters(L"", none), WithParameters(L"x", none)}) {
        hx::MOutFilerTaggedXml writer(L"R");
        hx::MFilerTaggedPair out(writer);
        EXPECT_TRUE(error.Write(out, L"Error"));
        hx::MInFilerTaggedXml reader(writer.GetText(), L"R");
        hx::MFilerTaggedPair in(reader);
        MError read = WithParameters(L"old", {{L"old", L"old"}});
        EXPECT_TRUE(read.Read(in, L"Error"));
        EXPECT_EQ(read.GetCode(), error.GetCode());
        EXPECT_EQ(read.GetParameters(), error.GetParameters());
    }
}

TEST(Errors, ARecordWithoutACodeFailsButIsReadToItsEnd) {
    hx::MInFilerTaggedXml reader(
        L"<R><E><Parameter><Name type='string'>n</Name><Value "
        L"type='string'>1</Value></Parameter><Parameter><Name "
        L"type='string'>n</Name><Value type='string'>2</Value></Parameter><Parameter/></E><v "
        L"type='bool'>1</v></R>",
        L"R");
    hx::MFilerTaggedPair filer(reader);
    MError error(L"old");
    EXPECT_FALSE(error.Read(filer, L"E"));
    EXPECT_EQ(error.GetCode(), L"");
    EXPECT_EQ(error.GetParameters(), (MError::Parameters{{L"", L""}, {L"n", L"1"}}));
    bool value = false;
    EXPECT_TRUE(reader.Read(L"v", value, false));
    EXPECT_FALSE(error.Read(filer, L"E"));
}

}  // namespace
