// The portions of its full measuring frequency that a scanner offers, with the texts under which documents
// name them. For records and pages; any thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace hx {

enum class FrequencySelection : int32_t { k100Percent, k75Percent, k50Percent, k25Percent };

class FrequencySelectionHelper {
public:
    // Raises "WrongStringForFrequencySelection" for a text that is not to the letter one of them.
    static FrequencySelection GetFrequencySelectionEnumFromString(std::wstring_view text);
    // Both raise "WrongEnumForFrequencySelection" for a number beyond the enumeration.
    static std::wstring_view GetFrequencySelectionFromEnum(FrequencySelection selection);
    static double GetFrequencySelectionEnumValue(FrequencySelection selection);  // percent
};

}  // namespace hx
