// What a document says about its elements, in forms that compare and print.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "core/xml/MXmlDocument.h"

// Calls `visit` at every element, parents in front of their children. The position is kept.
template <class Visit>
void Walk(hx::MXmlDocument& document, Visit visit) {
    const auto before = document.GetPosition();
    document.ResetPosition();
    for (bool more = true; more;) {
        if (document.FindElement()) {
            visit();
            document.EnterElement();
        } else {
            more = document.LeaveElement();
        }
    }
    document.SetPosition(before);
}

// "a(b c(d))".
inline std::wstring Outline(hx::MXmlDocument& document) {
    std::wstring outline;
    uint32_t level = 0;
    Walk(document, [&] {
        for (; level > document.GetLevel(); --level) outline += L')';
        if (level < document.GetLevel()) outline += L'(';
        if (level == document.GetLevel()) outline += L' ';
        level = document.GetLevel();
        outline += document.GetTagName();
    });
    for (; level > 1; --level) outline += L')';
    return outline.substr(outline.empty() ? 0 : 1);
}

// Where an element lies in the text. `content_begin` is the end of the start tag.
struct ElementPlace {
    uint32_t level;
    size_t start;
    size_t content_begin;
    size_t content_end;

    bool operator==(const ElementPlace&) const = default;

    friend std::ostream& operator<<(std::ostream& out, const ElementPlace& place) {
        return out << "level " << place.level << " [" << place.start << ", " << place.content_begin << ", "
                   << place.content_end << ")";
    }
};

inline std::vector<ElementPlace> Places(hx::MXmlDocument& document) {
    std::vector<ElementPlace> places;
    const wchar_t* const text = document.GetText().data();
    Walk(document, [&] {
        const auto start = static_cast<size_t>(document.StartTag().data() - text);
        const auto content = static_cast<size_t>(document.ElementContent().data() - text);
        places.push_back({document.GetLevel(), start, content, content + document.ElementContent().size()});
    });
    return places;
}
