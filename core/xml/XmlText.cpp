#include "core/xml/XmlText.h"

#include <algorithm>
#include <optional>

#include "core/xml/MarkupScan.h"

namespace hx {
namespace {

struct NamedReference {
    wchar_t character;
    std::wstring_view reference;
};

// The first three are the ones replaced in element text.
constexpr NamedReference kNamedReferences[] = {
    {L'<', L"&lt;"}, {L'&', L"&amp;"}, {L'>', L"&gt;"}, {L'\'', L"&apos;"}, {L'"', L"&quot;"},
};

// The reference for a character of the set; empty for any other.
std::wstring_view ReferenceFor(wchar_t c, EscapeSet set) {
    switch (c) {
        case L'<':
            return kNamedReferences[0].reference;
        case L'&':
            return kNamedReferences[1].reference;
        case L'>':
            return kNamedReferences[2].reference;
        case L'\'':
            return set == EscapeSet::kAttribute ? kNamedReferences[3].reference : std::wstring_view();
        case L'"':
            return set == EscapeSet::kAttribute ? kNamedReferences[4].reference : std::wstring_view();
        default:
            return {};
    }
}

bool IsReferenceNameChar(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') || c == L'_' ||
           c == L':' || c == L'-' || c == L'.' || static_cast<uint32_t>(c) > 0x7F;
}

// True if `text`, which begins with "&", begins with something of the form of a reference.
bool BeginsReference(std::wstring_view text) {
    size_t at = 1;
    if (at < text.size() && text[at] == L'#') ++at;
    const size_t name = at;
    while (at < text.size() && IsReferenceNameChar(text[at])) ++at;
    return at > name && at < text.size() && text[at] == L';';
}

struct Reference {
    uint32_t character;
    size_t length;  // of the reference in the text
};

uint32_t DigitValue(wchar_t c) {
    if (c >= L'0' && c <= L'9') return static_cast<uint32_t>(c - L'0');
    if (c >= L'a' && c <= L'f') return static_cast<uint32_t>(c - L'a') + 10;
    if (c >= L'A' && c <= L'F') return static_cast<uint32_t>(c - L'A') + 10;
    return UINT32_MAX;
}

std::optional<Reference> ReadNumericReference(std::wstring_view text) {
    constexpr size_t kMaxDigits = 7;
    const bool hexadecimal = text.size() > 2 && text[2] == L'x';
    const uint32_t base = hexadecimal ? 16 : 10;
    const size_t first = hexadecimal ? 3 : 2;
    uint32_t value = 0;
    size_t at = first;
    while (at < text.size() && at - first < kMaxDigits && DigitValue(text[at]) < base) {
        value = value * base + DigitValue(text[at++]);
    }
    if (at == first || at == text.size() || text[at] != L';') return {};
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    if (value == 0 || surrogate || value > 0x10FFFF) return {};
    return Reference{value, at + 1};
}

// The reference that `text` begins with, if it stands for a character.
std::optional<Reference> ReadReference(std::wstring_view text) {
    if (text.size() > 1 && text[1] == L'#') return ReadNumericReference(text);
    for (const NamedReference& named : kNamedReferences) {
        if (text.starts_with(named.reference)) {
            return Reference{static_cast<uint32_t>(named.character), named.reference.size()};
        }
    }
    return {};
}

void AppendCharacter(std::wstring& out, uint32_t character) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (character > 0xFFFF) {
            out += static_cast<wchar_t>(0xD7C0 + (character >> 10));
            character = 0xDC00 + (character & 0x3FF);
        }
    }
    out += static_cast<wchar_t>(character);
}

}  // namespace

void AppendEscaped(std::wstring& out, std::wstring_view text, EscapeSet set, bool keep_references) {
    constexpr size_t kStretch = 256;
    static const MarkupScan scan = FastestMarkupScan();
    uint32_t positions[kStretch + kScanSlack];
    size_t copied = 0;
    for (size_t from = 0; from < text.size(); from += kStretch) {
        const auto length = static_cast<uint32_t>(std::min(kStretch, text.size() - from));
        const size_t count = scan(text.data() + from, 0, length, positions);
        for (size_t i = 0; i < count; ++i) {
            const size_t at = from + positions[i];
            const std::wstring_view reference = ReferenceFor(text[at], set);
            if (reference.empty()) continue;
            if (keep_references && text[at] == L'&' && BeginsReference(text.substr(at))) continue;
            out.append(text.substr(copied, at - copied)).append(reference);
            copied = at + 1;
        }
    }
    out.append(text.substr(copied));
}

void AppendDecoded(std::wstring& out, std::wstring_view text) {
    size_t copied = 0;
    for (size_t at = text.find(L'&'); at != std::wstring_view::npos; at = text.find(L'&', at)) {
        const std::optional<Reference> reference = ReadReference(text.substr(at));
        if (!reference) {
            ++at;
            continue;
        }
        out.append(text.substr(copied, at - copied));
        AppendCharacter(out, reference->character);
        copied = at += reference->length;
    }
    out.append(text.substr(copied));
}

void AppendCData(std::wstring& out, std::wstring_view text) {
    constexpr std::wstring_view kClose = L"]]>";
    out.append(L"<![CDATA[");
    for (size_t at = text.find(kClose); at != std::wstring_view::npos; at = text.find(kClose)) {
        out.append(text.substr(0, at)).append(L"]]]]><![CDATA[>");
        text.remove_prefix(at + kClose.size());
    }
    out.append(text).append(kClose);
}

}  // namespace hx
