// What every statement of a resource script is made of: words, marks, numbers, styles, texts and blocks, each
// taken or refused with a located error (ScriptError). Directives are dealt with on the way. For the readers
// of this folder.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/module/script_lexer.h"

namespace hx {

// The bits that a style sets, and those that it takes away from what a control has by default.
struct ScriptStyle {
    uint32_t set = 0;
    uint32_t cleared = 0;

    uint32_t Over(uint32_t defaults) const { return (defaults & ~cleared) | set; }
};

// A name or text of a script as one line of an error can show it.
std::wstring Quoted(std::wstring_view text);

class ScriptParser {
public:
    // Stands at the first token. `script` must stay.
    explicit ScriptParser(std::wstring_view script);

    bool AtEnd() const { return m_token.kind == ScriptTokenKind::kEnd; }
    uint32_t Line() const { return m_token.line; }

    // Words compare without case. What is accepted is passed over.
    bool AcceptWord(std::wstring_view word);
    bool AcceptMark(wchar_t mark);
    bool IsText() const { return m_token.kind == ScriptTokenKind::kText; }

    // `what` says in an error what was expected.
    void ExpectMark(wchar_t mark, std::wstring_view what);
    std::wstring ExpectText(std::wstring_view what);
    // A name as it is written.
    std::wstring ExpectName(std::wstring_view what);
    // Numbers may be written as sums; their names are those of the system and those defined in the script.
    int32_t ExpectNumber(std::wstring_view what, int32_t least, int32_t most);
    ScriptStyle ExpectStyle(std::wstring_view what);

    // `for (const uint32_t line = parser.BeginBlock(...); !parser.EndBlock(line);)` reads what is between.
    uint32_t BeginBlock(std::wstring_view what);
    bool EndBlock(uint32_t begin_line);

    // Memory flags, LANGUAGE, VERSION and CHARACTERISTICS, none of which means anything here.
    void SkipAttributes();

    [[noreturn]] void FailExpected(std::wstring_view what) const;

private:
    struct Sum {
        int64_t value = 0;
        uint32_t cleared = 0;
        bool has_not = false;
    };

    void Advance();
    void ReadDirective();
    void ReadDefine();
    void SkipLanguage();
    bool AcceptWordBeginningWith(std::wstring_view beginning);
    void NextInLine(std::wstring_view what);
    int64_t NumberOfToken(std::wstring_view what) const;
    Sum ReadSum(std::wstring_view what, uint32_t depth);
    Sum ReadTerm(std::wstring_view what, uint32_t depth);
    bool IsMark(wchar_t mark) const;
    bool IsWord(std::wstring_view word) const;

    ScriptLexer m_lexer;
    ScriptToken m_token;
    std::map<std::wstring_view, int64_t> m_defined;
};

}  // namespace hx
