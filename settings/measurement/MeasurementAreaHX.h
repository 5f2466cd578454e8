// The parts of its field of view to which a scanner of the HX family can be limited, with the texts under
// which documents name them. For records and pages; any thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace hx {

enum class MeasurementAreaDepth : int32_t { k100Percent, kNear50Percent, k50Percent, kFar50Percent };
enum class MeasurementAreaWidth : int32_t { k100Percent, k50Percent };

class MeasurementAreaHX {
public:
    // Raise "WrongStringForMeasurementArea" for a text that is not to the letter one of them, and
    // "WrongEnumForMeasurementArea" for a number beyond the enumeration.
    static MeasurementAreaDepth GetMeasurementAreaDepthEnumFromString(std::wstring_view text);
    static std::wstring_view GetMeasurementAreaDepthStringFromEnum(MeasurementAreaDepth depth);
    static MeasurementAreaWidth GetMeasurementAreaWidthEnumFromString(std::wstring_view text);
    static std::wstring_view GetMeasurementAreaWidthStringFromEnum(MeasurementAreaWidth width);
};

}  // namespace hx
