// The image processing of a scan pipeline: how the laser line is found in the image, and what is filtered
// out. Held by a device's measurement settings; on their thread.
#pragma once

#include "settings/processing/MFilterSettings.h"
#include "settings/processing/MInterpolatorSettings.h"

namespace hx {

class MProcessingSettings final : public ProcessingRecord<MProcessingSettings> {
public:
    static const RecordType kType;

    void SetStrict(bool strict) override;
    // Of its members; it has none itself.
    void DropReference();

    MInterpolatorSettings InterpolatorSettings;
    MFilterSettings FilterSettings;
};

}  // namespace hx
