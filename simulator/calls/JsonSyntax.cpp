#include "simulator/calls/JsonSyntax.h"

#include <cstdint>

#include "simulator/calls/JsonText.h"

namespace hx::simulator {
namespace {

constexpr int kDeepest = 64;

bool IsDigit(wchar_t character) {
    return character >= L'0' && character <= L'9';
}

// Reads from the front of what is left; each member is false if that is not there.
class Reader {
public:
    explicit Reader(std::wstring_view text) : m_left(text) {}

    bool Value(int depth) {
        SkipBlanks();
        if (depth > kDeepest || m_left.empty()) return false;
        switch (m_left.front()) {
            case L'[':
                return Members(L']', [&] { return Value(depth + 1); });
            case L'{':
                return Members(L'}', [&] { return Text() && Take(L":") && Value(depth + 1); });
            case L'"':
                return Text();
            default:
                return Take(L"true") || Take(L"false") || Take(L"null") || Number();
        }
    }
    bool IsAtEnd() {
        SkipBlanks();
        return m_left.empty();
    }

private:
    void SkipBlanks() {
        const size_t first = m_left.find_first_not_of(L" \t\r\n");
        m_left.remove_prefix(first == std::wstring_view::npos ? m_left.size() : first);
    }
    bool Take(std::wstring_view word) {
        SkipBlanks();
        return Next(word);
    }
    bool Next(std::wstring_view word) {
        if (!m_left.starts_with(word)) return false;
        m_left.remove_prefix(word.size());
        return true;
    }
    template <class Member>
    bool Members(wchar_t closing, const Member& member) {
        m_left.remove_prefix(1);
        if (Take({&closing, 1})) return true;
        do {
            if (!member()) return false;
        } while (Take(L","));
        return Take({&closing, 1});
    }
    bool Text() {
        if (!Take(L"\"")) return false;
        while (!m_left.empty()) {
            const wchar_t character = m_left.front();
            m_left.remove_prefix(1);
            if (character == L'"') return true;
            if (static_cast<uint32_t>(character) < 0x20 || !IsCharacter(character)) return false;
            if (character == L'\\' && !Escape()) return false;
        }
        return false;
    }
    bool Escape() {
        if (m_left.empty()) return false;
        const wchar_t kind = m_left.front();
        m_left.remove_prefix(1);
        if (kind != L'u') return std::wstring_view(L"\"\\/bfnrt").find(kind) != std::wstring_view::npos;
        uint32_t unit = 0;
        if (!FourHexDigits(unit)) return false;
        if (unit < 0xD800 || unit > 0xDFFF) return true;
        // The first half of a character, whose other half must follow.
        uint32_t second = 0;
        return unit < 0xDC00 && Next(L"\\u") && FourHexDigits(second) && second >= 0xDC00 && second <= 0xDFFF;
    }
    bool FourHexDigits(uint32_t& value) {
        constexpr std::wstring_view kHexDigits = L"0123456789abcdef0123456789ABCDEF";
        if (m_left.size() < 4) return false;
        for (const wchar_t digit : m_left.substr(0, 4)) {
            const size_t place = kHexDigits.find(digit);
            if (place == std::wstring_view::npos) return false;
            value = value << 4 | static_cast<uint32_t>(place & 15);
        }
        m_left.remove_prefix(4);
        return true;
    }
    bool Digits() {
        const size_t before = m_left.size();
        while (!m_left.empty() && IsDigit(m_left.front())) m_left.remove_prefix(1);
        return m_left.size() != before;
    }
    bool Number() {
        TakeOne(L"-");
        if (m_left.starts_with(L'0') ? !TakeOne(L"0") : !Digits()) return false;
        if (TakeOne(L".") && !Digits()) return false;
        if (!TakeOne(L"eE")) return true;
        TakeOne(L"+-");
        return Digits();
    }
    bool TakeOne(std::wstring_view of) {
        if (m_left.empty() || of.find(m_left.front()) == std::wstring_view::npos) return false;
        m_left.remove_prefix(1);
        return true;
    }

    std::wstring_view m_left;
};

}  // namespace

bool IsJsonArray(std::wstring_view text) {
    const size_t first = text.find_first_not_of(L" \t\r\n");
    if (first == std::wstring_view::npos || text[first] != L'[') return false;
    Reader reader(text);
    return reader.Value(0) && reader.IsAtEnd();
}

}  // namespace hx::simulator
