// Writes the tagged form plainly, one string appended to the other: makes the inputs.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "bench/tag.h"
#include "bench/tagged_form.h"

namespace hx::bench {

class TextWriter {
public:
    void Begin(Tag tag) {
        (m_text += '<').append(tag.narrow) += ">\n";
        m_open.push_back(tag.narrow);
        ++m_elements;
    }

    void End() {
        (m_text += "</").append(m_open.back()) += ">\n";
        m_open.pop_back();
    }

    template <class T>
    void Value(Tag tag, const T& value) {
        (m_text += '<').append(tag.narrow) += " type=\"";
        (m_text += kTypeWord<T>) += "\">";
        Append(value);
        (m_text += "</").append(tag.narrow) += ">\n";
        ++m_elements;
    }

    const std::string& Text() const { return m_text; }
    size_t Elements() const { return m_elements; }

private:
    template <class T>
    void Append(const T& value) {
        m_text += NumberText(value).Text();
    }

    void Append(const std::string& value) {
        for (const char c : value) {
            switch (c) {
                case '&':
                    m_text += "&amp;";
                    break;
                case '<':
                    m_text += "&lt;";
                    break;
                case '>':
                    m_text += "&gt;";
                    break;
                default:
                    m_text += c;
            }
        }
    }

    std::string m_text;
    std::vector<std::string_view> m_open;
    size_t m_elements = 0;
};

}  // namespace hx::bench
