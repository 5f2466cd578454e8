#include "apps/hosting/report/SerialNumbers.h"

#include <algorithm>
#include <functional>

#include "platform/system/case_fold.h"

namespace hosting {
namespace {

// A shorter one is part of too many other numbers to tell anything.
constexpr size_t kTellingDigits = 4;
constexpr std::wstring_view kDigits = L"0123456789";

std::wstring Trimmed(const std::wstring& text) {
    constexpr std::wstring_view kBlanks = L" \t";
    const size_t first = text.find_first_not_of(kBlanks);
    return first == std::wstring::npos ? std::wstring()
                                       : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

void SerialNumbers::Hide(const std::wstring& number) {
    const std::wstring folded = hx::FoldCase(std::wstring_view(Trimmed(number)));
    size_t digit = folded.find_first_of(kDigits);
    if (digit == std::wstring::npos) return;
    m_hidden.push_back(folded);
    while (digit != std::wstring::npos) {
        const size_t end = std::min(folded.find_first_not_of(kDigits, digit), folded.size());
        if (end - digit >= kTellingDigits) m_hidden.push_back(folded.substr(digit, end - digit));
        digit = folded.find_first_of(kDigits, end);
    }
    std::ranges::sort(m_hidden, std::ranges::greater(), &std::wstring::size);
}

std::wstring SerialNumbers::Masked(std::wstring text) const {
    for (const std::wstring& hidden : m_hidden) {
        // Looked up in a copy that is as long, so that both have it in the same place.
        std::wstring folded = hx::FoldCase(std::wstring_view(text));
        for (size_t at = 0; (at = folded.find(hidden, at)) != std::wstring::npos; at += m_mask.size()) {
            text.replace(at, hidden.size(), m_mask);
            folded.replace(at, hidden.size(), m_mask);
        }
    }
    return text;
}

}  // namespace hosting
