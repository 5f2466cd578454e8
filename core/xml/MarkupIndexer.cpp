#include "core/xml/MarkupIndexer.h"

#include <algorithm>
#include <cwchar>

#include "core/xml/XmlChars.h"
#include "core/xml/XmlNames.h"

namespace hx {
namespace {

// The message with its "%s" replaced, one after the other.
std::wstring FillIn(std::wstring_view message, std::initializer_list<std::wstring> arguments) {
    std::wstring filled;
    for (const std::wstring& argument : arguments) {
        const size_t place = message.find(L"%s");
        filled.append(message.substr(0, place)).append(argument);
        message.remove_prefix(place + 2);
    }
    return filled.append(message);
}

constexpr std::wstring_view kIncorrect = L"Incorrect %s at offset %s";

}  // namespace

MarkupIndexer::MarkupIndexer(std::wstring_view text, uint32_t from, uint32_t end, ElementIndex& index,
                             uint32_t base, bool ignore_case)
    : m_text(text.substr(0, end)),
      m_chars(text.data()),
      m_end(end),
      m_index(index),
      m_base(base),
      m_ignore_case(ignore_case),
      m_tape(m_chars, from, end),
      m_open(base),
      m_level(std::min(index[base].level + 1u, ElementRecord::kMaxLevel)) {}

void MarkupIndexer::Run() {
    for (;;) {
        IndexOrdinaryMarkup();
        const uint32_t at = m_tape.Next();
        if (at == m_end) break;
        if (m_chars[at] != L'<') continue;
        const wchar_t next = at + 1 < m_end ? m_chars[at + 1] : L'\0';
        if (IsTagStart(next)) {
            StartTag(at, false);
        } else if (next == L'/') {
            EndTag(at);
        } else {
            OtherMarkup(at);
        }
    }
    while (m_open != m_base) CloseUnended(m_end);
    LinkLastChild(m_base);
}

void MarkupIndexer::StartTag(uint32_t lt, bool bad_name) {
    if (bad_name && FirstProblem(m_open)) {
        m_error = FillIn(kIncorrect, {L"tag name character", std::to_wstring(lt)});
    }
    const uint32_t gt = TagEnd(lt + 1);
    if (gt == m_end) {
        Unterminated(L"Element tag", lt);
        return;
    }
    const uint32_t element = m_index.Add();
    ElementRecord& record = m_index[element];
    m_index.Start(element) = lt;
    record.start_tag_length = gt + 1 - lt;
    record.level = m_level & ElementRecord::kMaxLevel;
    record.flags = 0;
    record.parent = m_open;
    record.first_child = 0;
    record.next = 0;
    record.previous = m_last;
    (m_last != 0 ? m_index[m_last].next : m_index[m_open].first_child) = element;
    if (bad_name) {
        record.flags = kIllFormed;
        m_other_problem |= !IsTransformCell(NameAt(lt + 1));
    }
    if (m_chars[gt - 1] == L'/') {
        record.length = record.start_tag_length;
        record.end_tag_length = 0;
        record.flags |= kEmpty;
        m_last = element;
        return;
    }
    m_open = element;
    m_last = 0;
    m_level = std::min(m_level + 1, ElementRecord::kMaxLevel);
    if (m_open_names) [[unlikely]]
        m_open_names->Add(OpenName());
}

void MarkupIndexer::EndTag(uint32_t lt) {
    const uint32_t gt = TagEnd(lt + 2);
    if (gt == m_end) {
        Unterminated(L"Element end tag", lt);
    } else if (m_open != m_base && ClosesOpenElement(lt + 2, gt)) {
        Close(lt, gt + 1);
    } else {
        UnexpectedEndTag(lt, gt);
    }
}

void MarkupIndexer::OtherMarkup(uint32_t lt) {
    const Markup markup = ClassifyMarkup(m_text, lt);
    if (markup.kind == MarkupKind::kBad) {
        if (lt + 1 < m_end && m_chars[lt + 1] != L'!' && !IsDelimiter(m_chars[lt + 1]))
            return StartTag(lt, true);
        if (FirstProblem(m_open)) m_error = FillIn(kIncorrect, {markup.name, std::to_wstring(lt)});
        m_other_problem = true;
        return;
    }
    const uint32_t end = lt + 1 == m_end ? Markup::kNoEnd : FindMarkupEnd(m_text, lt, markup.kind);
    if (end == Markup::kNoEnd) Unterminated(markup.name, lt);
    m_tape.SkipTo(std::min(end, m_end));
}

// Offset of the ">" of the tag whose name begins at `name`; m_end if the text ends first.
uint32_t MarkupIndexer::TagEnd(uint32_t name) {
    uint32_t name_end = 0;
    for (;;) {
        const uint32_t at = m_tape.Next();
        if (at == m_end || m_chars[at] == L'>') return at;
        if (!IsQuote(m_chars[at])) continue;
        // A quote that is part of the tag's name quotes nothing. Behind "=" it cannot be one.
        if (m_chars[at - 1] != L'=') {
            if (name_end == 0) name_end = NameEnd(m_chars, name, m_end);
            if (at < name_end) continue;
        }
        uint32_t closing = m_tape.Next();
        while (closing != m_end && m_chars[closing] != m_chars[at]) closing = m_tape.Next();
    }
}

bool MarkupIndexer::ClosesOpenElement(uint32_t name, uint32_t gt) const {
    // Two names are equal when the texts are, up to the ">" of the end tag, and both go on with a delimiter:
    // so the end of the name need not be looked for.
    const uint32_t open = m_index.Start(m_open) + 1;
    if (std::wmemcmp(m_chars + open, m_chars + name, gt - name) == 0 &&
        IsDelimiter(m_chars[open + (gt - name)])) {
        return true;
    }
    return OpenNameIs(NameAt(name));
}

void MarkupIndexer::UnexpectedEndTag(uint32_t lt, uint32_t gt) {
    m_other_problem = true;
    const std::wstring_view name = NameAt(lt + 2);
    if (m_open == m_base) {
        if (FirstProblem(m_open)) {
            m_error = FillIn(L"No start tag for end tag '%s' at offset %s",
                             {std::wstring(name), std::to_wstring(lt)});
        }
        return;
    }
    // Looking through all open elements for each stray end tag would take for ever; so their names are
    // counted.
    if (!m_open_names) {
        m_open_names.emplace(m_ignore_case);
        for (uint32_t open = m_open; open != m_base; open = m_index[open].parent) {
            m_open_names->Add(NameAt(m_index.Start(open) + 1));
        }
    }
    if (!m_open_names->Contains(name)) {
        if (FirstProblem(m_open)) {
            m_error = FillIn(L"End tag '%s' at offset %s does not match start tag '%s' at offset %s",
                             {std::wstring(name), std::to_wstring(lt), std::wstring(OpenName()),
                              std::to_wstring(m_index.Start(m_open))});
        }
        return;
    }
    while (!OpenNameIs(name)) CloseUnended(lt);
    Close(lt, gt + 1);
}

void MarkupIndexer::Close(uint32_t end_tag, uint32_t end) {
    if (m_open_names) [[unlikely]]
        m_open_names->Remove(OpenName());
    LinkLastChild(m_open);
    ElementRecord& record = m_index[m_open];
    record.length = end - m_index.Start(m_open);
    record.end_tag_length = end - end_tag;
    m_last = m_open;
    m_open = record.parent;
    if (record.flags & kIllFormed) m_index[m_open].flags |= kIllFormed;
    if (m_level < ElementRecord::kMaxLevel) {
        --m_level;
    } else {
        m_level = std::min(m_index[m_open].level + 1u, ElementRecord::kMaxLevel);
    }
}

void MarkupIndexer::CloseUnended(uint32_t end) {
    m_other_problem = true;
    if (FirstProblem(m_open)) {
        m_error = FillIn(L"Element '%s' at offset %s not ended",
                         {std::wstring(OpenName()), std::to_wstring(m_index.Start(m_open))});
    }
    m_index[m_open].flags |= kNotEnded;
    Close(end, end);
}

// The first child knows the last one.
void MarkupIndexer::LinkLastChild(uint32_t parent) {
    if (m_last != 0) m_index[m_index[parent].first_child].previous = m_last;
}

std::wstring_view MarkupIndexer::NameAt(uint32_t offset) const {
    return m_text.substr(offset, NameEnd(m_chars, offset, m_end) - offset);
}

// Looks no further than `name` is long: the open element's name may be a million times as long.
bool MarkupIndexer::OpenNameIs(std::wstring_view name) const {
    const uint32_t open = m_index.Start(m_open) + 1;
    return !name.empty() && name.size() < m_end - open && IsDelimiter(m_chars[open + name.size()]) &&
           SameName(m_text.substr(open, name.size()), name, m_ignore_case);
}

// Flags the element. True if nothing was described yet: only the first problem is.
bool MarkupIndexer::FirstProblem(uint32_t element) {
    m_index[element].flags |= kIllFormed;
    return m_error.empty();
}

void MarkupIndexer::Unterminated(const wchar_t* construct, uint32_t lt) {
    m_other_problem = true;
    if (FirstProblem(m_open))
        m_error = FillIn(L"%s at offset %s unterminated", {construct, std::to_wstring(lt)});
}

}  // namespace hx
