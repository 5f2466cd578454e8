#include "core/xml/MXmlDocument.h"

#include <algorithm>
#include <utility>

#include "core/xml/AttributeReader.h"
#include "core/xml/Markup.h"
#include "core/xml/MarkupIndexer.h"
#include "core/xml/SameChars.h"
#include "core/xml/XmlChars.h"
#include "core/xml/XmlNames.h"
#include "core/xml/XmlText.h"

namespace hx {
namespace {

// Settings documents have some 50 characters for each element.
constexpr size_t kCharactersPerRecord = 48;

void Join(std::wstring& error, std::wstring_view message) {
    if (!error.empty()) error += L", ";
    error += message;
}

// True for the start tag <name attribute="value"> or <name attribute="value"/>, as a writer makes it;
// `length` is the one without the slash.
bool IsWrittenTag(const wchar_t* tag, size_t length, std::wstring_view name, std::wstring_view attribute,
                  std::wstring_view value) {
    if (length != name.size() + attribute.size() + value.size() + 6) return false;
    const wchar_t* const behind_name = tag + 1 + name.size();
    const wchar_t* const behind_attribute = behind_name + 1 + attribute.size();
    return SameChars(tag + 1, name) && behind_name[0] == L' ' && SameChars(behind_name + 1, attribute) &&
           behind_attribute[0] == L'=' && behind_attribute[1] == L'"' &&
           SameChars(behind_attribute + 2, value) && behind_attribute[2 + value.size()] == L'"';
}

}  // namespace

MXmlDocument::MXmlDocument(uint32_t flags) : m_flags(flags) {
    m_index.Reset(1);
}

bool MXmlDocument::Parse(std::wstring text) {
    m_text = std::move(text);
    m_error.clear();
    m_position = {};
    for (auto& bucket : m_saved) bucket.clear();
    if (m_text.size() > kMaxLength) {
        m_text.clear();
        m_error = L"Document too large";
    } else if (m_text.empty()) {
        m_error = L"Empty document";
    }
    m_index.Reset(m_text.size() / kCharactersPerRecord + 8);
    m_readable = false;
    if (!m_error.empty()) return false;

    m_index[0].length = static_cast<uint32_t>(m_text.size());
    MarkupIndexer indexer(m_text, 0, m_index[0].length, m_index, 0, IgnoreCase());
    indexer.Run();
    m_error = indexer.Error();
    m_readable = !indexer.HasOtherProblem();
    const uint32_t root = FirstChild(0);
    if (root == 0) Join(m_error, L"No root element");
    if (root != 0 && m_index[root].next != 0) Join(m_error, L"Root element has sibling");
    m_readable = m_readable && root != 0 && m_index[root].next == 0;
    return m_error.empty();
}

std::wstring MXmlDocument::TakeText() {
    std::wstring text = std::move(m_text);
    Parse({});
    return text;
}

std::vector<MXmlDocument::SavedPosition>& MXmlDocument::BucketOf(std::wstring_view name) {
    size_t sum = 0;
    for (const wchar_t c : name) sum += static_cast<uint32_t>(c);
    return m_saved[sum % m_saved.size()];
}

void MXmlDocument::SavePosition(std::wstring_view name) {
    auto& bucket = BucketOf(name);
    const auto found = std::ranges::find(bucket, name, &SavedPosition::name);
    if (found != bucket.end()) {
        found->position = m_position;
    } else {
        bucket.push_back({std::wstring(name), m_position});
    }
}

bool MXmlDocument::RestorePosition(std::wstring_view name) {
    const auto& bucket = BucketOf(name);
    const auto found = std::ranges::find(bucket, name, &SavedPosition::name);
    if (found == bucket.end()) return false;
    m_position = found->position;
    return true;
}

uint32_t MXmlDocument::NextElement() const {
    return m_position.main != 0 ? m_index[m_position.main].next : FirstChild(m_position.parent);
}

bool MXmlDocument::FindElement(std::wstring_view name) {
    for (uint32_t element = NextElement(); element != 0; element = m_index[element].next) {
        if (name.empty() || IsBareTag(element, name) ||
            MatchesRequest(TagName(element), name, IgnoreCase())) {
            m_position = {m_position.parent, element, kElementNode};
            return true;
        }
    }
    return false;
}

bool MXmlDocument::IsBareTag(uint32_t element, std::wstring_view name) const {
    const ElementRecord& record = m_index[element];
    const uint32_t slash = (record.flags & kEmpty) != 0 ? 1 : 0;
    return record.start_tag_length - slash == name.size() + 2 &&
           SameChars(m_text.data() + m_index.Start(element) + 1, name);
}

bool MXmlDocument::FindNext(std::wstring_view name, std::wstring_view attribute, std::wstring_view value) {
    const uint32_t next = NextElement();
    if (next == 0) return false;
    const Position before = m_position;
    m_position = {before.parent, next, kElementNode};
    const ElementRecord& record = m_index[next];
    const uint32_t slash = (record.flags & kEmpty) != 0 ? 1 : 0;
    if (IsWrittenTag(m_text.data() + m_index.Start(next), record.start_tag_length - slash, name, attribute,
                     value) ||
        (IsElement(name) && IsAttribute(attribute, value))) {
        return true;
    }
    m_position = before;
    return false;
}

bool MXmlDocument::EnterElement() {
    if (m_position.main == 0) return false;
    m_position = {m_position.main};
    return true;
}

bool MXmlDocument::LeaveElement() {
    if (m_position.parent == 0) return false;
    m_position = {m_index[m_position.parent].parent, m_position.parent, kElementNode};
    return true;
}

std::wstring_view MXmlDocument::Slice(uint32_t begin, uint32_t end) const {
    return std::wstring_view(m_text).substr(begin, end - begin);
}

std::wstring_view MXmlDocument::TagName(uint32_t element) const {
    const uint32_t name = m_index.Start(element) + 1;
    return Slice(name, NameEnd(m_text.data(), name, static_cast<uint32_t>(m_text.size())));
}

std::wstring_view MXmlDocument::StartTag() const {
    const uint32_t element = Current();
    if (element == 0) return {};
    return Slice(m_index.Start(element), m_index.Start(element) + m_index[element].start_tag_length);
}

bool MXmlDocument::IsElement(std::wstring_view name) const {
    const uint32_t element = Current();
    return element != 0 && MatchesRequest(TagName(element), name, IgnoreCase());
}

std::wstring_view MXmlDocument::RawAttribute(std::wstring_view name) const {
    const std::wstring_view tag = StartTag();
    if (tag.empty() || name.empty()) return {};
    AttributeReader attributes(tag);
    Attribute attribute;
    while (attributes.Next(attribute)) {
        if (SameName(attribute.name, name, IgnoreCase())) return attribute.value;
    }
    return {};
}

// Decoded only if there is something to decode: reading a value needs no memory.
bool MXmlDocument::IsAttribute(std::wstring_view name, std::wstring_view value) const {
    const std::wstring_view written = RawAttribute(name);
    return written.find(L'&') == std::wstring_view::npos ? written == value : GetAttribute(name) == value;
}

std::wstring MXmlDocument::GetAttribute(std::wstring_view name) const {
    std::wstring value;
    AppendDecoded(value, RawAttribute(name));
    return value;
}

std::wstring_view MXmlDocument::ElementContent() const {
    const uint32_t element = Current();
    if (element == 0) return {};
    const Range range = ContentRange(element);
    return Slice(range.begin, range.end);
}

std::wstring MXmlDocument::GetElementContent() const {
    return std::wstring(ElementContent());
}

std::wstring_view MXmlDocument::ContentOtherwise(std::wstring& scratch) const {
    const std::wstring_view written = ElementContent();
    if (written.find(L'<') == std::wstring_view::npos && written.find(L'&') == std::wstring_view::npos) {
        return written;
    }
    scratch.clear();
    AppendContent(scratch, Current());
    return scratch;
}

std::wstring MXmlDocument::GetContent() const {
    std::wstring content;
    if (const uint32_t element = Current()) AppendContent(content, element);
    return content;
}

}  // namespace hx
