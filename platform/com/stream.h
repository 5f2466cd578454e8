// Streams: bytes that a container keeps for a component, which writes and reads them from front to back.
// Implemented by containers; used by one at a time.
#pragma once

#include "platform/com/unknown.h"

// The halves are those of the machine: the low one first.
union LARGE_INTEGER {
    struct {
        DWORD LowPart;
        LONG HighPart;
    } u;
    int64_t QuadPart;
};
union ULARGE_INTEGER {
    struct {
        DWORD LowPart;
        DWORD HighPart;
    } u;
    uint64_t QuadPart;
};

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

struct STATSTG {
    LPOLESTR pwcsName;  // to be freed with CoTaskMemFree
    DWORD type;
    ULARGE_INTEGER cbSize;
    FILETIME mtime;
    FILETIME ctime;
    FILETIME atime;
    DWORD grfMode;
    DWORD grfLocksSupported;
    CLSID clsid;
    DWORD grfStateBits;
    DWORD reserved;
};

HX_IID(ISequentialStream, "0C733A30-2A1C-11CE-ADE5-00AA0044773D")
struct ISequentialStream : IUnknown {
    // Fewer bytes than asked for are no failure: S_FALSE, or S_OK. `done` may be null.
    virtual HRESULT STDMETHODCALLTYPE Read(void* bytes, ULONG count, ULONG* done) = 0;
    virtual HRESULT STDMETHODCALLTYPE Write(const void* bytes, ULONG count, ULONG* done) = 0;
};

HX_IID(IStream, "0000000C-0000-0000-C000-000000000046")
struct IStream : ISequentialStream {
    // `position` may be null. Origin: 0 for the front, 1 for where it stands, 2 for the end.
    virtual HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* position) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER size) = 0;
    virtual HRESULT STDMETHODCALLTYPE CopyTo(IStream* target, ULARGE_INTEGER count, ULARGE_INTEGER* read,
                                             ULARGE_INTEGER* written) = 0;
    virtual HRESULT STDMETHODCALLTYPE Commit(DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Revert() = 0;
    virtual HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER offset, ULARGE_INTEGER count, DWORD type) = 0;
    virtual HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER offset, ULARGE_INTEGER count,
                                                   DWORD type) = 0;
    virtual HRESULT STDMETHODCALLTYPE Stat(STATSTG* information, DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE Clone(IStream** copy) = 0;
};
