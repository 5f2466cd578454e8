// The document's nodes other than elements: text, CDATA, comments and the like have no record of their own;
// they are recognised in the text between the elements.
#include <algorithm>

#include "core/xml/MXmlDocument.h"
#include "core/xml/Markup.h"
#include "core/xml/XmlChars.h"
#include "core/xml/XmlText.h"

namespace hx {
namespace {

constexpr std::wstring_view kCDataOpen = L"<![CDATA[";

uint32_t NodeKindOf(MarkupKind kind) {
    switch (kind) {
        case MarkupKind::kComment:
            return kCommentNode;
        case MarkupKind::kCData:
            return kCDataNode;
        case MarkupKind::kInstruction:
            return kInstructionNode;
        case MarkupKind::kDoctype:
            return kDoctypeNode;
        case MarkupKind::kEndTag:
            return kLoneEndTagNode;
        default:
            return kTextNode;
    }
}

// What stands between the opening and the closing of a node's markup, as far as they are there.
std::wstring_view Inside(std::wstring_view node, std::wstring_view opening, std::wstring_view closing) {
    node.remove_prefix(std::min(opening.size(), node.size()));
    if (node.ends_with(closing)) node.remove_suffix(closing.size());
    return node;
}

std::wstring_view CDataText(std::wstring_view node) {
    return Inside(node, node.starts_with(kCDataOpen) ? kCDataOpen : kCDataOpen.substr(0, 3), L"]]>");
}

std::wstring_view NameFrom(std::wstring_view text, size_t from) {
    const auto end = static_cast<uint32_t>(text.size());
    const auto begin = static_cast<uint32_t>(std::min<size_t>(from, end));
    return text.substr(begin, NameEnd(text.data(), begin, end) - begin);
}

}  // namespace

// Kind and end of the node at `at`, where no element begins.
uint32_t MXmlDocument::NodeAt(uint32_t at, uint32_t end, uint32_t& node_end) const {
    const std::wstring_view text = std::wstring_view(m_text).substr(0, end);
    if (text[at] == L'<') {
        const MarkupKind markup = ClassifyMarkup(text, at).kind;
        if (markup == MarkupKind::kStartTag) {
            // No element begins here: the tag never ends, and the rest with it is one text.
            node_end = end;
            return kTextNode;
        }
        if (markup != MarkupKind::kBad) {
            node_end = std::min(ReadMarkup(text, at).end, end);
            return NodeKindOf(markup);
        }
    }
    // A "<" that introduces nothing is text.
    node_end = static_cast<uint32_t>(std::min<size_t>(text.find(L'<', at + 1), end));
    const std::wstring_view run = Slice(at, node_end);
    return std::ranges::all_of(run, IsWhite) ? kWhiteSpaceNode : kTextNode;
}

uint32_t MXmlDocument::FindNode(uint32_t kinds) {
    Position position = m_position;
    uint32_t next = NextElement();
    const Range range =
        position.parent != 0 ? ContentRange(position.parent) : Range{0, static_cast<uint32_t>(m_text.size())};
    uint32_t at = range.begin;
    if (AtOtherNode()) {
        at = position.node_offset + position.node_length;
    } else if (position.main != 0) {
        at = EndOf(position.main);
    }
    while (at < range.end) {
        if (next != 0 && at == m_index.Start(next)) {
            position = {position.parent, next, kElementNode};
            at = EndOf(next);
            next = m_index[next].next;
        } else {
            uint32_t node_end = 0;
            const uint32_t limit = next != 0 ? m_index.Start(next) : range.end;
            const uint32_t kind = NodeAt(at, limit, node_end);
            position = {position.parent, position.main, kind, at, node_end - at};
            at = node_end;
        }
        if ((position.node_kind & kinds) != 0) {
            m_position = position;
            return position.node_kind;
        }
    }
    return 0;
}

std::wstring MXmlDocument::GetTagName() const {
    if (!AtOtherNode()) {
        const uint32_t element = Current();
        return element != 0 ? std::wstring(TagName(element)) : std::wstring();
    }
    const std::wstring_view node =
        Slice(m_position.node_offset, m_position.node_offset + m_position.node_length);
    switch (m_position.node_kind) {
        case kCDataNode:
            return L"#cdata-section";
        case kCommentNode:
            return L"#comment";
        case kInstructionNode:
        case kLoneEndTagNode:
            return std::wstring(NameFrom(node, 2));
        case kDoctypeNode:
            return std::wstring(NameFrom(node, node.find_first_of(L" \t\n\r") + 1));
        default:
            return L"#text";
    }
}

std::wstring MXmlDocument::GetNodeText() const {
    if (!AtOtherNode()) return GetContent();
    const std::wstring_view node =
        Slice(m_position.node_offset, m_position.node_offset + m_position.node_length);
    switch (m_position.node_kind) {
        case kCDataNode:
            return std::wstring(CDataText(node));
        case kCommentNode:
            return std::wstring(Inside(node, L"<!--", L"-->"));
        case kInstructionNode:
            return std::wstring(Inside(node, L"<?", L"?>"));
        case kLoneEndTagNode:
            return std::wstring(Inside(node, L"</", L">"));
        case kDoctypeNode:
            return std::wstring(node);
        default:
            break;
    }
    std::wstring text;
    AppendDecoded(text, node);
    return text;
}

// The element's own text: child elements, comments and the like contribute nothing, white space stays.
void MXmlDocument::AppendContent(std::wstring& out, uint32_t element) const {
    const Range range = ContentRange(element);
    uint32_t child = FirstChild(element);
    for (uint32_t at = range.begin; at < range.end;) {
        const uint32_t limit = child != 0 ? m_index.Start(child) : range.end;
        if (at == limit) {
            at = EndOf(child);
            child = m_index[child].next;
            continue;
        }
        uint32_t node_end = 0;
        const uint32_t kind = NodeAt(at, limit, node_end);
        if (kind == kCDataNode) {
            out.append(CDataText(Slice(at, node_end)));
        } else if ((kind & (kTextNode | kWhiteSpaceNode)) != 0) {
            AppendDecoded(out, Slice(at, node_end));
        }
        at = node_end;
    }
}

}  // namespace hx
