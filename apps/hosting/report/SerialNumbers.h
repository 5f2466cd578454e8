// Keeps serial numbers out of texts that leave the machine. Numbers and texts are compared as one line each,
// whatever their letters' case is. Any thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hosting {

class SerialNumbers {
public:
    explicit SerialNumbers(std::wstring mask) : m_mask(std::move(mask)) {}

    // Whatever it is made of, if it is not empty. The number's own longer runs of digits are hidden with it.
    void Hide(std::wstring_view number);
    // The same of what a page shows, which may be words that there is no number: those have no digit.
    void HideShown(std::wstring_view number);
    // And of what stands behind "S/N" in the name of a device.
    void HideIn(std::wstring_view name);
    static std::vector<std::wstring> NumbersIn(std::wstring_view name);  // in small letters
    bool IsEmpty() const { return m_hidden.empty(); }

    // The text, on one line, with the mask wherever one of them stands, or anything behind "S/N". A short one
    // counts only where it is not part of a longer word or number.
    std::wstring Masked(std::wstring_view text) const;

private:
    const std::wstring m_mask;
    std::vector<std::wstring> m_hidden;  // in small letters
};

}  // namespace hosting
