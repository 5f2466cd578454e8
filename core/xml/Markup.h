// What a "<" introduces, and where it ends. Pure functions on a text; used by the indexer and by node
// navigation.
#pragma once

#include <cstdint>
#include <string_view>

namespace hx {

enum class MarkupKind : uint8_t {
    kStartTag,
    kEndTag,
    kComment,
    kCData,
    kInstruction,
    kDoctype,  // or a single declaration of one
    kBad,      // nothing that can follow a "<"
};

// A construct of the text, from its "<".
struct Markup {
    static constexpr uint32_t kNoEnd = UINT32_MAX;

    MarkupKind kind;
    uint32_t end;         // offset behind it; kNoEnd when the text ends inside
    const wchar_t* name;  // what messages call it: "Comment" ("... unterminated"), "! tag" ("Incorrect ...")
};

// The construct whose "<" stands at `at`. Tags end at a ">" outside quotes, but their name has none.
Markup ReadMarkup(std::wstring_view text, uint32_t at);

// The kind alone (and the name), without looking for the end: `end` is kNoEnd.
Markup ClassifyMarkup(std::wstring_view text, uint32_t at);

// Offset behind a construct of the given kind, which is no tag and begins at `at`.
uint32_t FindMarkupEnd(std::wstring_view text, uint32_t at, MarkupKind kind);

// Offset of the ">" that ends the tag whose name begins at `name`; kNoEnd if there is none.
uint32_t FindTagEnd(std::wstring_view text, uint32_t name);

}  // namespace hx
