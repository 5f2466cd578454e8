// Records through pugixml, as well as one can: the reader goes from each node to the next one without
// searching, the writer hands over C strings.
#pragma once

#include <cstdint>
#include <cstring>
#include <pugixml.hpp>
#include <string>
#include <type_traits>

#include "bench/tag.h"
#include "bench/tagged_form.h"

namespace hx::bench {

class PugiReader {
public:
    // The text is parsed in place and outlives the reader.
    explicit PugiReader(std::string& text) {
        m_right = m_document.load_buffer_inplace(text.data(), text.size());
        m_group = m_document.child(kRoot);
        m_next = m_group.first_child();
    }

    void Begin(Tag tag) {
        m_right &= std::strcmp(m_next.name(), tag.narrow.data()) == 0 && m_next.attribute(kType).empty();
        m_group = m_next;
        m_next = m_group.first_child();
    }

    void End() {
        m_next = m_group.next_sibling();
        m_group = m_group.parent();
    }

    template <class T>
    void Value(Tag tag, T& value) {
        m_right &= std::strcmp(m_next.name(), tag.narrow.data()) == 0 &&
                   std::strcmp(m_next.attribute(kType).value(), kTypeWord<T>) == 0 &&
                   ParseValue(m_next.child_value(), value);
        m_next = m_next.next_sibling();
    }

    bool Right() const { return m_right; }

private:
    pugi::xml_document m_document;
    pugi::xml_node m_group;
    pugi::xml_node m_next;
    bool m_right;
};

// Who turns numbers into text.
enum class Numbers { kToChars, kPugi };

template <Numbers By>
class PugiWriter {
public:
    PugiWriter() {
        pugi::xml_node declaration = m_document.append_child(pugi::node_declaration);
        declaration.append_attribute("version").set_value("1.0");
        declaration.append_attribute("encoding").set_value("UTF-8");
        m_group = m_document.append_child(kRoot);
    }

    void Begin(Tag tag) { m_group = m_group.append_child(tag.narrow.data()); }
    void End() { m_group = m_group.parent(); }

    template <class T>
    void Value(Tag tag, const T& value) {
        pugi::xml_node node = m_group.append_child(tag.narrow.data());
        node.append_attribute(kType).set_value(kTypeWord<T>);
        if constexpr (std::is_same_v<T, std::string>) {
            node.append_child(pugi::node_pcdata).set_value(value.c_str());
        } else if constexpr (By == Numbers::kToChars) {
            node.append_child(pugi::node_pcdata).set_value(NumberText(value).Text());
        } else {
            node.text().set(value);
        }
    }

    std::string Text() const {
        struct StringWriter : pugi::xml_writer {
            void write(const void* data, size_t size) override {
                text.append(static_cast<const char*>(data), size);
            }
            std::string text;
        };
        StringWriter writer;
        m_document.save(writer, "", pugi::format_indent, pugi::encoding_utf8);
        return std::move(writer.text);
    }

private:
    pugi::xml_document m_document;
    pugi::xml_node m_group;
};

}  // namespace hx::bench
