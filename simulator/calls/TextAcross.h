// Texts that cross interfaces. On the thread of the call; throws std::bad_alloc.
#pragma once

#include <string>
#include <string_view>

#include "platform/com/bstr.h"

namespace hx::simulator {

inline std::wstring TextOf(BSTR text) {
    return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

// A new string for the caller; E_POINTER without a place for it.
inline HRESULT GiveText(std::wstring_view text, BSTR* out) {
    if (out == nullptr) return E_POINTER;
    *out = Bstr(text).detach();
    return S_OK;
}

}  // namespace hx::simulator
