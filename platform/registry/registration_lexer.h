// The words of a registration script, one after the other. For its parser; what is no part of the language
// is thrown as a RegistrationError with its line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hx {

struct RegistrationToken {
    uint32_t line = 1;
    bool is_end = false;
    bool is_quoted = false;
    std::wstring text;  // as written, but without the quotes around it
};

// A text of a script or of a replacement as one line of an error can hold it, in quotes.
std::wstring QuotedForError(std::wstring_view text);

// `script` must stay.
class RegistrationLexer {
public:
    explicit RegistrationLexer(std::wstring_view script);

    // The end comes again and again.
    RegistrationToken Next();

private:
    bool AtEnd() const { return m_at == m_script.size(); }
    void SkipBlanks();
    std::wstring ReadQuoted();
    std::wstring ReadBare();

    std::wstring_view m_script;
    size_t m_at = 0;
    uint32_t m_line = 1;
};

}  // namespace hx
