// The words, numbers, texts and marks of a resource script, one after the other. For the parser of this
// folder; what is no part of the language is thrown as a ScriptError with its line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hx {

struct ScriptError {
    uint32_t line;
    std::wstring text;
};

enum class ScriptTokenKind : uint8_t { kEnd, kName, kNumber, kText, kMark };

struct ScriptToken {
    ScriptTokenKind kind = ScriptTokenKind::kEnd;
    bool starts_line = false;
    uint32_t line = 1;
    uint32_t number = 0;
    std::wstring_view source;  // of a name, number or mark, as written
    std::wstring text;         // what literals that follow one another mean together
};

// The longest text, in UTF-16 units: what the system's resources can count.
inline constexpr size_t kLongestScriptText = 65535;

// `script` must stay while tokens of it are in use.
class ScriptLexer {
public:
    explicit ScriptLexer(std::wstring_view script);

    // The next token; kEnd at the end, again and again.
    void Next(ScriptToken& token);
    // True if nothing but blanks and comments follows in the current line.
    bool LineEnds();
    // Passes over the rest of the current line, whatever it holds.
    void SkipLine();

private:
    bool AtEnd() const { return m_at == m_script.size(); }
    // 0 behind the end, which is in no word and no blank.
    wchar_t Peek(size_t ahead = 0) const;
    // Blanks and comments; line ends only if not `stays_in_line`.
    void SkipBlanks(bool stays_in_line);
    void SkipBlockComment();
    std::wstring_view TakeWord();
    bool AtLiteral() const;
    void ReadText(ScriptToken& token);
    void ReadLiteral(ScriptToken& token);
    void ReadEscape(std::wstring& text, bool is_wide);

    std::wstring_view m_script;
    size_t m_at = 0;
    uint32_t m_line = 1;
    bool m_starts_line = true;
};

}  // namespace hx
