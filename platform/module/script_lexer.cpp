#include "platform/module/script_lexer.h"

#include <algorithm>

namespace hx {
namespace {

constexpr wchar_t kByteOrderMark = 0xFEFF;
constexpr std::wstring_view kMarks = L",|+-(){}#";
// Names are shown in errors; a foolish one must not fill the screen.
constexpr size_t kLongestShown = 60;

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}
bool IsWordChar(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_' || IsDigit(c);
}
bool IsHighSurrogate(wchar_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(wchar_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

// 16 for what is no digit.
uint32_t DigitValue(wchar_t c) {
    if (IsDigit(c)) return static_cast<uint32_t>(c - L'0');
    if (c >= L'a' && c <= L'f') return static_cast<uint32_t>(c - L'a' + 10);
    if (c >= L'A' && c <= L'F') return static_cast<uint32_t>(c - L'A' + 10);
    return 16;
}

// As people name a character that need not be visible: U+00E4.
std::wstring CodePoint(wchar_t c) {
    std::wstring text;
    auto code = static_cast<uint32_t>(c);
    for (; code != 0 || text.size() < 4; code /= 16)
        text.insert(text.begin(), L"0123456789ABCDEF"[code % 16]);
    return L"U+" + text;
}

// Both halves of a pair become the one character that they stand for.
void Append(std::wstring& text, wchar_t c) {
    if (sizeof(wchar_t) == 4 && IsLowSurrogate(c) && !text.empty() && IsHighSurrogate(text.back())) {
        text.back() = static_cast<wchar_t>(0x10000 + ((text.back() - 0xD800) << 10) + (c - 0xDC00));
    } else {
        text += c;
    }
}

size_t Utf16Size(std::wstring_view text) {
    return text.size() +
           static_cast<size_t>(std::ranges::count_if(text, [](wchar_t c) { return c > 0xFFFF; }));
}

[[noreturn]] void FailTooLong(uint32_t line) {
    throw ScriptError{line, L"a text has more than " + std::to_wstring(kLongestScriptText) + L" characters"};
}

uint32_t NumberOf(std::wstring_view word, uint32_t line) {
    const auto fail = [&](const wchar_t* why) {
        throw ScriptError{line,
                          L"\"" + std::wstring(word.substr(0, kLongestShown)) + L"\" is no number: " + why};
    };
    std::wstring_view digits = word;
    const bool is_hex = digits.starts_with(L"0x") || digits.starts_with(L"0X");
    if (is_hex) digits.remove_prefix(2);
    if (digits.ends_with(L'L') || digits.ends_with(L'l')) digits.remove_suffix(1);
    // Some tools take such a number as octal, some as decimal.
    if (!is_hex && digits.size() > 1 && digits.front() == L'0') fail(L"a decimal number has no leading zero");
    const uint32_t base = is_hex ? 16 : 10;
    uint64_t value = 0;
    for (const wchar_t c : digits) {
        const uint32_t digit = DigitValue(c);
        if (digit >= base) fail(L"expected decimal digits, or 0x and hexadecimal ones");
        value = value * base + digit;
        if (value > UINT32_MAX) fail(L"it has more than 32 bits");
    }
    if (digits.empty()) fail(L"it has no digits");
    return static_cast<uint32_t>(value);
}

}  // namespace

ScriptLexer::ScriptLexer(std::wstring_view script) : m_script(script) {
    if (script.starts_with(kByteOrderMark)) ++m_at;
}

wchar_t ScriptLexer::Peek(size_t ahead) const {
    return ahead < m_script.size() - m_at ? m_script[m_at + ahead] : L'\0';
}

void ScriptLexer::Next(ScriptToken& token) {
    SkipBlanks(false);
    token.starts_line = m_starts_line;
    token.line = m_line;
    token.source = {};
    m_starts_line = false;
    const wchar_t c = Peek();
    if (AtEnd()) {
        token.kind = ScriptTokenKind::kEnd;
    } else if (AtLiteral()) {
        token.kind = ScriptTokenKind::kText;
        ReadText(token);
    } else if (IsWordChar(c)) {
        token.source = TakeWord();
        token.kind = IsDigit(c) ? ScriptTokenKind::kNumber : ScriptTokenKind::kName;
        if (IsDigit(c)) token.number = NumberOf(token.source, m_line);
    } else if (kMarks.find(c) != std::wstring_view::npos) {
        token.kind = ScriptTokenKind::kMark;
        token.source = m_script.substr(m_at++, 1);
    } else {
        const std::wstring shown = c > L' ' && c < 0x7F ? std::wstring{L'"', c, L'"'} : CodePoint(c);
        throw ScriptError{m_line, L"the character " + shown + L" has no meaning here"};
    }
}

bool ScriptLexer::LineEnds() {
    SkipBlanks(true);
    return AtEnd() || Peek() == L'\n';
}

void ScriptLexer::SkipLine() {
    m_at = std::min(m_script.find(L'\n', m_at), m_script.size());
}

void ScriptLexer::SkipBlanks(bool stays_in_line) {
    while (!AtEnd()) {
        const wchar_t c = Peek();
        if (c == L'\n') {
            if (stays_in_line) return;
            m_starts_line = true;
            ++m_line;
            ++m_at;
        } else if (c == L' ' || c == L'\t' || c == L'\r' || c == L'\f') {
            ++m_at;
        } else if (c == L'/' && Peek(1) == L'/') {
            SkipLine();
        } else if (c == L'/' && Peek(1) == L'*') {
            SkipBlockComment();
        } else {
            return;
        }
    }
}

void ScriptLexer::SkipBlockComment() {
    const size_t end = m_script.find(L"*/", m_at + 2);
    if (end == std::wstring_view::npos)
        throw ScriptError{m_line, L"a comment that begins here has no \"*/\""};
    m_line += static_cast<uint32_t>(std::ranges::count(m_script.substr(m_at, end - m_at), L'\n'));
    m_at = end + 2;
}

std::wstring_view ScriptLexer::TakeWord() {
    const size_t begin = m_at;
    while (IsWordChar(Peek())) ++m_at;
    return m_script.substr(begin, m_at - begin);
}

bool ScriptLexer::AtLiteral() const {
    return Peek() == L'"' || (Peek() == L'L' && Peek(1) == L'"');
}

void ScriptLexer::ReadText(ScriptToken& token) {
    token.text.clear();
    for (; AtLiteral(); SkipBlanks(false)) ReadLiteral(token);
    if (Utf16Size(token.text) > kLongestScriptText) FailTooLong(token.line);
    if (sizeof(wchar_t) == 4 &&
        std::ranges::any_of(token.text, [](wchar_t c) { return IsHighSurrogate(c) || IsLowSurrogate(c); })) {
        throw ScriptError{token.line, L"a text holds half of a surrogate pair"};
    }
}

void ScriptLexer::ReadLiteral(ScriptToken& token) {
    const bool is_wide = Peek() == L'L';
    m_at += is_wide ? 2 : 1;
    while (token.text.size() <= kLongestScriptText) {
        const wchar_t c = Peek();
        if (AtEnd() || c == L'\n' || c == L'\r') {
            throw ScriptError{m_line, L"a text has no closing quote in its line"};
        }
        ++m_at;
        if (c == L'"') {
            if (Peek() != L'"') return;
            ++m_at;
            token.text += L'"';
        } else if (c == L'\\') {
            ReadEscape(token.text, is_wide);
        } else if ((c < L' ' && c != L'\t') || c > 0x10FFFF) {
            throw ScriptError{m_line, L"a text holds " + CodePoint(c) + L", which is no printable character"};
        } else {
            Append(token.text, c);
        }
    }
    FailTooLong(token.line);
}

void ScriptLexer::ReadEscape(std::wstring& text, bool is_wide) {
    constexpr std::wstring_view kEscapes = L"nrt\\\"";
    constexpr std::wstring_view kMeanings = L"\n\r\t\\\"";
    const size_t escape = AtEnd() ? std::wstring_view::npos : kEscapes.find(Peek());
    if (escape != std::wstring_view::npos) {
        ++m_at;
        text += kMeanings[escape];
        return;
    }
    const bool is_hex = Peek() == L'x';
    const uint32_t base = is_hex ? 16 : 8;
    if (is_hex) ++m_at;
    const size_t begin = m_at;
    const size_t most = !is_hex ? 3 : is_wide ? 4 : 2;
    uint32_t code = 0;
    for (; m_at - begin < most && DigitValue(Peek()) < base; ++m_at) code = code * base + DigitValue(Peek());
    if (m_at == begin) {
        throw ScriptError{m_line,
                          L"a text holds an unknown escape; expected \\n, \\r, \\t, \\\\, \\\", "
                          L"\\x and hexadecimal digits, or \\ and octal digits"};
    }
    // The system's resource compiler would count the digits differently, or ask the code page.
    const bool goes_on = is_hex != is_wide && DigitValue(Peek()) < base;
    if (goes_on || (!is_wide && code > 0x7F)) {
        throw ScriptError{m_line,
                          L"an escape has too many digits; expected the character itself, or L\"...\" "
                          L"with \\x and 4 hexadecimal digits"};
    }
    Append(text, static_cast<wchar_t>(code));
}

}  // namespace hx
