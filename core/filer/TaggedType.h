// The types of tagged values: how each is named, written and read as text. One row per type, which the
// reader, the writer and their tests share. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/filer/CNumberText.h"

namespace hx {

// kWord is the text of the attribute "type"; Format gives the value's text without an allocation, good for
// one full expression; Parse is false for text that is no such value, and `value` is then unchanged.
template <class T>
struct TaggedType;

template <>
struct TaggedType<std::wstring> {
    static constexpr std::wstring_view kWord = L"string";
    static std::wstring_view Format(std::wstring_view value) { return value; }
    static bool Parse(std::wstring_view text, std::wstring& value) {
        value = text;
        return true;
    }
};

template <>
struct TaggedType<char> {
    static constexpr std::wstring_view kWord = L"char";
    struct OneCharacter {
        wchar_t character;
        operator std::wstring_view() const { return {&character, 1}; }
    };
    static OneCharacter Format(char value) {
        return {static_cast<wchar_t>(static_cast<unsigned char>(value))};
    }
    static bool Parse(std::wstring_view text, char& value) {
        if (text.empty()) return false;
        value = static_cast<char>(text[0]);
        return true;
    }
};

template <>
struct TaggedType<double> {
    static constexpr std::wstring_view kWord = L"float";
    static CNumberText Format(double value) { return {value, 15}; }
    static bool Parse(std::wstring_view text, double& value) { return ParseNumber(text, value); }
};

// What is read through another type: first as that, then converted.
template <class T, class Through>
bool ParseThrough(std::wstring_view text, T& value) {
    Through through{};
    if (!ParseNumber(text, through)) return false;
    value = static_cast<T>(through);
    return true;
}

template <>
struct TaggedType<float> {
    static constexpr std::wstring_view kWord = L"float";
    static CNumberText Format(float value) { return {static_cast<double>(value), 8}; }
    static bool Parse(std::wstring_view text, float& value) {
        return ParseThrough<float, double>(text, value);
    }
};

template <>
struct TaggedType<bool> {
    static constexpr std::wstring_view kWord = L"bool";
    static std::wstring_view Format(bool value) { return value ? L"1" : L"0"; }
    // Any number but 0 is true.
    static bool Parse(std::wstring_view text, bool& value) {
        return ParseThrough<bool, uint16_t>(text, value);
    }
};

template <>
struct TaggedType<uint8_t> {
    static constexpr std::wstring_view kWord = L"byte";
    static CNumberText Format(uint8_t value) { return CNumberText(uint64_t{value}); }
    // Truncated: "300" is 44.
    static bool Parse(std::wstring_view text, uint8_t& value) {
        return ParseThrough<uint8_t, uint16_t>(text, value);
    }
};

template <class T>
struct TaggedUnsigned {
    static constexpr std::wstring_view kWord = L"uint";
    static CNumberText Format(T value) { return CNumberText(uint64_t{value}); }
    static bool Parse(std::wstring_view text, T& value) { return ParseNumber(text, value); }
};

template <class T>
struct TaggedSigned {
    static constexpr std::wstring_view kWord = L"int";
    static CNumberText Format(T value) { return CNumberText(int64_t{value}); }
    static bool Parse(std::wstring_view text, T& value) { return ParseNumber(text, value); }
};

template <>
struct TaggedType<uint16_t> : TaggedUnsigned<uint16_t> {};
template <>
struct TaggedType<uint32_t> : TaggedUnsigned<uint32_t> {};
template <>
struct TaggedType<uint64_t> : TaggedUnsigned<uint64_t> {};
template <>
struct TaggedType<int16_t> : TaggedSigned<int16_t> {};
template <>
struct TaggedType<int32_t> : TaggedSigned<int32_t> {};

}  // namespace hx
