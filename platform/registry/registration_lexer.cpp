#include "platform/registry/registration_lexer.h"

#include "platform/registry/registration_script.h"
#include "platform/system/one_line.h"

namespace hx {
namespace {

constexpr wchar_t kByteOrderMark = 0xFEFF;
constexpr wchar_t kQuote = L'\'';

bool IsBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n' || c == L'\f';
}

}  // namespace

std::wstring QuotedForError(std::wstring_view text) {
    constexpr size_t kLongestShown = 200;
    std::wstring shown = OneLine(text.substr(0, kLongestShown));
    if (text.size() > kLongestShown) shown += L"...";
    return L"\"" + shown + L"\"";
}

RegistrationLexer::RegistrationLexer(std::wstring_view script) : m_script(script) {
    if (script.starts_with(kByteOrderMark)) ++m_at;
}

RegistrationToken RegistrationLexer::Next() {
    SkipBlanks();
    RegistrationToken token;
    token.line = m_line;
    token.is_end = AtEnd();
    if (AtEnd()) return token;
    token.is_quoted = m_script[m_at] == kQuote;
    token.text = token.is_quoted ? ReadQuoted() : ReadBare();
    return token;
}

void RegistrationLexer::SkipBlanks() {
    for (; !AtEnd() && IsBlank(m_script[m_at]); ++m_at) {
        if (m_script[m_at] == L'\n') ++m_line;
    }
}

std::wstring RegistrationLexer::ReadQuoted() {
    std::wstring text;
    while (true) {
        const size_t end = m_script.find_first_of(L"'\r\n", m_at + 1);
        if (end == std::wstring_view::npos || m_script[end] != kQuote)
            throw RegistrationError{m_line, L"a text has no closing ' in its line"};
        text += m_script.substr(m_at + 1, end - m_at - 1);
        m_at = end + 1;
        if (AtEnd() || IsBlank(m_script[m_at])) return text;
        if (m_script[m_at] != kQuote) {
            throw RegistrationError{m_line, L"no blank behind the text " + QuotedForError(text) +
                                                L"; a ' in it is written twice"};
        }
        text += kQuote;
    }
}

std::wstring RegistrationLexer::ReadBare() {
    const size_t begin = m_at;
    while (!AtEnd() && !IsBlank(m_script[m_at])) ++m_at;
    const std::wstring_view word = m_script.substr(begin, m_at - begin);
    if (word.find(kQuote) != std::wstring_view::npos)
        throw RegistrationError{m_line, L"a ' stands within the word " + QuotedForError(word)};
    // Nobody who writes these means a name.
    if (word.starts_with(L"//") || word.starts_with(L"/*"))
        throw RegistrationError{m_line, L"a registration script has no comments"};
    return std::wstring(word);
}

}  // namespace hx
