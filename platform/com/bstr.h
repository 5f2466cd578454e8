// BSTR: text that crosses an interface. It points at the first character; its length in bytes lies in the
// four bytes in front, a terminating NUL behind, and NULs may lie inside. Null and empty are both "no text"
// to most readers, but they stay apart here. Whoever receives one frees it. hx::Bstr owns one. Usable on any
// thread.
#pragma once

#include <string_view>

#include "platform/com/hresult.h"

using BSTR = OLECHAR*;

// New strings, [caller owns]; null if memory or the 32-bit length runs out. A null `text` gives null, except
// that SysAllocStringLen then gives `length` characters to be filled in.
HX_PLATFORM_API BSTR SysAllocString(const OLECHAR* text);
HX_PLATFORM_API BSTR SysAllocStringLen(const OLECHAR* text, UINT length);

// Replaces `*string` (null allowed), also by a part of itself; a null `text` keeps what fits. FALSE leaves it
// as it was.
HX_PLATFORM_API INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length);

HX_PLATFORM_API void SysFreeString(BSTR string);
HX_PLATFORM_API UINT SysStringLen(BSTR string);
HX_PLATFORM_API UINT SysStringByteLen(BSTR string);

namespace hx {

class HX_PLATFORM_API Bstr {
public:
    Bstr() noexcept = default;
    // Never null, even for empty text. Throws std::bad_alloc, as do the copies.
    explicit Bstr(std::wstring_view text);
    Bstr(const Bstr& other);
    Bstr(Bstr&& other) noexcept : m_string(other.detach()) {}
    ~Bstr() { SysFreeString(m_string); }
    Bstr& operator=(Bstr other) noexcept;

    BSTR get() const noexcept { return m_string; }
    bool is_null() const noexcept { return m_string == nullptr; }
    // Empty for null. Good until this string changes.
    std::wstring_view view() const noexcept { return {m_string ? m_string : L"", SysStringLen(m_string)}; }

    // For out-parameters: frees what it held, then lets the callee attach.
    BSTR* put() noexcept;
    // Takes over the caller's string.
    void attach(BSTR string) noexcept;
    // Hands the string to the caller and is null after.
    [[nodiscard]] BSTR detach() noexcept;
    // A copy for the caller, null for null. `*out` is null on failure: E_POINTER, E_OUTOFMEMORY.
    HRESULT copy_to(BSTR* out) const noexcept;

private:
    BSTR m_string = nullptr;
};

}  // namespace hx
