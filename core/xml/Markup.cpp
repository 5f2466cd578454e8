#include "core/xml/Markup.h"

#include "core/xml/XmlChars.h"

namespace hx {
namespace {

uint32_t Behind(std::wstring_view text, std::wstring_view terminator, uint32_t from) {
    const size_t at = text.find(terminator, from);
    return at == std::wstring_view::npos ? Markup::kNoEnd : static_cast<uint32_t>(at + terminator.size());
}

// A document type ends at the first ">" that closes no declaration nested inside it. What stands in a quoted
// literal, a comment or a processing instruction closes nothing.
uint32_t BehindDoctype(std::wstring_view text, uint32_t at) {
    uint32_t nested = 0;
    for (uint32_t i = at + 2; i < text.size(); ++i) {
        const std::wstring_view rest = text.substr(i);
        if (IsQuote(rest[0])) {
            const size_t quote = text.find(rest[0], i + 1);
            if (quote == std::wstring_view::npos) return Markup::kNoEnd;
            i = static_cast<uint32_t>(quote);
        } else if (rest.starts_with(L"<!--") || rest.starts_with(L"<?")) {
            const bool comment = rest[1] == L'!';
            const uint32_t end = Behind(text, comment ? L"-->" : L"?>", i + (comment ? 4 : 2));
            if (end == Markup::kNoEnd) return end;
            i = end - 1;
        } else if (rest.starts_with(L"<!")) {
            ++nested;
        } else if (rest[0] == L'>') {
            if (nested == 0) return i + 1;
            --nested;
        }
    }
    return Markup::kNoEnd;
}

}  // namespace

Markup ClassifyMarkup(std::wstring_view text, uint32_t at) {
    const auto next = [&](uint32_t ahead) { return at + ahead < text.size() ? text[at + ahead] : L'\0'; };
    const auto ends = [&](uint32_t ahead) { return at + ahead >= text.size(); };
    const auto found = [](MarkupKind kind, const wchar_t* name) {
        return Markup{kind, Markup::kNoEnd, name};
    };

    if (ends(1)) return found(MarkupKind::kStartTag, L"tag");
    switch (next(1)) {
        case L'/':
            return found(MarkupKind::kEndTag, L"Element end tag");
        case L'?':
            return found(MarkupKind::kInstruction, L"Processing instruction");
        case L'!':
            break;
        default:
            if (IsTagStart(next(1))) return found(MarkupKind::kStartTag, L"Element tag");
            return found(MarkupKind::kBad, L"tag name character");
    }
    if (ends(2)) return found(MarkupKind::kDoctype, L"tag");
    switch (next(2)) {
        case L'-':
            if (ends(3) || next(3) == L'-') return found(MarkupKind::kComment, L"Comment");
            return found(MarkupKind::kBad, L"comment tag");
        case L'[':
            if (ends(3) || next(3) == L'C') return found(MarkupKind::kCData, L"CDATA Section");
            return found(MarkupKind::kBad, L"tag");
        case L'D':
        case L'E':
        case L'A':
        case L'N':
            return found(MarkupKind::kDoctype, L"Doctype");
        default:
            return found(MarkupKind::kBad, L"! tag");
    }
}

uint32_t FindMarkupEnd(std::wstring_view text, uint32_t at, MarkupKind kind) {
    switch (kind) {
        case MarkupKind::kComment:
            return Behind(text, L"-->", at + 4);
        case MarkupKind::kCData:
            return Behind(text, L"]]>", at + 4);
        case MarkupKind::kInstruction:
            return Behind(text, L"?>", at + 2);
        default:
            return BehindDoctype(text, at);
    }
}

uint32_t FindTagEnd(std::wstring_view text, uint32_t name) {
    const auto end = static_cast<uint32_t>(text.size());
    for (uint32_t at = NameEnd(text.data(), name, end); at < end; ++at) {
        const wchar_t c = text[at];
        if (c == L'>') return at;
        if (IsQuote(c)) {
            const size_t quote = text.find(c, at + 1);
            if (quote == std::wstring_view::npos) break;
            at = static_cast<uint32_t>(quote);
        }
    }
    return Markup::kNoEnd;
}

Markup ReadMarkup(std::wstring_view text, uint32_t at) {
    Markup markup = ClassifyMarkup(text, at);
    if (markup.kind == MarkupKind::kStartTag || markup.kind == MarkupKind::kEndTag) {
        const uint32_t gt = FindTagEnd(text, at + (markup.kind == MarkupKind::kEndTag ? 2 : 1));
        markup.end = gt == Markup::kNoEnd ? gt : gt + 1;
    } else if (markup.kind != MarkupKind::kBad) {
        markup.end = FindMarkupEnd(text, at, markup.kind);
    }
    return markup;
}

}  // namespace hx
