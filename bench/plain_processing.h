// The fields of MProcessingSettings, as its current version writes them.
#pragma once

#include <cstdint>

#include "bench/plain_record.h"
#include "bench/tag.h"

namespace hx::bench {

struct PlainSpoiler : PlainRecord {
    int32_t version = 1;
    bool ar{};
    int32_t geom{};
    double scale{};
    int32_t num_generation{};
    double angle{};
    double border_distance{};
    double orient_angle{};
    uint8_t stripe_buffer_size{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("AR"_tag, self.ar);
        filer.Value("Geom"_tag, self.geom);
        filer.Value("Scale"_tag, self.scale);
        filer.Value("NumGeneration"_tag, self.num_generation);
        filer.Value("Angle"_tag, self.angle);
        filer.Value("BorderDistance"_tag, self.border_distance);
        filer.Value("OrientAngle"_tag, self.orient_angle);
        filer.Value("StripeBufferSize"_tag, self.stripe_buffer_size);
    }

    bool operator==(const PlainSpoiler&) const = default;
};

struct PlainColumnInterpolator : PlainRecord {
    int32_t version = 1;
    int32_t columns{};
    double black_level_offset{};
    bool use_area{};
    uint8_t background_removal_type{};
    uint16_t min_threshold{};
    bool true_peak{};
    double double_peak_filter{};
    int16_t double_peak_distance{};
    double dynamic_black_level{};
    int16_t min_range{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("Columns"_tag, self.columns);
        filer.Value("BlackLevelOffset"_tag, self.black_level_offset);
        filer.Value("UseArea"_tag, self.use_area);
        filer.Value("BackgroundRemovalType"_tag, self.background_removal_type);
        filer.Value("MinThreshold"_tag, self.min_threshold);
        filer.Value("TruePeak"_tag, self.true_peak);
        filer.Value("DoublePeakFilter"_tag, self.double_peak_filter);
        filer.Value("DoublePeakDistance"_tag, self.double_peak_distance);
        filer.Value("DynamicBlackLevel"_tag, self.dynamic_black_level);
        filer.Value("MinRange"_tag, self.min_range);
    }

    bool operator==(const PlainColumnInterpolator&) const = default;
};

struct PlainSpeckle : PlainRecord {
    int32_t version = 1;
    bool enable{};
    bool automatic_degree{};
    uint8_t degree{};
    uint8_t window_size{};
    double noise_level{};
    double delta_max{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("Enable"_tag, self.enable);
        filer.Value("AutomaticDegree"_tag, self.automatic_degree);
        filer.Value("Degree"_tag, self.degree);
        filer.Value("WindowSize"_tag, self.window_size);
        filer.Value("NoiseLevel"_tag, self.noise_level);
        filer.Value("DeltaMax"_tag, self.delta_max);
    }

    bool operator==(const PlainSpeckle&) const = default;
};

struct PlainImageInterpolator : PlainRecord {
    int32_t version = 5;
    double smooth{};
    int32_t perspective_only{};
    PlainSpeckle speckle_settings;
    double min_reflectivity{};
    double max_reflectivity{};
    bool no_clipping{};
    double quality_border_distance{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("Smooth"_tag, self.smooth);
        filer.Value("PerspectiveOnly"_tag, self.perspective_only);
        filer.Value("SpeckleSettings"_tag, self.speckle_settings);
        filer.Value("MinReflectivity"_tag, self.min_reflectivity);
        filer.Value("MaxReflectivity"_tag, self.max_reflectivity);
        filer.Value("NoClipping"_tag, self.no_clipping);
        filer.Value("QualityBorderDistance"_tag, self.quality_border_distance);
    }

    bool operator==(const PlainImageInterpolator&) const = default;
};

struct PlainWeights : PlainRecord {
    int32_t size = 5;
    double weight2_d_cog0{};
    double weight2_d_cog1{};
    double weight2_d_cog2{};
    double weight2_d_cog3{};
    double weight2_d_cog4{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Size"_tag, self.size);
        filer.Value("Weight2DCog0"_tag, self.weight2_d_cog0);
        filer.Value("Weight2DCog1"_tag, self.weight2_d_cog1);
        filer.Value("Weight2DCog2"_tag, self.weight2_d_cog2);
        filer.Value("Weight2DCog3"_tag, self.weight2_d_cog3);
        filer.Value("Weight2DCog4"_tag, self.weight2_d_cog4);
    }

    bool operator==(const PlainWeights&) const = default;
};

struct PlainPeakDetection : PlainRecord {
    int32_t version = 1;
    int32_t kernel_width{};
    double slope_threshold{};
    int32_t min_peak_height{};
    double black_level_offset{};
    int32_t window_size_columns{};
    PlainWeights weight2_d_cog;
    double min_peak_overlap_ratio2_d_co_g{};
    int32_t co_g_order{};
    bool compress_intensities{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("KernelWidth"_tag, self.kernel_width);
        filer.Value("SlopeThreshold"_tag, self.slope_threshold);
        filer.Value("MinPeakHeight"_tag, self.min_peak_height);
        filer.Value("BlackLevelOffset"_tag, self.black_level_offset);
        filer.Value("WindowSizeColumns"_tag, self.window_size_columns);
        filer.Value("Weight2DCog"_tag, self.weight2_d_cog);
        filer.Value("MinPeakOverlapRatio2DCoG"_tag, self.min_peak_overlap_ratio2_d_co_g);
        filer.Value("CoGOrder"_tag, self.co_g_order);
        filer.Value("CompressIntensities"_tag, self.compress_intensities);
    }

    bool operator==(const PlainPeakDetection&) const = default;
};

struct PlainReflectionFilter : PlainRecord {
    int32_t version = 1;
    bool enable{};
    int32_t tracking_window_x{};
    double tracking_window_z{};
    double min_peak_distance{};
    int32_t min_segment_length{};
    int32_t min_segment_height{};
    int32_t max_outlier_size{};
    double max_total_variation_length{};
    double total_variation_length_ratio{};
    double mean_total_variation_length_ratio{};
    int32_t max_background_level{};
    int32_t min_absolute_over_lap{};
    double min_relative_overlap{};
    int32_t min_segment_size_to_overlap{};
    int32_t border_window_size_x{};
    int32_t min_peak_height{};
    int32_t min_peak_width{};
    int32_t max_peak_saturation{};
    double max_total_variation_factor{};
    int32_t max_inter_segment_dist{};
    int32_t knot_detection_window{};
    double knot_stripe_width_tolerance{};
    double min_segment_length_ratio{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("Enable"_tag, self.enable);
        filer.Value("TrackingWindowX"_tag, self.tracking_window_x);
        filer.Value("TrackingWindowZ"_tag, self.tracking_window_z);
        filer.Value("MinPeakDistance"_tag, self.min_peak_distance);
        filer.Value("MinSegmentLength"_tag, self.min_segment_length);
        filer.Value("MinSegmentHeight"_tag, self.min_segment_height);
        filer.Value("MaxOutlierSize"_tag, self.max_outlier_size);
        filer.Value("MaxTotalVariationLength"_tag, self.max_total_variation_length);
        filer.Value("TotalVariationLengthRatio"_tag, self.total_variation_length_ratio);
        filer.Value("MeanTotalVariationLengthRatio"_tag, self.mean_total_variation_length_ratio);
        filer.Value("MaxBackgroundLevel"_tag, self.max_background_level);
        filer.Value("MinAbsoluteOverLap"_tag, self.min_absolute_over_lap);
        filer.Value("MinRelativeOverlap"_tag, self.min_relative_overlap);
        filer.Value("MinSegmentSizeToOverlap"_tag, self.min_segment_size_to_overlap);
        filer.Value("BorderWindowSizeX"_tag, self.border_window_size_x);
        filer.Value("MinPeakHeight"_tag, self.min_peak_height);
        filer.Value("MinPeakWidth"_tag, self.min_peak_width);
        filer.Value("MaxPeakSaturation"_tag, self.max_peak_saturation);
        filer.Value("MaxTotalVariationFactor"_tag, self.max_total_variation_factor);
        filer.Value("MaxInterSegmentDist"_tag, self.max_inter_segment_dist);
        filer.Value("KnotDetectionWindow"_tag, self.knot_detection_window);
        filer.Value("KnotStripeWidthTolerance"_tag, self.knot_stripe_width_tolerance);
        filer.Value("MinSegmentLengthRatio"_tag, self.min_segment_length_ratio);
    }

    bool operator==(const PlainReflectionFilter&) const = default;
};

struct PlainSpeckle3D : PlainRecord {
    int32_t version = 1;
    bool enable{};
    int32_t window_size_smooth{};
    int32_t window_size_c0{};
    int32_t window_size_c1{};
    double noise_level{};
    double c0_gap{};
    double c1_gap{};
    bool dynamic_window{};
    int32_t degree{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("Enable"_tag, self.enable);
        filer.Value("WindowSizeSmooth"_tag, self.window_size_smooth);
        filer.Value("WindowSizeC0"_tag, self.window_size_c0);
        filer.Value("WindowSizeC1"_tag, self.window_size_c1);
        filer.Value("NoiseLevel"_tag, self.noise_level);
        filer.Value("C0Gap"_tag, self.c0_gap);
        filer.Value("C1Gap"_tag, self.c1_gap);
        filer.Value("DynamicWindow"_tag, self.dynamic_window);
        filer.Value("Degree"_tag, self.degree);
    }

    bool operator==(const PlainSpeckle3D&) const = default;
};

struct PlainInterpolator : PlainRecord {
    int32_t version = 4;
    PlainColumnInterpolator max_intensity_settings;
    PlainImageInterpolator image_interpolator_settings;
    PlainPeakDetection multiple_peak_detection_settings;
    PlainReflectionFilter reflection_filter_settings;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("MaxIntensitySettings"_tag, self.max_intensity_settings);
        filer.Value("ImageInterpolatorSettings"_tag, self.image_interpolator_settings);
        filer.Value("MultiplePeakDetectionSettings"_tag, self.multiple_peak_detection_settings);
        filer.Value("ReflectionFilterSettings"_tag, self.reflection_filter_settings);
    }

    bool operator==(const PlainInterpolator&) const = default;
};

struct PlainFilter : PlainRecord {
    int32_t version = 1;
    PlainSpeckle3D speckle3d;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("Speckle3DSettings"_tag, self.speckle3d);
    }

    bool operator==(const PlainFilter&) const = default;
};

struct PlainProcessing : PlainRecord {
    int32_t version = 1;
    PlainInterpolator interpolator_settings;
    PlainFilter filter_settings;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("InterpolatorSettings"_tag, self.interpolator_settings);
        filer.Value("FilterSettings"_tag, self.filter_settings);
    }

    bool operator==(const PlainProcessing&) const = default;
};

}  // namespace hx::bench
