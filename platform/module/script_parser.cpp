#include "platform/module/script_parser.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/module/script_names.h"

namespace hx {
namespace {

constexpr uint32_t kDeepestSum = 32;
constexpr int64_t kUtf8CodePage = 65001;

wchar_t UpperAscii(wchar_t c) {
    return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
}

bool BeginsWith(std::wstring_view word, std::wstring_view beginning) {
    return word.size() >= beginning.size() &&
           std::ranges::equal(word.substr(0, beginning.size()), beginning, {}, UpperAscii, UpperAscii);
}

std::wstring Shown(const ScriptToken& token) {
    switch (token.kind) {
        case ScriptTokenKind::kEnd:
            return L"the end of the script";
        case ScriptTokenKind::kText:
            return L"the text " + Quoted(token.text);
        default:
            return Quoted(token.source);
    }
}

}  // namespace

std::wstring Quoted(std::wstring_view text) {
    constexpr size_t kLongestShown = 60;
    std::wstring shown(text.substr(0, kLongestShown));
    std::ranges::replace_if(
        shown, [](wchar_t c) { return c < L' '; }, L' ');
    if (text.size() > kLongestShown) shown += L"...";
    return L"\"" + shown + L"\"";
}

ScriptParser::ScriptParser(std::wstring_view script) : m_lexer(script) {
    Advance();
}

void ScriptParser::Advance() {
    m_lexer.Next(m_token);
    while (IsMark(L'#') && m_token.starts_line) {
        ReadDirective();
        m_lexer.Next(m_token);
    }
}

bool ScriptParser::IsMark(wchar_t mark) const {
    return m_token.kind == ScriptTokenKind::kMark && m_token.source.front() == mark;
}

bool ScriptParser::IsWord(std::wstring_view word) const {
    return m_token.source.size() == word.size() && BeginsWith(m_token.source, word);
}

bool ScriptParser::AcceptWord(std::wstring_view word) {
    if (!IsWord(word)) return false;
    Advance();
    return true;
}

bool ScriptParser::AcceptWordBeginningWith(std::wstring_view beginning) {
    if (!BeginsWith(m_token.source, beginning)) return false;
    Advance();
    return true;
}

bool ScriptParser::AcceptMark(wchar_t mark) {
    if (!IsMark(mark)) return false;
    Advance();
    return true;
}

void ScriptParser::ExpectMark(wchar_t mark, std::wstring_view what) {
    if (!AcceptMark(mark)) FailExpected(what);
}

std::wstring ScriptParser::ExpectText(std::wstring_view what) {
    if (!IsText()) FailExpected(what);
    std::wstring text = std::move(m_token.text);
    Advance();
    return text;
}

std::wstring ScriptParser::ExpectName(std::wstring_view what) {
    if (m_token.kind != ScriptTokenKind::kName) FailExpected(what);
    std::wstring name(m_token.source);
    Advance();
    return name;
}

int32_t ScriptParser::ExpectNumber(std::wstring_view what, int32_t least, int32_t most) {
    const uint32_t line = Line();
    const Sum sum = ReadSum(what, 0);
    if (sum.has_not || sum.value < least || sum.value > most) {
        throw ScriptError{line, L"expected " + std::wstring(what) + L" from " + std::to_wstring(least) +
                                    L" to " + std::to_wstring(most) + L", found " +
                                    (sum.has_not ? L"a style with NOT" : std::to_wstring(sum.value))};
    }
    return static_cast<int32_t>(sum.value);
}

ScriptStyle ScriptParser::ExpectStyle(std::wstring_view what) {
    const Sum sum = ReadSum(what, 0);
    return {static_cast<uint32_t>(sum.value), sum.cleared};
}

uint32_t ScriptParser::BeginBlock(std::wstring_view what) {
    const uint32_t line = Line();
    if (!AcceptWord(L"BEGIN") && !AcceptMark(L'{')) FailExpected(what);
    return line;
}

bool ScriptParser::EndBlock(uint32_t begin_line) {
    if (AtEnd()) {
        throw ScriptError{Line(),
                          L"the block that begins in line " + std::to_wstring(begin_line) + L" has no END"};
    }
    return AcceptWord(L"END") || AcceptMark(L'}');
}

void ScriptParser::SkipAttributes() {
    constexpr std::wstring_view kMemoryFlags[] = {L"DISCARDABLE", L"FIXED",    L"IMPURE",
                                                  L"LOADONCALL",  L"MOVEABLE", L"NONSHARED",
                                                  L"PURE",        L"PRELOAD",  L"SHARED"};
    const auto accept = [this](std::wstring_view word) { return AcceptWord(word); };
    while (true) {
        if (std::ranges::any_of(kMemoryFlags, accept)) continue;
        if (AcceptWord(L"LANGUAGE")) {
            SkipLanguage();
        } else if (AcceptWord(L"VERSION") || AcceptWord(L"CHARACTERISTICS")) {
            ExpectStyle(L"a number");
        } else {
            return;
        }
    }
}

// The module as a whole is of one language, whose names are too many to list.
void ScriptParser::SkipLanguage() {
    if (!AcceptWordBeginningWith(L"LANG_")) ExpectNumber(L"a language", 0, UINT16_MAX);
    ExpectMark(L',', L"\",\" behind the language");
    if (!AcceptWordBeginningWith(L"SUBLANG_")) ExpectNumber(L"a sublanguage", 0, UINT16_MAX);
}

void ScriptParser::FailExpected(std::wstring_view what) const {
    throw ScriptError{Line(), L"expected " + std::wstring(what) + L", found " + Shown(m_token)};
}

void ScriptParser::ReadDirective() {
    NextInLine(L"a directive");
    if (IsWord(L"define")) {
        ReadDefine();
    } else if (IsWord(L"pragma")) {
        NextInLine(L"a pragma");
        if (IsWord(L"code_page")) {
            NextInLine(L"\"(\"");
            NextInLine(L"a code page");
            if (NumberOfToken(L"a code page") != kUtf8CodePage) FailExpected(L"the code page 65001 (UTF-8)");
        }
        m_lexer.SkipLine();
    } else if (IsWord(L"include")) {
        m_lexer.SkipLine();
    } else {
        FailExpected(L"#define, #include or #pragma");
    }
}

// One number, or the name of one, perhaps negative, perhaps in parentheses.
void ScriptParser::ReadDefine() {
    constexpr std::wstring_view kWhat = L"a number to define";
    NextInLine(L"a name to define");
    if (m_token.kind != ScriptTokenKind::kName) FailExpected(L"a name to define");
    const uint32_t line = Line();
    const std::wstring_view name = m_token.source;
    NextInLine(kWhat);
    const bool in_parentheses = IsMark(L'(');
    if (in_parentheses) NextInLine(kWhat);
    const bool is_negative = IsMark(L'-');
    if (is_negative) NextInLine(kWhat);
    const int64_t value = is_negative ? -NumberOfToken(kWhat) : NumberOfToken(kWhat);
    if (in_parentheses) {
        NextInLine(L"\")\"");
        if (!IsMark(L')')) FailExpected(L"\")\"");
    }
    if (!m_lexer.LineEnds()) throw ScriptError{line, L"expected nothing behind the number to define"};

    const std::optional<int64_t> known = SystemNumber(name);
    if ((known && *known != value) || m_defined.try_emplace(name, value).first->second != value) {
        throw ScriptError{line, L"the name " + Quoted(name) + L" is already known with another value"};
    }
}

void ScriptParser::NextInLine(std::wstring_view what) {
    if (m_lexer.LineEnds()) {
        throw ScriptError{Line(), L"expected " + std::wstring(what) + L", found the end of the line"};
    }
    m_lexer.Next(m_token);
}

int64_t ScriptParser::NumberOfToken(std::wstring_view what) const {
    if (m_token.kind == ScriptTokenKind::kNumber) return m_token.number;
    if (m_token.kind != ScriptTokenKind::kName) FailExpected(what);
    const auto defined = m_defined.find(m_token.source);
    if (defined != m_defined.end()) return defined->second;
    const std::optional<int64_t> known = SystemNumber(m_token.source);
    if (!known) {
        throw ScriptError{Line(), L"expected " + std::wstring(what) + L", found " + Quoted(m_token.source) +
                                      L", a name that is not defined"};
    }
    return *known;
}

// All operators bind alike, from left to right, as the system's resource compiler has it.
ScriptParser::Sum ScriptParser::ReadSum(std::wstring_view what, uint32_t depth) {
    Sum sum = ReadTerm(what, depth);
    while (IsMark(L'|') || IsMark(L'+') || IsMark(L'-')) {
        const wchar_t mark = m_token.source.front();
        const uint32_t line = Line();
        Advance();
        const Sum term = ReadTerm(what, depth);
        sum.value &= ~static_cast<int64_t>(term.cleared);
        sum.cleared |= term.cleared;
        sum.has_not = sum.has_not || term.has_not;
        if (mark == L'|') sum.value |= term.value;
        if (mark == L'+') sum.value += term.value;
        if (mark == L'-') sum.value -= term.value;
        if (sum.value > UINT32_MAX || sum.value < INT32_MIN) {
            throw ScriptError{line, L"the sum has more than 32 bits"};
        }
    }
    return sum;
}

ScriptParser::Sum ScriptParser::ReadTerm(std::wstring_view what, uint32_t depth) {
    if (depth == kDeepestSum) throw ScriptError{Line(), L"the number has too many parentheses and signs"};
    if (AcceptMark(L'(')) {
        const Sum sum = ReadSum(what, depth + 1);
        ExpectMark(L')', L"\")\"");
        return sum;
    }
    if (AcceptMark(L'-')) {
        Sum sum = ReadTerm(what, depth + 1);
        sum.value = -sum.value;
        return sum;
    }
    if (AcceptWord(L"NOT")) {
        const Sum sum = ReadTerm(what, depth + 1);
        return {0, static_cast<uint32_t>(sum.value), true};
    }
    const int64_t number = NumberOfToken(what);
    Advance();
    return {number, 0, false};
}

}  // namespace hx
