// Editing: every edit splices the one text and moves what the index says about it.
#include <algorithm>

#include "core/xml/AttributeReader.h"
#include "core/xml/MXmlDocument.h"
#include "core/xml/Markup.h"
#include "core/xml/MarkupIndexer.h"
#include "core/xml/XmlChars.h"
#include "core/xml/XmlNames.h"
#include "core/xml/XmlText.h"

namespace hx {
namespace {

void AppendAttribute(std::wstring& out, std::wstring_view name, std::wstring_view value) {
    out.append(name).append(std::wstring_view(L"=\""));
    AppendEscaped(out, value, EscapeSet::kAttribute);
    out += L'"';
}

// The markup of a node that is no element; empty if the text would end the node early, or make none.
std::wstring NodeMarkup(uint32_t kind, std::wstring_view text) {
    const auto enclosed = [&](std::wstring_view open, std::wstring_view close) {
        if (text.find(close) != std::wstring_view::npos) return std::wstring();
        return std::wstring(open).append(text).append(close);
    };
    switch (kind) {
        case kTextNode:
        case kWhiteSpaceNode: {
            std::wstring markup;
            AppendEscaped(markup, text, EscapeSet::kText);
            return markup;
        }
        case kCDataNode:
            return enclosed(L"<![CDATA[", L"]]>");
        case kInstructionNode:
            return enclosed(L"<?", L"?>");
        case kCommentNode:
            return enclosed(L"<!--", L"-->");
        case kDoctypeNode: {
            if (text.size() < 3 || text[0] != L'<') return {};
            const Markup markup = ReadMarkup(text, 0);
            return markup.kind == MarkupKind::kDoctype && markup.end == text.size() ? std::wstring(text)
                                                                                    : std::wstring();
        }
        default:
            return {};
    }
}

}  // namespace

bool MXmlDocument::AddElement(std::wstring_view name, std::wstring_view data, uint32_t flags,
                              std::wstring_view attribute, std::wstring_view value) {
    const bool as_child = (flags & kAddChild) != 0;
    if (!IsWritableName(name) || (as_child && m_position.main == 0)) return false;
    if (!attribute.empty() && !IsWritableAttribute(attribute)) return false;

    Place place = PlaceBehindCurrent(true);
    if (as_child) {
        const uint32_t first = FirstChild(m_position.main);
        const uint32_t last = first != 0 ? m_index[first].previous : 0;
        place = {m_position.main, last, ContentRange(m_position.main).end};
    }
    m_markup.assign(1, L'<').append(name);
    if (!attribute.empty()) AppendAttribute(m_markup += L' ', attribute, value);
    uint32_t end_tag = 0;
    if (data.empty()) {
        m_markup.append((flags & kAddSpace) != 0 ? std::wstring_view(L" />") : std::wstring_view(L"/>"));
    } else {
        m_markup += L'>';
        end_tag = static_cast<uint32_t>(name.size()) + 3;
    }
    const auto start_tag = static_cast<uint32_t>(m_markup.size());
    if (!data.empty()) {
        if ((flags & kAddCData) != 0) {
            AppendCData(m_markup, data);
        } else {
            AppendEscaped(m_markup, data, EscapeSet::kText, (flags & kAddWithReferences) != 0);
        }
        m_markup.append(std::wstring_view(L"</")).append(name) += L'>';
    }
    const auto length = static_cast<uint32_t>(m_markup.size());
    m_markup += L'\n';
    if (!Insert(place, true)) return false;
    const uint32_t element = AddRecord(place, start_tag, length);
    m_index[element].end_tag_length = end_tag;
    m_index[element].flags = data.empty() ? uint32_t{kEmpty} : 0;
    return true;
}

bool MXmlDocument::AddNode(uint32_t kind, std::wstring_view text) {
    const bool is_text = (kind & (kTextNode | kWhiteSpaceNode | kCDataNode)) != 0;
    const bool is_element = kind == kElementNode;
    if (is_element) {
        m_markup.assign(L"<").append(text).append(L"/>");
        // It must be one tag, and end where it seems to.
        if (text.empty() || !IsTagStart(text[0]) || FindTagEnd(m_markup, 1) != m_markup.size() - 1)
            return false;
    } else {
        m_markup = NodeMarkup(kind, text);
        if (m_markup.empty()) return false;
    }
    const auto length = static_cast<uint32_t>(m_markup.size());
    if (!is_text && !is_element) m_markup += L'\n';
    Place place = PlaceBehindCurrent(!is_text);
    if (!Insert(place, !is_text)) return false;
    if (is_element) {
        const uint32_t element = AddRecord(place, length, length);
        m_index[element].end_tag_length = 0;
        m_index[element].flags = kEmpty;
    } else {
        m_position = {place.parent, place.previous, kind, place.offset, length};
    }
    return true;
}

bool MXmlDocument::SetAttribute(std::wstring_view name, std::wstring_view value) {
    const uint32_t element = m_position.main;
    if (element == 0 || !IsWritableAttribute(name)) return false;
    const std::wstring_view tag = StartTag();
    AttributeReader attributes(tag);
    uint32_t begin = attributes.Position();
    uint32_t removed = 0;
    m_markup.clear();
    Attribute attribute;
    while (attributes.Next(attribute)) {
        begin = attribute.end;
        if (!SameName(attribute.name, name, IgnoreCase())) continue;
        begin = attribute.begin;
        removed = attribute.end - attribute.begin;
        break;
    }
    if (removed == 0) {
        // An attribute that ends in "=" would take the new one for its value.
        const size_t before = tag.find_last_not_of(L" \t\n\r", begin - 1);
        m_markup = tag[before] == L'=' ? L"\"\" " : L" ";
    }
    AppendAttribute(m_markup, name, value);
    if (!Splice(element, 0, m_index.Start(element) + begin, removed, m_markup)) return false;
    m_index[element].start_tag_length += static_cast<uint32_t>(m_markup.size()) - removed;
    return true;
}

bool MXmlDocument::SetElementContent(std::wstring_view markup) {
    const uint32_t element = m_position.main;
    if (element == 0 || markup.size() > kMaxLength - m_text.size()) return false;
    ReleaseChildren(element);
    m_position = {m_position.parent, element, kElementNode};
    const Range range = ContentRange(element);
    if ((m_index[element].flags & kEmpty) == 0) {
        if (!Splice(element, 0, range.begin, range.end - range.begin, markup)) return false;
    } else if (!markup.empty()) {
        m_markup = markup;
        Place place{element, 0, range.begin};
        if (!Insert(place, false)) return false;
    }
    IndexContent(element);
    return true;
}

MXmlDocument::Place MXmlDocument::PlaceBehindCurrent(bool behind_line_break) const {
    Place place{m_position.parent, m_position.main, 0};
    const uint32_t end =
        place.parent != 0 ? ContentRange(place.parent).end : static_cast<uint32_t>(m_text.size());
    if (AtOtherNode()) {
        place.offset = m_position.node_offset + m_position.node_length;
    } else if (place.previous != 0) {
        place.offset = EndOf(place.previous);
    } else if (place.parent != 0) {
        place.offset = ContentRange(place.parent).begin;
    }
    // What stands on a line of its own leaves the line break to what it follows.
    if (behind_line_break && place.offset < end && m_text[place.offset] == L'\n') ++place.offset;
    return place;
}

// Puts m_markup into the text at the place, whose offset is where it then begins. An empty-element parent
// gets an end tag, on a line of its own if `own_line`.
bool MXmlDocument::Insert(Place& place, bool own_line) {
    ElementRecord& parent = m_index[place.parent];
    if (place.parent == 0 || (parent.flags & kEmpty) == 0) {
        return Splice(place.parent, place.previous, place.offset, 0, m_markup);
    }
    const std::wstring_view name = TagName(place.parent);
    const uint32_t end = EndOf(place.parent);
    uint32_t tag_end = end - 2;
    // A "/" left there would make it an empty element again.
    while (IsWhite(m_text[tag_end - 1]) || m_text[tag_end - 1] == L'/') --tag_end;
    const std::wstring_view opening = own_line ? L">\n" : L">";
    m_markup.insert(0, opening).append(L"</").append(name) += L'>';
    const auto end_tag = static_cast<uint32_t>(name.size()) + 3;
    if (!Splice(place.parent, 0, tag_end, end - tag_end, m_markup)) return false;
    parent.start_tag_length = tag_end + 1 - m_index.Start(place.parent);
    parent.end_tag_length = end_tag;
    parent.ClearFlag(kEmpty);
    place.offset = tag_end + static_cast<uint32_t>(opening.size());
    return true;
}

// A record for the element that was inserted at the place; it becomes the main element.
uint32_t MXmlDocument::AddRecord(const Place& place, uint32_t start_tag_length, uint32_t length) {
    const uint32_t element = m_index.Add();
    ElementRecord& record = m_index[element];
    m_index.Start(element) = place.offset;
    record = {};
    record.length = length;
    record.start_tag_length = start_tag_length;
    record.level = ElementRecord::Below(m_index[place.parent].level) & ElementRecord::kMaxLevel;
    record.parent = place.parent;
    ElementRecord& parent = m_index[place.parent];
    const uint32_t first = parent.first_child;
    record.next = place.previous != 0 ? m_index[place.previous].next : first;
    // The first child's `previous` is the last child.
    if (record.next != 0) {
        record.previous = m_index[record.next].previous;
        m_index[record.next].previous = element;
    } else {
        record.previous = first != 0 ? m_index[first].previous : element;
        if (first != 0) m_index[first].previous = element;
    }
    (place.previous != 0 ? m_index[place.previous].next : parent.first_child) = element;
    m_position = {place.parent, element, kElementNode};
    // A saved node that now stands behind the element has another element in front of it than before.
    for (auto& bucket : m_saved) {
        for (auto& [name, saved] : bucket) {
            if (saved.parent == place.parent && saved.main == place.previous && saved.node_length != 0 &&
                saved.node_offset > place.offset) {
                saved.main = element;
            }
        }
    }
    return element;
}

bool MXmlDocument::HasElementsBehind(uint32_t container, uint32_t previous) const {
    if ((previous != 0 ? m_index[previous].next : FirstChild(container)) != 0) return true;
    for (uint32_t element = container; element != 0; element = m_index[element].parent) {
        if (m_index[element].next != 0) return true;
    }
    return false;
}

// Replaces `removed` characters, in which no element begins. They lie in `container`, behind its child
// `previous`.
bool MXmlDocument::Splice(uint32_t container, uint32_t previous, uint32_t offset, uint32_t removed,
                          std::wstring_view inserted) {
    if (inserted.size() > removed && inserted.size() - removed > kMaxLength - m_text.size()) return false;
    m_text.replace(offset, removed, inserted);
    m_index[container].ClearFlag(kPlain);
    const uint32_t delta = static_cast<uint32_t>(inserted.size()) - removed;
    const uint32_t behind = offset + removed;
    for (uint32_t element = container; element != 0; element = m_index[element].parent) {
        m_index[element].length += delta;
    }
    m_index[0].length += delta;
    if (HasElementsBehind(container, previous)) m_index.ShiftStarts(behind, delta);
    const auto shift = [&](Position& position) {
        if (position.node_length == 0) return;
        if (position.node_offset >= behind) {
            position.node_offset += delta;
        } else if (position.node_offset < offset) {
            // What is put into a text parts it; its first half stays the node.
            position.node_length = std::min(position.node_length, offset - position.node_offset);
        }
    };
    shift(m_position);
    for (auto& bucket : m_saved) {
        for (SavedPosition& saved : bucket) shift(saved.position);
    }
    return true;
}

void MXmlDocument::ReleaseChildren(uint32_t element) {
    for (uint32_t child = FirstChild(element); child != 0;) {
        const uint32_t next = m_index[child].next;
        m_index.Release(child);
        child = next;
    }
    m_index[element].first_child = 0;
    // A position inside what is gone leads nowhere.
    const auto gone = [&](const SavedPosition& saved) {
        const Position& position = saved.position;
        return ((m_index[position.parent].flags | m_index[position.main].flags) & kRemoved) != 0 ||
               (position.parent == element && position.node_length != 0);
    };
    for (auto& bucket : m_saved) std::erase_if(bucket, gone);
}

// Indexes what stands between the element's tags.
void MXmlDocument::IndexContent(uint32_t element) {
    const Range range = ContentRange(element);
    MarkupIndexer indexer(m_text, range.begin, range.end, m_index, element, IgnoreCase());
    indexer.Run();
    if (indexer.Error().empty()) return;
    if (m_error.empty()) m_error = indexer.Error();
    m_readable = m_readable && !indexer.HasOtherProblem();
    for (uint32_t flagged = element; flagged != 0; flagged = m_index[flagged].parent) {
        m_index[flagged].flags |= kIllFormed;
    }
    m_index[0].flags |= kIllFormed;
}

}  // namespace hx
