#include "apps/hosting/report/SerialNumbers.h"

#include <algorithm>
#include <cstddef>

#include "platform/system/case_fold.h"
#include "platform/system/one_line.h"

namespace hosting {
namespace {

// A shorter one is part of too many other numbers and words to tell anything inside them.
constexpr size_t kTelling = 4;
constexpr std::wstring_view kDigits = L"0123456789";
constexpr std::wstring_view kFullWidthDigits =
    L"\uFF10\uFF11\uFF12\uFF13\uFF14\uFF15\uFF16\uFF17\uFF18\uFF19";
constexpr std::wstring_view kIntroduction = L"s/n";

// Of scripts that put no blanks between words the letters do not count: rather too much is hidden there.
bool IsPartOfWord(wchar_t character) {
    return (character >= L'0' && character <= L'9') || (character >= L'a' && character <= L'z');
}

bool IsPartOfWord(std::wstring_view folded, size_t at, size_t size) {
    return (at > 0 && IsPartOfWord(folded[at - 1])) ||
           (at + size < folded.size() && IsPartOfWord(folded[at + size]));
}

struct Part {
    size_t begin;
    size_t end;
};

// The next number behind an "S/N", from `from` on; empty at the end of the text if there is none.
Part Introduced(std::wstring_view folded, size_t from) {
    const Part none{folded.size(), folded.size()};
    const size_t introduction = folded.find(kIntroduction, from);
    if (introduction == std::wstring_view::npos) return none;
    const size_t begin = folded.find_first_not_of(L" :.#=)],;", introduction + kIntroduction.size());
    if (begin == std::wstring_view::npos) return none;
    return {begin, std::min(folded.find_first_of(L")],;", begin), folded.size())};
}

}  // namespace

void SerialNumbers::Hide(std::wstring_view number) {
    const std::wstring folded = hx::FoldCase(std::wstring_view(hx::OneLine(number)));
    if (folded.empty()) return;
    const auto add = [this](std::wstring hidden) {
        if (std::ranges::find(m_hidden, hidden) == m_hidden.end()) m_hidden.push_back(std::move(hidden));
    };
    add(folded);
    size_t end = 0;
    for (size_t digit = 0; (digit = folded.find_first_of(kDigits, end)) != std::wstring::npos;) {
        end = std::min(folded.find_first_not_of(kDigits, digit), folded.size());
        if (end - digit >= kTelling) add(folded.substr(digit, end - digit));
    }
}

void SerialNumbers::HideShown(std::wstring_view number) {
    const auto has_one_of = [&](std::wstring_view digits) {
        return number.find_first_of(digits) != std::wstring_view::npos;
    };
    if (has_one_of(kDigits) || has_one_of(kFullWidthDigits)) Hide(number);
}

void SerialNumbers::HideIn(std::wstring_view name) {
    for (const std::wstring& number : NumbersIn(name)) Hide(number);
}

std::vector<std::wstring> SerialNumbers::NumbersIn(std::wstring_view name) {
    const std::wstring folded = hx::FoldCase(std::wstring_view(hx::OneLine(name)));
    std::vector<std::wstring> numbers;
    for (Part part = Introduced(folded, 0); part.begin != part.end; part = Introduced(folded, part.end)) {
        numbers.push_back(folded.substr(part.begin, part.end - part.begin));
    }
    return numbers;
}

std::wstring SerialNumbers::Masked(std::wstring_view text) const {
    const std::wstring line = hx::OneLine(text);
    // As long as the line, so that both have everything in the same place.
    const std::wstring folded = hx::FoldCase(std::wstring_view(line));
    std::vector<bool> is_hidden(line.size());
    const auto hide = [&](size_t begin, size_t end) {
        std::fill(is_hidden.begin() + static_cast<std::ptrdiff_t>(begin),
                  is_hidden.begin() + static_cast<std::ptrdiff_t>(end), true);
    };
    for (const std::wstring& number : m_hidden) {
        const size_t size = number.size();
        for (size_t at = 0; (at = folded.find(number, at)) != std::wstring::npos; ++at) {
            if (size >= kTelling || !IsPartOfWord(folded, at, size)) hide(at, at + size);
        }
    }
    for (Part part = Introduced(folded, 0); part.begin != part.end; part = Introduced(folded, part.end)) {
        hide(part.begin, part.end);
    }
    std::wstring masked;
    for (size_t i = 0; i < line.size(); ++i) {
        if (!is_hidden[i]) {
            masked += line[i];
        } else if (i == 0 || !is_hidden[i - 1]) {
            masked += m_mask;
        }
    }
    return masked;
}

}  // namespace hosting
