// Keeps serial numbers out of texts that leave the machine. Any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hosting {

class SerialNumbers {
public:
    explicit SerialNumbers(std::wstring mask) : m_mask(std::move(mask)) {}

    // Of a text without a digit nothing is hidden: it says that there is no number. The number's own longer
    // runs of digits are hidden with it.
    void Hide(const std::wstring& number);
    // The text with the mask wherever one of them stands, in large or small letters.
    std::wstring Masked(std::wstring text) const;

private:
    const std::wstring m_mask;
    std::vector<std::wstring> m_hidden;  // longest first, in small letters
};

}  // namespace hosting
