// How several peaks in one column of the image are told apart. Held by MInterpolatorSettings; on its thread.
#pragma once

#include <vector>

#include "settings/processing/ProcessingRecord.h"

namespace hx {

class MMultiplePeakDetectionSettings final : public ProcessingRecord<MMultiplePeakDetectionSettings> {
public:
    static const RecordType kType;

    MMultiplePeakDetectionSettings();

    int32_t KernelWidth{};  // pixels
    double SlopeThreshold{};
    int32_t MinPeakHeight{};      // intensity
    double BlackLevelOffset{};    // intensity
    int32_t WindowSizeColumns{};  // columns
    // Of the columns around the peak; none: all alike. A document's list ends in front of the first entry
    // that it lacks.
    std::vector<double> Weight2DCog;
    double MinPeakOverlapRatio2DCoG{};  // 0 to 1
    int32_t CoGOrder{};
    bool CompressIntensities{};
};

}  // namespace hx
