#include "platform/com/version_stamp.h"

namespace hx {

HRESULT ReadVersionStamp(IStream* stream, uint32_t version) {
    if (!stream) return E_POINTER;
    BYTE bytes[kVersionStampBytes] = {};
    // A stream may give less than it was asked for before it ends.
    for (ULONG have = 0; have < kVersionStampBytes;) {
        ULONG done = 0;
        const HRESULT read = stream->Read(bytes + have, kVersionStampBytes - have, &done);
        if (FAILED(read)) return read;
        if (done == 0 || done > kVersionStampBytes - have) return STG_E_READFAULT;
        have += done;
    }
    const uint32_t stored =
        bytes[0] | uint32_t{bytes[1]} << 8 | uint32_t{bytes[2]} << 16 | uint32_t{bytes[3]} << 24;
    return stored >> 16 > version >> 16 ? E_FAIL : S_OK;
}

HRESULT WriteVersionStamp(IStream* stream, uint32_t version) {
    if (!stream) return E_POINTER;
    BYTE bytes[kVersionStampBytes];
    for (ULONG i = 0; i < kVersionStampBytes; ++i) bytes[i] = static_cast<BYTE>(version >> 8 * i);
    ULONG done = 0;
    const HRESULT written = stream->Write(bytes, kVersionStampBytes, &done);
    if (FAILED(written)) return written;
    return done == kVersionStampBytes ? S_OK : STG_E_WRITEFAULT;
}

}  // namespace hx
