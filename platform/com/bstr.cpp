#include "platform/com/bstr.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <limits>
#include <new>
#include <utility>

namespace {

// In front of the characters. Eight bytes, so that the characters stay as aligned as the block is.
struct Header {
    uint32_t unused;
    uint32_t bytes;
};

constexpr size_t most_characters = std::numeric_limits<uint32_t>::max() / sizeof(OLECHAR);

Header* HeaderOf(BSTR string) {
    return reinterpret_cast<Header*>(string) - 1;
}

// Room for `length` characters and the terminator; the characters are left as they come.
BSTR Allocate(size_t length) {
    if (length > most_characters) return nullptr;
    auto* header = static_cast<Header*>(std::malloc(sizeof(Header) + (length + 1) * sizeof(OLECHAR)));
    if (!header) return nullptr;
    header->unused = 0;
    header->bytes = static_cast<uint32_t>(length * sizeof(OLECHAR));
    auto* string = reinterpret_cast<BSTR>(header + 1);
    string[length] = L'\0';
    return string;
}

void CopyCharacters(BSTR target, const OLECHAR* source, size_t count) {
    if (count != 0) std::memcpy(target, source, count * sizeof(OLECHAR));
}

BSTR Copy(const OLECHAR* text, size_t length) {
    BSTR string = Allocate(length);
    if (string) CopyCharacters(string, text, length);
    return string;
}

}  // namespace

BSTR SysAllocString(const OLECHAR* text) {
    return text ? Copy(text, std::wcslen(text)) : nullptr;
}

BSTR SysAllocStringLen(const OLECHAR* text, UINT length) {
    return text ? Copy(text, length) : Allocate(length);
}

INT SysReAllocStringLen(BSTR* string, const OLECHAR* text, UINT length) {
    if (!string) return FALSE;
    // The text may lie inside the old string, which therefore goes last.
    BSTR fresh = Allocate(length);
    if (!fresh) return FALSE;
    if (text) {
        CopyCharacters(fresh, text, length);
    } else {
        CopyCharacters(fresh, *string, std::min(length, SysStringLen(*string)));
    }
    SysFreeString(std::exchange(*string, fresh));
    return TRUE;
}

void SysFreeString(BSTR string) {
    if (string) std::free(HeaderOf(string));
}

UINT SysStringLen(BSTR string) {
    return SysStringByteLen(string) / static_cast<UINT>(sizeof(OLECHAR));
}

UINT SysStringByteLen(BSTR string) {
    return string ? HeaderOf(string)->bytes : 0;
}

namespace hx {

Bstr::Bstr(std::wstring_view text) : m_string(Copy(text.data(), text.size())) {
    if (!m_string) throw std::bad_alloc();
}

Bstr::Bstr(const Bstr& other) {
    if (FAILED(other.copy_to(&m_string))) throw std::bad_alloc();
}

Bstr& Bstr::operator=(Bstr other) noexcept {
    std::swap(m_string, other.m_string);
    return *this;
}

BSTR* Bstr::put() noexcept {
    attach(nullptr);
    return &m_string;
}

void Bstr::attach(BSTR string) noexcept {
    SysFreeString(std::exchange(m_string, string));
}

BSTR Bstr::detach() noexcept {
    return std::exchange(m_string, nullptr);
}

HRESULT Bstr::copy_to(BSTR* out) const noexcept {
    if (!out) return E_POINTER;
    *out = m_string ? Copy(m_string, SysStringLen(m_string)) : nullptr;
    return m_string && !*out ? E_OUTOFMEMORY : S_OK;
}

}  // namespace hx
