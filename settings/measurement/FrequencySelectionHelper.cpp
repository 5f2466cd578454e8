#include "settings/measurement/FrequencySelectionHelper.h"

#include "core/errors/MRegisteredClasses.h"
#include "settings/measurement/ModeTable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"FrequencySelectionHelper"};
const MRegisteredClasses kClasses(kNames);

struct Row {
    FrequencySelection value;
    std::wstring_view text;
    double percent;
};

constexpr Row kSelections[] = {
    {FrequencySelection::k100Percent, L"100%", 100.0},
    {FrequencySelection::k75Percent, L"75%", 75.0},
    {FrequencySelection::k50Percent, L"50%", 50.0},
    {FrequencySelection::k25Percent, L"25%", 25.0},
};

constexpr wchar_t kWrongString[] = L"WrongStringForFrequencySelection";
constexpr wchar_t kWrongEnum[] = L"WrongEnumForFrequencySelection";

}  // namespace

FrequencySelection FrequencySelectionHelper::GetFrequencySelectionEnumFromString(std::wstring_view text) {
    static MErrorLocation location("FrequencySelectionHelper", "GetFrequencySelectionEnumFromString");
    return ValueOfText(kSelections, text, location, 33, kWrongString);
}

std::wstring_view FrequencySelectionHelper::GetFrequencySelectionFromEnum(FrequencySelection selection) {
    static MErrorLocation location("FrequencySelectionHelper", "GetFrequencySelectionFromEnum");
    return RowOfValue(kSelections, selection, location, 38, kWrongEnum).text;
}

double FrequencySelectionHelper::GetFrequencySelectionEnumValue(FrequencySelection selection) {
    static MErrorLocation location("FrequencySelectionHelper", "GetFrequencySelectionEnumValue");
    return RowOfValue(kSelections, selection, location, 43, kWrongEnum).percent;
}

}  // namespace hx
