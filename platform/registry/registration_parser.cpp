#include "platform/registry/registration_parser.h"

#include <algorithm>
#include <utility>

#include "platform/registry/registration_lexer.h"
#include "platform/system/case_fold.h"

namespace hx {
namespace {

constexpr struct {
    std::wstring_view name;
    RegistryRoot root;
} kRoots[] = {
    {L"HKCR", RegistryRoot::kClassesRoot},  {L"HKEY_CLASSES_ROOT", RegistryRoot::kClassesRoot},
    {L"HKLM", RegistryRoot::kLocalMachine}, {L"HKEY_LOCAL_MACHINE", RegistryRoot::kLocalMachine},
    {L"HKCU", RegistryRoot::kCurrentUser},  {L"HKEY_CURRENT_USER", RegistryRoot::kCurrentUser},
};

constexpr struct {
    std::wstring_view word;
    RegistrationMark mark;
} kMarks[] = {
    {L"NoRemove", RegistrationMark::kNoRemove},
    {L"ForceRemove", RegistrationMark::kForceRemove},
    {L"Delete", RegistrationMark::kDelete},
};

// In decimal, or in hexadecimal behind 0x or &H; nothing for what is no number of 32 bits.
std::optional<uint32_t> NumberOf(std::wstring_view text) {
    const bool is_hex = text.size() > 2 && (EqualsWithoutCase(text.substr(0, 2), L"0x") ||
                                            EqualsWithoutCase(text.substr(0, 2), L"&H"));
    if (is_hex) text.remove_prefix(2);
    const std::wstring_view digits = is_hex ? L"0123456789abcdef" : L"0123456789";
    uint64_t number = 0;
    for (const wchar_t c : text) {
        const size_t digit = digits.find(c >= L'A' && c <= L'F' ? static_cast<wchar_t>(c - L'A' + L'a') : c);
        if (digit == std::wstring_view::npos) return std::nullopt;
        number = number * digits.size() + digit;
        if (number > UINT32_MAX) return std::nullopt;
    }
    return text.empty() ? std::nullopt : std::optional(static_cast<uint32_t>(number));
}

class RegistrationParser {
public:
    RegistrationParser(std::wstring_view script, const RegistrationValues& values)
        : m_lexer(script), m_values(values), m_token(m_lexer.Next()) {}

    std::vector<RegistrationRoot> Read() {
        std::vector<RegistrationRoot> roots;
        do {
            roots.push_back(ReadRoot());
        } while (!m_token.is_end);
        return roots;
    }

private:
    // A word of the language, or a brace. What is accepted is passed over.
    bool IsWord(std::wstring_view word) const {
        return !m_token.is_quoted && !m_token.is_end && EqualsWithoutCase(m_token.text, word);
    }
    bool AcceptWord(std::wstring_view word) {
        if (!IsWord(word)) return false;
        m_token = m_lexer.Next();
        return true;
    }

    [[noreturn]] void FailExpected(std::wstring_view what) const {
        throw RegistrationError{
            m_token.line, L"expected " + std::wstring(what) + L", found " +
                              (m_token.is_end ? L"the end of the script" : QuotedForError(m_token.text))};
    }

    // A name, a text or a number, with its replacements.
    std::wstring ExpectText(std::wstring_view what) {
        if (m_token.is_end || IsWord(L"{") || IsWord(L"}") || IsWord(L"=")) FailExpected(what);
        std::wstring text = Replaced(m_token);
        m_token = m_lexer.Next();
        return text;
    }

    std::wstring Replaced(const RegistrationToken& token) const {
        std::wstring text;
        std::wstring_view rest = token.text;
        while (true) {
            const size_t begin = rest.find(L'%');
            text += rest.substr(0, begin);
            if (begin == std::wstring_view::npos) return text;
            const size_t end = rest.find(L'%', begin + 1);
            if (end == std::wstring_view::npos) {
                throw RegistrationError{token.line, L"a % in " + QuotedForError(token.text) +
                                                        L" begins no %NAME%; by itself it is written twice"};
            }
            const std::wstring_view name = rest.substr(begin + 1, end - begin - 1);
            const std::optional<std::wstring_view> value = name.empty() ? L"%"
                                                           : m_values   ? m_values(name)
                                                                        : L"?";
            if (!value) {
                throw RegistrationError{token.line, L"there is no replacement for " +
                                                        QuotedForError(rest.substr(begin, name.size() + 2))};
            }
            text += *value;
            rest.remove_prefix(end + 1);
        }
    }

    RegistrationRoot ReadRoot() {
        for (const auto& [name, root] : kRoots) {
            RegistrationRoot read{root, {}};
            read.content.line = m_token.line;
            if (!AcceptWord(name)) continue;
            if (!IsWord(L"{")) FailExpected(L"\"{\" behind the root");
            ReadEntries(read.content, 0);
            return read;
        }
        FailExpected(L"HKCR, HKLM, HKCU or one of their long names");
    }

    // What is in the braces of `key`, which lies at `depth`.
    void ReadEntries(RegistrationKey& key, size_t depth) {
        const uint32_t begin = m_token.line;
        if (!AcceptWord(L"{")) return;
        while (!AcceptWord(L"}")) {
            if (m_token.is_end) throw RegistrationError{begin, L"a \"{\" here has no \"}\""};
            ReadEntry(key, depth);
        }
    }

    void ReadEntry(RegistrationKey& key, size_t depth) {
        const uint32_t line = m_token.line;
        RegistrationMark mark = RegistrationMark::kNone;
        for (const auto& each : kMarks) {
            if (mark == RegistrationMark::kNone && AcceptWord(each.word)) mark = each.mark;
        }
        if (mark != RegistrationMark::kNone &&
            std::ranges::any_of(kMarks, [&](const auto& each) { return IsWord(each.word); })) {
            FailExpected(L"a name behind the mark of a key, which has one");
        }
        if (!IsWord(L"val")) {
            key.keys.push_back(ReadKey(line, mark, depth + 1));
            return;
        }
        if (mark != RegistrationMark::kNone && mark != RegistrationMark::kNoRemove)
            throw RegistrationError{line, L"no mark but NoRemove stands before a value"};
        m_token = m_lexer.Next();
        std::wstring name = ExpectText(L"the name of a value");
        if (!AcceptWord(L"=")) FailExpected(L"\"=\" behind the name of a value");
        key.values.push_back({line, std::move(name), mark == RegistrationMark::kNoRemove, ReadData()});
    }

    RegistrationKey ReadKey(uint32_t line, RegistrationMark mark, size_t depth) {
        if (depth > kMaxRegistryDepth) {
            throw RegistrationError{line, L"no key lies deeper than " + std::to_wstring(kMaxRegistryDepth)};
        }
        RegistrationKey key{line, mark, ExpectText(L"the name of a key or \"}\""), {}, {}};
        if (key.name.empty()) throw RegistrationError{line, L"a key has no name"};
        if (key.name.find(L'\\') != std::wstring::npos) {
            throw RegistrationError{line, L"the name of a key holds a \"\\\": " + QuotedForError(key.name)};
        }
        if (mark == RegistrationMark::kDelete) {
            if (IsWord(L"=") || IsWord(L"{")) FailExpected(L"nothing of a key that is deleted");
            return key;
        }
        if (AcceptWord(L"=")) key.values.push_back({line, {}, true, ReadData()});
        ReadEntries(key, depth);
        return key;
    }

    RegistryValue ReadData() {
        if (AcceptWord(L"s")) return ExpectText(L"a text");
        if (AcceptWord(L"d")) {
            const uint32_t line = m_token.line;
            const bool is_unknown = !m_values && m_token.text.find(L'%') != std::wstring::npos;
            const std::wstring text = ExpectText(L"a number");
            if (is_unknown) return 0u;
            if (const std::optional<uint32_t> number = NumberOf(text)) return *number;
            throw RegistrationError{line, L"expected a number of 32 bits, found " + QuotedForError(text)};
        }
        for (const std::wstring_view kind : {L"b", L"e", L"m"}) {
            if (!IsWord(kind)) continue;
            throw RegistrationError{m_token.line,
                                    L"a value of the kind \"" + std::wstring(kind) +
                                        L"\": the registry holds texts (s) and numbers (d) only"};
        }
        FailExpected(L"s and a text, or d and a number");
    }

    RegistrationLexer m_lexer;
    const RegistrationValues& m_values;
    RegistrationToken m_token;
};

}  // namespace

std::vector<RegistrationRoot> ReadRegistrationScript(std::wstring_view script,
                                                     const RegistrationValues& values) {
    return RegistrationParser(script, values).Read();
}

}  // namespace hx
