// The records that the inputs consist of. Each has one function that hands its fields to a filer: whatever
// reads or writes them, in whatever form, is a class with Begin(tag), Value(tag, value) and End().
#pragma once

#include <cstdint>
#include <vector>

#include "bench/tag.h"

namespace hx::bench {

// Roomy: long names, texts among the numbers.
template <class String>
struct Profile {
    static constexpr Tag kTag = "Profile"_tag;

    String name;
    String description;
    String material;
    String surface_preparation;
    bool is_factory_default = false;
    uint32_t laser_intensity = 0;
    double exposure_time = 0;
    double minimum_reflectivity = 0;
    double maximum_reflectivity = 0;
    bool edge_suppression = false;
    uint32_t median_window = 0;
    double point_spacing = 0;
    uint32_t line_rate = 0;
    int32_t standoff_offset = 0;
    String remarks;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Name"_tag, self.name);
        filer.Value("Description"_tag, self.description);
        filer.Value("Material"_tag, self.material);
        filer.Value("SurfacePreparation"_tag, self.surface_preparation);
        filer.Value("IsFactoryDefault"_tag, self.is_factory_default);
        filer.Value("LaserIntensityPercent"_tag, self.laser_intensity);
        filer.Value("ExposureTimeMicroseconds"_tag, self.exposure_time);
        filer.Begin("Filter"_tag);
        filer.Value("MinimumReflectivity"_tag, self.minimum_reflectivity);
        filer.Value("MaximumReflectivity"_tag, self.maximum_reflectivity);
        filer.Value("EdgeSuppression"_tag, self.edge_suppression);
        filer.Value("MedianWindowSize"_tag, self.median_window);
        filer.End();
        filer.Begin("Acquisition"_tag);
        filer.Value("PointSpacingMillimetres"_tag, self.point_spacing);
        filer.Value("LineRateHertz"_tag, self.line_rate);
        filer.Value("StandoffOffset"_tag, self.standoff_offset);
        filer.End();
        filer.Value("Remarks"_tag, self.remarks);
    }
};

// Dense: short names, numbers only.
struct Step {
    static constexpr Tag kTag = "Step"_tag;

    double exposure = 0;
    uint32_t gain = 0;
    bool on = false;
    double spacing = 0;
    double standoff = 0;
    uint32_t rate = 0;
    double min_range = 0;
    double max_range = 0;
    int32_t offset = 0;
    double focus = 0;
    double threshold = 0;
    double intensity = 0;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Exposure"_tag, self.exposure);
        filer.Value("Gain"_tag, self.gain);
        filer.Value("On"_tag, self.on);
        filer.Value("Spacing"_tag, self.spacing);
        filer.Value("Standoff"_tag, self.standoff);
        filer.Value("Rate"_tag, self.rate);
        filer.Value("MinRange"_tag, self.min_range);
        filer.Value("MaxRange"_tag, self.max_range);
        filer.Value("Offset"_tag, self.offset);
        filer.Value("Focus"_tag, self.focus);
        filer.Value("Threshold"_tag, self.threshold);
        filer.Value("Intensity"_tag, self.intensity);
    }
};

template <class Filer, class Record>
void ExchangeRecord(Filer& filer, Record& record) {
    filer.Begin(Record::kTag);
    Record::Exchange(filer, record);
    filer.End();
}

// How many records of each kind a document holds; they follow in this order.
struct RecordCounts {
    uint32_t profiles = 0;
    uint32_t steps = 0;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("ProfileCount"_tag, self.profiles);
        filer.Value("StepCount"_tag, self.steps);
    }
};

template <class String>
struct Document {
    std::vector<Profile<String>> profiles;
    std::vector<Step> steps;
};

template <class Filer, class String>
void WriteDocument(Filer& filer, const Document<String>& document) {
    const RecordCounts counts{static_cast<uint32_t>(document.profiles.size()),
                              static_cast<uint32_t>(document.steps.size())};
    RecordCounts::Exchange(filer, counts);
    for (const auto& profile : document.profiles)
        ExchangeRecord<Filer, const Profile<String>>(filer, profile);
    for (const Step& step : document.steps) ExchangeRecord<Filer, const Step>(filer, step);
}

// Reads one record after the other into the same place and shows each to `take`.
template <class String, class Filer, class Take>
void ReadDocument(Filer& filer, Take take) {
    RecordCounts counts;
    RecordCounts::Exchange(filer, counts);
    Profile<String> profile;
    for (uint32_t i = 0; i < counts.profiles; ++i) {
        ExchangeRecord(filer, profile);
        take(profile);
    }
    Step step;
    for (uint32_t i = 0; i < counts.steps; ++i) {
        ExchangeRecord(filer, step);
        take(step);
    }
}

}  // namespace hx::bench
