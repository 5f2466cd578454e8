// A settings object as a host gets it: from the factory, through the component library.
#pragma once

#include "hxapi/IXmlBstrSerializable.h"
#include "platform/com/comptr.h"

namespace hosting {

// What was called last, and what it said.
struct CalledLast {
    const char* operation;
    HRESULT result;
};

// Of a ProfileSettingsType; null on failure.
CalledLast CreateSettings(int type, hx::ComPtr<IXmlBstrSerializable>& settings);

}  // namespace hosting
