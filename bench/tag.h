// The name of an element for narrow and for wide contenders alike, both made at compile time: "Exposure"_tag.
#pragma once

#include <cstddef>
#include <string_view>

namespace hx::bench {

struct Tag {
    std::string_view narrow;  // a zero follows
    std::wstring_view wide;
};

template <size_t N>
struct TagText {
    consteval TagText(const char (&text)[N]) {
        for (size_t i = 0; i < N; ++i) {
            narrow[i] = text[i];
            wide[i] = static_cast<wchar_t>(text[i]);
        }
    }

    char narrow[N] = {};
    wchar_t wide[N] = {};
};

template <TagText Text>
consteval Tag operator""_tag() {
    return {Text.narrow, Text.wide};
}

}  // namespace hx::bench
