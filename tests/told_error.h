// What the thread's error information says, for tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/com/bstr.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"

struct ToldError {
    GUID guid = GUID_NULL;
    std::wstring source;
    std::wstring description;
};

// It is forgotten then; empty if there is none.
inline ToldError TakeToldError() {
    hx::ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, information.put()) != S_OK) return {};
    GUID guid{};
    hx::Bstr source, description;
    EXPECT_EQ(information->GetGUID(&guid), S_OK);
    EXPECT_EQ(information->GetSource(source.put()), S_OK);
    EXPECT_EQ(information->GetDescription(description.put()), S_OK);
    return {guid, std::wstring(source.view()), std::wstring(description.view())};
}
