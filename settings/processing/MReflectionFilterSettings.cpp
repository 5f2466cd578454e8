#include "settings/processing/MReflectionFilterSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MReflectionFilterSettings"};
const StreamedClasses kClasses(kNames);

using R = MReflectionFilterSettings;
using F = FieldsOf<R>;

constexpr Field kFields[] = {
    F::Value<&R::Enable>(L"Enable", true),
    F::Value<&R::TrackingWindowX>(L"TrackingWindowX", 3, "columns"),
    F::Value<&R::TrackingWindowZ>(L"TrackingWindowZ", 3.0, "pixels"),
    F::Value<&R::MinPeakDistance>(L"MinPeakDistance", 4.0, "pixels"),
    F::Value<&R::MinSegmentLength>(L"MinSegmentLength", 3, "columns"),
    F::Value<&R::MinSegmentHeight>(L"MinSegmentHeight", 50, "intensity"),
    F::Value<&R::MaxOutlierSize>(L"MaxOutlierSize", 20, "columns"),
    F::Value<&R::MaxTotalVariationLength>(L"MaxTotalVariationLength", 2.0),
    F::Value<&R::TotalVariationLengthRatio>(L"TotalVariationLengthRatio", 0.7),
    F::Value<&R::MeanTotalVariationLengthRatio>(L"MeanTotalVariationLengthRatio", 2.0),
    F::Value<&R::MaxBackgroundLevel>(L"MaxBackgroundLevel", 35, "intensity"),
    F::Value<&R::MinAbsoluteOverLap>(L"MinAbsoluteOverLap", 16, "columns"),
    F::Value<&R::MinRelativeOverlap>(L"MinRelativeOverlap", 0.5, "0 to 1"),
    F::Value<&R::MinSegmentSizeToOverlap>(L"MinSegmentSizeToOverlap", 10, "columns"),
    F::Value<&R::BorderWindowSizeX>(L"BorderWindowSizeX", 0, "columns"),
    F::Value<&R::MinPeakHeight>(L"MinPeakHeight", 50, "intensity"),
    F::Value<&R::MinPeakWidth>(L"MinPeakWidth", 2, "pixels"),
    F::Value<&R::MaxPeakSaturation>(L"MaxPeakSaturation", 5, "pixels"),
    F::Value<&R::MaxTotalVariationFactor>(L"MaxTotalVariationFactor", 3.0),
    F::Value<&R::MaxInterSegmentDist>(L"MaxInterSegmentDist", 5, "columns"),
    F::Value<&R::KnotDetectionWindow>(L"KnotDetectionWindow", 6, "columns"),
    F::Value<&R::KnotStripeWidthTolerance>(L"KnotStripeWidthTolerance", 0.9),
    F::Value<&R::MinSegmentLengthRatio>(L"MinSegmentLengthRatio", 0.05),
};

}  // namespace

constinit const RecordType MReflectionFilterSettings::kType =
    RecordTypeOf<MReflectionFilterSettings>(L"MReflectionFilterSettings", {RecordVersion::kInt, 1}, kFields,
                                            "How peaks that are reflections are told from the laser line.");

MReflectionFilterSettings::MReflectionFilterSettings() {
    SetDefaults(*this);
}

}  // namespace hx
