// What the test component library offers to the tests.
#pragma once

#include "platform/com/unknown.h"

HX_IID(ITally, "C0000000-0000-0000-0000-000000000001")
struct ITally : IUnknown {
    // How many objects this loaded copy of the library has made: starts anew when it is loaded anew.
    virtual int Created() = 0;
};

inline constexpr CLSID CLSID_Tally = hx::MakeGuid("C0000000-0000-0000-0000-0000000000A1");

// No class: asking for its factory makes the library ask that unused libraries be unloaded.
inline constexpr CLSID CLSID_Unloading = hx::MakeGuid("C0000000-0000-0000-0000-0000000000AF");
