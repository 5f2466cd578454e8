// How the laser line is found and interpolated in the images. Held by MProcessingSettings; on its thread.
#pragma once

#include "core/records/ReferenceCopy.h"
#include "settings/base/Cloned.h"
#include "settings/processing/MColumnInterpolatorSettings.h"
#include "settings/processing/MImageInterpolatorSettings.h"
#include "settings/processing/MMultiplePeakDetectionSettings.h"
#include "settings/processing/MReflectionFilterSettings.h"

namespace hx {

class MInterpolatorSettings final : public ProcessingRecord<MInterpolatorSettings> {
public:
    static const RecordType kType;

    void SetStrict(bool strict) override;
    void DropReference() { m_reference.Drop(); }

    // One of the column interpolators; its own class tells what is read and written.
    Cloned<MColumnInterpolatorSettings> MaxIntensitySettings{
        std::make_unique<MColumnInterpolatorMaxIntensitySettings>()};
    MImageInterpolatorSettings ImageInterpolatorSettings;
    MMultiplePeakDetectionSettings MultiplePeakDetectionSettings;
    MReflectionFilterSettings ReflectionFilterSettings;
    // What a document older than version 4 says of the spoiler filter's orientation, in the form that it has.
    double SpoilerOrientation = 0.0;

protected:
    // Keeps a copy of `defaults`. Without a version it reads as the first one.
    bool ReadImpTagged(MFilerTaggedPair& filer, const MInterpolatorSettings& defaults) override;

private:
    ReferenceCopy<MInterpolatorSettings> m_reference;
};

}  // namespace hx
