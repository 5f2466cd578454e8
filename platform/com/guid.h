// GUID: the 16-byte name of an interface (IID) or of a class (CLSID), its text, and how an interface gets
// one. An interface's IID stands on the line above it:
//     HX_IID(IThing, "12345678-9ABC-DEF0-1234-56789ABCDEF0")
//     struct IThing : IUnknown { ... };
// which gives IID_IThing and hx::uuid_of<IThing>(). Usable on any thread.
#pragma once

#include <string>
#include <string_view>

#include "platform/api.h"
#include "platform/com/types.h"

struct GUID {
    uint32_t Data1;
    uint16_t Data2;
    uint16_t Data3;
    uint8_t Data4[8];
};

using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

constexpr bool operator==(const GUID& a, const GUID& b) {
    for (int i = 0; i < 8; ++i) {
        if (a.Data4[i] != b.Data4[i]) return false;
    }
    return a.Data1 == b.Data1 && a.Data2 == b.Data2 && a.Data3 == b.Data3;
}

inline constexpr GUID GUID_NULL{};
inline constexpr IID IID_NULL{};
inline constexpr CLSID CLSID_NULL{};

namespace hx {

// Reads "XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX", upper or lower case, with both braces or none and nothing
// else around it. `guid` is written on success only.
template <class Char>
constexpr bool ReadGuid(std::basic_string_view<Char> text, GUID& guid) {
    if (text.size() == 38 && text.front() == Char('{') && text.back() == Char('}')) text = text.substr(1, 36);
    if (text.size() != 36) return false;
    uint8_t bytes[16] = {};
    size_t digits = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        const Char c = text[i];
        if (i == 8 || i == 13 || i == 18 || i == 23) {
            if (c != Char('-')) return false;
            continue;
        }
        int digit = 0;
        if (c >= Char('0') && c <= Char('9')) {
            digit = static_cast<int>(c - Char('0'));
        } else if (c >= Char('a') && c <= Char('f')) {
            digit = static_cast<int>(c - Char('a')) + 10;
        } else if (c >= Char('A') && c <= Char('F')) {
            digit = static_cast<int>(c - Char('A')) + 10;
        } else {
            return false;
        }
        bytes[digits / 2] = static_cast<uint8_t>(bytes[digits / 2] << 4 | digit);
        ++digits;
    }
    guid.Data1 = uint32_t{bytes[0]} << 24 | uint32_t{bytes[1]} << 16 | uint32_t{bytes[2]} << 8 | bytes[3];
    guid.Data2 = static_cast<uint16_t>(bytes[4] << 8 | bytes[5]);
    guid.Data3 = static_cast<uint16_t>(bytes[6] << 8 | bytes[7]);
    for (int i = 0; i < 8; ++i) guid.Data4[i] = bytes[8 + i];
    return true;
}

// A GUID written in the source; malformed text does not compile.
consteval GUID MakeGuid(std::string_view text) {
    GUID guid{};
    if (!ReadGuid(text, guid)) throw "malformed GUID";
    return guid;
}

// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}" in upper case.
HX_PLATFORM_API std::wstring GuidToText(const GUID& guid);

// The inverse, with braces or without; false leaves `guid` as it was.
HX_PLATFORM_API bool GuidFromText(std::wstring_view text, GUID& guid);

// Names an interface exactly: a derived interface without an IID of its own must not pass for its base.
template <class I>
struct InterfaceTag {};

// The IID of interface I; does not compile for an interface without HX_IID.
template <class I>
constexpr const IID& uuid_of() {
    return HxInterfaceId(InterfaceTag<I>{});
}

}  // namespace hx

#define HX_IID(Interface, text)                                                          \
    struct Interface;                                                                    \
    inline constexpr IID IID_##Interface = ::hx::MakeGuid(text);                         \
    [[maybe_unused]] constexpr const IID& HxInterfaceId(::hx::InterfaceTag<Interface>) { \
        return IID_##Interface;                                                          \
    }
