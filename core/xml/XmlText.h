// Character references and CDATA sections: text as people mean it, and as the document holds it. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hx {

// Which characters are replaced on writing.
enum class EscapeSet : uint8_t {
    kText,       // < & >
    kAttribute,  // < & > ' "
};

// Appends `text` with the characters of the set replaced by references. With `keep_references` an "&" that
// begins a well-formed reference stays as it is.
void AppendEscaped(std::wstring& out, std::wstring_view text, EscapeSet set, bool keep_references = false);

// Appends `text` with its references replaced by what they stand for: the five named ones, "&#" with at most
// seven decimal digits, "&#x" with at most seven hexadecimal ones. Every other "&" is kept as it stands.
void AppendDecoded(std::wstring& out, std::wstring_view text);

// Appends `text` as CDATA: one section, or several where the text holds "]]>".
void AppendCData(std::wstring& out, std::wstring_view text);

}  // namespace hx
