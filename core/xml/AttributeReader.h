// Walks through the attributes of one start tag. Tolerant: an attribute may have no value, or an unquoted
// one.
#pragma once

#include <cstdint>
#include <string_view>

namespace hx {

// One attribute as the text holds it: references in the value are not decoded.
struct Attribute {
    std::wstring_view name;
    std::wstring_view value;
    uint32_t begin;  // offset of the name in the tag
    uint32_t end;    // offset behind the attribute, closing quote included
};

class AttributeReader {
public:
    // `tag` is a whole start tag, from "<" to ">"; it outlives the reader.
    explicit AttributeReader(std::wstring_view tag);

    // False when there are no more.
    bool Next(Attribute& attribute);

    // Offset in the tag behind its name or, after Next, behind the attribute that it gave.
    uint32_t Position() const { return m_at; }

private:
    uint32_t WordEnd(uint32_t at) const;
    uint32_t SkipWhite(uint32_t at) const;

    const std::wstring_view m_tag;
    const uint32_t m_end;  // of the attributes: where ">" or "/>" begins
    uint32_t m_at;
};

}  // namespace hx
