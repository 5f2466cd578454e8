#include "platform/com/errorinfo.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "platform/com/comptr.h"

namespace {

hx::ComPtr<IErrorInfo> MakeInfo(std::wstring description) {
    hx::ComPtr<ICreateErrorInfo> info;
    EXPECT_EQ(CreateErrorInfo(info.put()), S_OK);
    EXPECT_EQ(info->SetDescription(description.data()), S_OK);
    return info.as<IErrorInfo>();
}

// What GetErrorInfo hands over, "-" for nothing.
std::wstring TakeDescription() {
    hx::ComPtr<IErrorInfo> info;
    const HRESULT result = GetErrorInfo(0, info.put());
    EXPECT_EQ(result, info ? S_OK : S_FALSE);
    if (!info) return L"-";
    hx::Bstr text;
    EXPECT_EQ(info->GetDescription(text.put()), S_OK);
    return std::wstring(text.view());
}

TEST(ErrorInfo, CarriesWhatWasSet) {
    hx::ComPtr<ICreateErrorInfo> create;
    ASSERT_EQ(CreateErrorInfo(create.put()), S_OK);
    const auto info = create.as<IErrorInfo>();
    ASSERT_TRUE(info);

    struct Row {
        std::wstring text;
        HRESULT (ICreateErrorInfo::*set)(LPOLESTR);
        HRESULT (IErrorInfo::*get)(BSTR*);
    };
    Row rows[] = {
        {L"Acme.Thing.1", &ICreateErrorInfo::SetSource, &IErrorInfo::GetSource},
        {L"went wrong", &ICreateErrorInfo::SetDescription, &IErrorInfo::GetDescription},
        {L"help.chm", &ICreateErrorInfo::SetHelpFile, &IErrorInfo::GetHelpFile},
    };
    for (Row& row : rows) {
        hx::Bstr text(L"old");
        EXPECT_EQ((info.get()->*row.get)(text.put()), S_OK);
        EXPECT_TRUE(text.is_null()) << "never set";
        EXPECT_EQ((create.get()->*row.set)(row.text.data()), S_OK);
    }
    for (const Row& row : rows) {
        hx::Bstr text;
        EXPECT_EQ((info.get()->*row.get)(text.put()), S_OK);
        EXPECT_EQ(text.view(), row.text);
        EXPECT_EQ((create.get()->*row.set)(nullptr), S_OK);
        EXPECT_EQ((info.get()->*row.get)(text.put()), S_OK);
        EXPECT_TRUE(text.is_null()) << "unset again";
        EXPECT_EQ((info.get()->*row.get)(nullptr), E_POINTER);
    }
    GUID guid = IID_IUnknown;
    DWORD context = 1;
    EXPECT_EQ(create->SetGUID(IID_IErrorInfo), S_OK);
    EXPECT_EQ(create->SetHelpContext(0x80000001), S_OK);
    EXPECT_EQ(info->GetGUID(&guid), S_OK);
    EXPECT_EQ(info->GetHelpContext(&context), S_OK);
    EXPECT_TRUE(guid == IID_IErrorInfo && context == 0x80000001);
}

TEST(ErrorInfo, IsHandedOverOnce) {
    EXPECT_EQ(TakeDescription(), L"-");
    EXPECT_EQ(SetErrorInfo(0, MakeInfo(L"first").get()), S_OK);
    EXPECT_EQ(SetErrorInfo(0, MakeInfo(L"second").get()), S_OK);
    EXPECT_EQ(TakeDescription(), L"second");
    EXPECT_EQ(TakeDescription(), L"-");
    const auto info = MakeInfo(L"third");
    EXPECT_EQ(SetErrorInfo(0, info.get()), S_OK);
    EXPECT_EQ(SetErrorInfo(1, nullptr), E_INVALIDARG);
    hx::ComPtr<IErrorInfo> out;
    EXPECT_EQ(GetErrorInfo(1, out.put()), E_INVALIDARG);
    EXPECT_EQ(info->AddRef(), 3u) << "a refused call changed what is set";
    info->Release();
    EXPECT_EQ(SetErrorInfo(0, nullptr), S_OK);
    EXPECT_EQ(TakeDescription(), L"-");
}

TEST(ErrorInfo, BelongsToItsThread) {
    EXPECT_EQ(SetErrorInfo(0, MakeInfo(L"mine").get()), S_OK);
    const auto left_behind = MakeInfo(L"theirs");
    std::wstring before;
    std::thread other([&] {
        before = TakeDescription();
        SetErrorInfo(0, left_behind.get());
    });
    other.join();
    EXPECT_EQ(before, L"-");
    EXPECT_EQ(TakeDescription(), L"mine");
    EXPECT_EQ(left_behind->AddRef(), 2u) << "a thread's information goes with the thread";
    left_behind->Release();
}

}  // namespace
