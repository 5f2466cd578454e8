// The speckle filter of the measured points. Held by MFilterSettings; on its thread.
#pragma once

#include "settings/processing/ProcessingRecord.h"

namespace hx {

class MSpeckle3DSettings final : public ProcessingRecord<MSpeckle3DSettings> {
public:
    static const RecordType kType;

    MSpeckle3DSettings();

    bool Enable{};
    int32_t WindowSizeSmooth{};  // points
    int32_t WindowSizeC0{};      // points, around a jump of the line
    int32_t WindowSizeC1{};      // points, around a kink of the line
    double NoiseLevel{};
    double C0Gap{};
    double C1Gap{};
    bool DynamicWindow{};
    int32_t Degree{};
};

}  // namespace hx
