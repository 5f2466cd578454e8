// Records read through rapidxml, from each node to the next one.
#pragma once

#include <boost/property_tree/detail/rapidxml.hpp>
#include <string>
#include <string_view>

#include "bench/tag.h"
#include "bench/tagged_form.h"

namespace hx::bench {

namespace rapidxml = boost::property_tree::detail::rapidxml;

// End tags are compared and white space between elements makes no node, as with the others.
inline constexpr int kRapidFlags = rapidxml::parse_validate_closing_tags | rapidxml::parse_trim_whitespace;

class RapidReader {
public:
    // The text is parsed in place and outlives the reader.
    explicit RapidReader(std::string& text) {
        m_document.parse<kRapidFlags>(text.data());
        m_group = m_document.first_node(kRoot);
        m_next = m_group->first_node();
    }

    void Begin(Tag tag) {
        m_right &= NameIs(tag) && m_next->first_attribute() == nullptr;
        m_group = m_next;
        m_next = m_group->first_node();
    }

    void End() {
        m_next = m_group->next_sibling();
        m_group = m_group->parent();
    }

    template <class T>
    void Value(Tag tag, T& value) {
        const rapidxml::xml_attribute<>* const type = m_next->first_attribute();
        m_right &= NameIs(tag) && type != nullptr &&
                   std::string_view(type->name(), type->name_size()) == kType &&
                   std::string_view(type->value(), type->value_size()) == kTypeWord<T> &&
                   ParseValue(m_next->value(), value);
        m_next = m_next->next_sibling();
    }

    bool Right() const { return m_right; }

private:
    bool NameIs(Tag tag) const { return std::string_view(m_next->name(), m_next->name_size()) == tag.narrow; }

    rapidxml::xml_document<> m_document;
    rapidxml::xml_node<>* m_group;
    rapidxml::xml_node<>* m_next;
    bool m_right = true;
};

}  // namespace hx::bench
