// How the laser line is found in each column of the image. The interpolator's settings hold a record of one
// of these classes, and know it by the base alone; on their thread.
#pragma once

#include <memory>

#include "settings/processing/ProcessingRecord.h"

namespace hx {

class MColumnInterpolatorSettings : public ProcessingRecord<MColumnInterpolatorSettings> {
public:
    static const RecordType kType;

    MColumnInterpolatorSettings();
    MColumnInterpolatorSettings(const MColumnInterpolatorSettings&) = default;
    MColumnInterpolatorSettings& operator=(const MColumnInterpolatorSettings&) = default;
    virtual ~MColumnInterpolatorSettings() = default;

    // A deep copy, of the class that this is.
    virtual std::unique_ptr<MColumnInterpolatorSettings> Clone() const;
    // This record, with the table of the class that it is.
    virtual RecordRef Ref();

    int32_t Columns{};
    double BlackLevelOffset{};  // intensity
    bool UseArea{};
    uint8_t BackgroundRemovalType{};
};

// The operations of a derived class R. Defaults of another class supply what all classes have in common; the
// rest is then as in a new record.
template <class R, class Base>
class ColumnInterpolatorRecord : public Base {
public:
    std::unique_ptr<MColumnInterpolatorSettings> Clone() const override {
        return std::make_unique<R>(static_cast<const R&>(*this));
    }
    RecordRef Ref() override { return {static_cast<R*>(this), &R::kType}; }

    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const override {
        return WriteElement(R::kType, static_cast<const R*>(this), filer, element);
    }

protected:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MColumnInterpolatorSettings& defaults) override {
        const auto read = [&](const R& fallback) {
            return ReadProcessingRows(R::kType, static_cast<R*>(this), &fallback, filer, this->IsStrict());
        };
        if (this->IsStrict()) return read(static_cast<const R&>(*this));
        if (const R* const same = dynamic_cast<const R*>(&defaults)) return read(*same);
        R common;
        static_cast<MColumnInterpolatorSettings&>(common) = defaults;
        return read(common);
    }
};

// At the place of the greatest intensity.
class MColumnInterpolatorMaxIntensitySettings
    : public ColumnInterpolatorRecord<MColumnInterpolatorMaxIntensitySettings, MColumnInterpolatorSettings> {
public:
    static const RecordType kType;

    MColumnInterpolatorMaxIntensitySettings();

    uint16_t MinThreshold{};  // intensity
    bool TruePeak{};
    double DoublePeakFilter{};
    int16_t DoublePeakDistance{};  // pixels
    double DynamicBlackLevel{};    // intensity
    int16_t MinRange{};            // pixels
};

// At the mean of the places, weighed by their intensity.
class MColumnInterpolatorWeighedAverageSettings
    : public ColumnInterpolatorRecord<MColumnInterpolatorWeighedAverageSettings,
                                      MColumnInterpolatorMaxIntensitySettings> {
public:
    static const RecordType kType;

    MColumnInterpolatorWeighedAverageSettings();
};

}  // namespace hx
