#include "settings/measurement/MeasurementAreaHX.h"

#include "core/errors/MRegisteredClasses.h"
#include "settings/measurement/ModeTable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MeasurementAreaHX"};
const MRegisteredClasses kClasses(kNames);

template <class Value>
struct Row {
    Value value;
    std::wstring_view text;
};

constexpr Row<MeasurementAreaDepth> kDepths[] = {
    {MeasurementAreaDepth::k100Percent, L"100%"},
    {MeasurementAreaDepth::kNear50Percent, L"Near 50%"},
    {MeasurementAreaDepth::k50Percent, L"50%"},
    {MeasurementAreaDepth::kFar50Percent, L"Far 50%"},
};
constexpr Row<MeasurementAreaWidth> kWidths[] = {
    {MeasurementAreaWidth::k100Percent, L"100%"},
    {MeasurementAreaWidth::k50Percent, L"50%"},
};

constexpr wchar_t kWrongString[] = L"WrongStringForMeasurementArea";
constexpr wchar_t kWrongEnum[] = L"WrongEnumForMeasurementArea";

}  // namespace

MeasurementAreaDepth MeasurementAreaHX::GetMeasurementAreaDepthEnumFromString(std::wstring_view text) {
    static MErrorLocation location("MeasurementAreaHX", "GetMeasurementAreaDepthEnumFromString");
    return ValueOfText(kDepths, text, location, 36, kWrongString);
}

std::wstring_view MeasurementAreaHX::GetMeasurementAreaDepthStringFromEnum(MeasurementAreaDepth depth) {
    static MErrorLocation location("MeasurementAreaHX", "GetMeasurementAreaDepthStringFromEnum");
    return RowOfValue(kDepths, depth, location, 41, kWrongEnum).text;
}

MeasurementAreaWidth MeasurementAreaHX::GetMeasurementAreaWidthEnumFromString(std::wstring_view text) {
    static MErrorLocation location("MeasurementAreaHX", "GetMeasurementAreaWidthEnumFromString");
    return ValueOfText(kWidths, text, location, 46, kWrongString);
}

std::wstring_view MeasurementAreaHX::GetMeasurementAreaWidthStringFromEnum(MeasurementAreaWidth width) {
    static MErrorLocation location("MeasurementAreaHX", "GetMeasurementAreaWidthStringFromEnum");
    return RowOfValue(kWidths, width, location, 51, kWrongEnum).text;
}

}  // namespace hx
