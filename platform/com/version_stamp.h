// A version in a component's stream (persist.h): major and minor number as the halves of 32 bits, low byte
// first. Usable on any thread, by one at a time.
#pragma once

#include "platform/api.h"
#include "platform/com/stream.h"

namespace hx {

inline constexpr ULONG kVersionStampBytes = 4;

// E_POINTER for no stream, STG_E_READFAULT for one that ends too soon, E_FAIL for a version whose major
// number is above that of `version`, the newest that the reader knows.
HX_PLATFORM_API HRESULT ReadVersionStamp(IStream* stream, uint32_t version);

// E_POINTER, STG_E_WRITEFAULT for a stream that takes less.
HX_PLATFORM_API HRESULT WriteVersionStamp(IStream* stream, uint32_t version);

}  // namespace hx
