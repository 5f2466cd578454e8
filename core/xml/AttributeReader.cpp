#include "core/xml/AttributeReader.h"

#include <algorithm>

#include "core/xml/XmlChars.h"

namespace hx {

AttributeReader::AttributeReader(std::wstring_view tag)
    : m_tag(tag),
      m_end(static_cast<uint32_t>(tag.size() - (tag.ends_with(L"/>") ? 2 : 1))),
      m_at(NameEnd(tag.data(), 1, m_end)) {}

bool AttributeReader::Next(Attribute& attribute) {
    uint32_t at = SkipWhite(m_at);
    // What is neither a name nor white space ("=", "<", a stray "/" ...) separates attributes.
    while (at < m_end && IsDelimiter(m_tag[at])) at = SkipWhite(at + 1);
    if (at >= m_end) return false;
    attribute = {{}, {}, at, at};
    if (!IsQuote(m_tag[at])) {
        m_at = WordEnd(at);
        attribute.name = m_tag.substr(at, m_at - at);
        at = SkipWhite(m_at);
        if (at < m_end && m_tag[at] == L'=') {
            at = SkipWhite(at + 1);
            m_at = WordEnd(at);
            attribute.value = m_tag.substr(at, m_at - at);
        }
    }
    // A quoted text without a name in front still hides what it holds; it just cannot be asked for.
    if ((attribute.name.empty() || attribute.value.data() != nullptr) && at < m_end && IsQuote(m_tag[at])) {
        const size_t closing = std::min<size_t>(m_tag.find(m_tag[at], at + 1), m_end);
        attribute.value = m_tag.substr(at + 1, closing - at - 1);
        m_at = static_cast<uint32_t>(std::min<size_t>(closing + 1, m_end));
    }
    attribute.end = m_at;
    return true;
}

// End of a name or an unquoted value: a quote always begins a quoted text, wherever it stands.
uint32_t AttributeReader::WordEnd(uint32_t at) const {
    while (at < m_end && !IsDelimiter(m_tag[at]) && !IsQuote(m_tag[at])) ++at;
    return at;
}

uint32_t AttributeReader::SkipWhite(uint32_t at) const {
    while (at < m_end && IsWhite(m_tag[at])) ++at;
    return at;
}

}  // namespace hx
