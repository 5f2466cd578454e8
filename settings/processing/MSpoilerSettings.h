// The spoiler filter: measured points that spoil the surface are taken out. Held by the scan engine's
// settings; on their thread.
#pragma once

#include "settings/processing/ProcessingRecord.h"

namespace hx {

class MSpoilerSettings final : public ProcessingRecord<MSpoilerSettings> {
public:
    static const RecordType kType;

    MSpoilerSettings();

    // The two ways in which a document tells the orientation. It has one of them; the other keeps its value.
    enum class Orientation : uint8_t { kAngle, kCosine };
    // The value of the form in force, degrees or cosine.
    double OrientationValue() const {
        return OrientationForm == Orientation::kAngle ? OrientAngle : CosOrientAngle;
    }

    bool AR{};
    int32_t Geom{};
    double Scale{};
    int32_t NumGeneration{};
    double Angle{};  // radians
    double BorderDistance{};
    double OrientAngle{};  // degrees; the older form
    double CosOrientAngle{};
    Orientation OrientationForm = Orientation::kAngle;  // that read last, which is also written
    uint8_t StripeBufferSize{};                         // stripes
};

}  // namespace hx
