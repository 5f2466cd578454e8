// How the scan engine interpolates between the positions of the scanner. Held by the scan engine's settings;
// on their thread.
#pragma once

#include "settings/processing/ProcessingRecord.h"

namespace hx {

class MDualQuaternionInterpolatorSettings final
    : public ProcessingRecord<MDualQuaternionInterpolatorSettings> {
public:
    static const RecordType kType;

    MDualQuaternionInterpolatorSettings();

    int32_t SplineInterpolationOrder{};
};

}  // namespace hx
