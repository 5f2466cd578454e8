// How the image of the laser line is interpolated. Held by MInterpolatorSettings; on its thread.
#pragma once

#include "settings/processing/MSpeckleSettings.h"

namespace hx {

class MImageInterpolatorSettings final : public ProcessingRecord<MImageInterpolatorSettings> {
public:
    static const RecordType kType;

    MImageInterpolatorSettings();

    void SetStrict(bool strict) override;

    double Smooth{};
    int32_t PerspectiveOnly{};
    MSpeckleSettings SpeckleSettings;
    double MinReflectivity{};  // 0 to 1
    double MaxReflectivity{};  // 0 to 1
    bool NoClipping{};
    double QualityBorderDistance{};
};

}  // namespace hx
