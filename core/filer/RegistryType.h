// How each type of tagged value lies in the registry: one row per type, which reader and writer share. Types
// without a row cannot be kept there. Any thread.
#pragma once

#include <concepts>
#include <string>
#include <type_traits>
#include <variant>

#include "core/filer/CNumberText.h"
#include "platform/registry/registry.h"

namespace hx {

// Store gives the value that is written; Load is false for a stored value of another type or with a text that
// is no number, and `value` is then unchanged.
template <class T>
struct RegistryType;

template <class T>
concept KeptInRegistry = (sizeof(RegistryType<T>) > 0);

template <class T>
concept UpTo32Bits = std::integral<T> && sizeof(T) <= sizeof(uint32_t);

// REG_DWORD, read back by truncation; any number but 0 is true.
template <UpTo32Bits T>
struct RegistryType<T> {
    static RegistryValue Store(T value) {
        // The byte of a character has no sign; a negative number fills all 32 bits.
        if constexpr (std::is_same_v<T, char>) return uint32_t{static_cast<unsigned char>(value)};
        return static_cast<uint32_t>(value);
    }
    static bool Load(const RegistryValue& stored, T& value) {
        const uint32_t* const number = std::get_if<uint32_t>(&stored);
        if (number == nullptr) return false;
        value = static_cast<T>(*number);
        return true;
    }
};

template <>
struct RegistryType<std::wstring> {
    static RegistryValue Store(std::wstring_view value) { return std::wstring(value); }
    static bool Load(const RegistryValue& stored, std::wstring& value) {
        const std::wstring* const text = std::get_if<std::wstring>(&stored);
        if (text == nullptr) return false;
        value = *text;
        return true;
    }
};

// REG_SZ in scientific notation, with the given number of digits behind the point.
template <class T, int precision>
struct RegistryNumberText {
    static RegistryValue Store(T value) {
        return std::wstring(CNumberText(static_cast<double>(value), precision).View());
    }
    static bool Load(const RegistryValue& stored, T& value) {
        const std::wstring* const text = std::get_if<std::wstring>(&stored);
        return text != nullptr && ScanNumber(*text, value);
    }
};

template <>
struct RegistryType<double> : RegistryNumberText<double, 14> {};
// Coarser than in documents.
template <>
struct RegistryType<float> : RegistryNumberText<float, 6> {};

}  // namespace hx
