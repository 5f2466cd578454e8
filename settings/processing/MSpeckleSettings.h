// The speckle filter of the image interpolator: single spots of light are smoothed along the laser line. Held
// by MImageInterpolatorSettings; on its thread.
#pragma once

#include "settings/processing/ProcessingRecord.h"

namespace hx {

class MSpeckleSettings final : public ProcessingRecord<MSpeckleSettings> {
public:
    static const RecordType kType;

    MSpeckleSettings();

    bool Enable{};
    bool AutomaticDegree{};
    uint8_t Degree{};
    uint8_t WindowSize{};  // columns
    double NoiseLevel{};   // pixels
    double DeltaMax{};     // pixels
};

}  // namespace hx
