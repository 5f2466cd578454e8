// How peaks that are reflections are told from the laser line. Held by MInterpolatorSettings; on its thread.
#pragma once

#include "settings/processing/ProcessingRecord.h"

namespace hx {

class MReflectionFilterSettings final : public ProcessingRecord<MReflectionFilterSettings> {
public:
    static const RecordType kType;

    MReflectionFilterSettings();

    bool Enable{};
    int32_t TrackingWindowX{};   // columns
    double TrackingWindowZ{};    // pixels
    double MinPeakDistance{};    // pixels
    int32_t MinSegmentLength{};  // columns
    int32_t MinSegmentHeight{};  // intensity
    int32_t MaxOutlierSize{};    // columns
    double MaxTotalVariationLength{};
    double TotalVariationLengthRatio{};
    double MeanTotalVariationLengthRatio{};
    int32_t MaxBackgroundLevel{};       // intensity
    int32_t MinAbsoluteOverLap{};       // columns
    double MinRelativeOverlap{};        // 0 to 1
    int32_t MinSegmentSizeToOverlap{};  // columns
    int32_t BorderWindowSizeX{};        // columns
    int32_t MinPeakHeight{};            // intensity
    int32_t MinPeakWidth{};             // pixels
    int32_t MaxPeakSaturation{};        // pixels
    double MaxTotalVariationFactor{};
    int32_t MaxInterSegmentDist{};  // columns
    int32_t KnotDetectionWindow{};  // columns
    double KnotStripeWidthTolerance{};
    double MinSegmentLengthRatio{};
};

}  // namespace hx
