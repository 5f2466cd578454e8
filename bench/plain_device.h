// The fields of MDeviceMeasurementSettings, with the hardware settings of both scanner families.
#pragma once

#include "bench/plain_processing.h"

namespace hx::bench {

template <class String>
struct PlainStage : PlainRecord {
    int32_t version = 1;
    String file_path;
    String file_name;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("FilePath"_tag, self.file_path);
        filer.Value("FileName"_tag, self.file_name);
    }

    bool operator==(const PlainStage&) const = default;
};

struct PlainDualQuaternionInterpolator : PlainRecord {
    int32_t version = 1;
    int32_t spline_interpolation_order{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("SplineInterpolationOrder"_tag, self.spline_interpolation_order);
    }

    bool operator==(const PlainDualQuaternionInterpolator&) const = default;
};

template <class String>
struct PlainScanEngine : PlainRecord {
    int32_t version = 3;
    String module_name;
    PlainSpoiler spoiler_filter_settings;
    PlainDualQuaternionInterpolator dual_quaternion_interpolator_settings;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("ModuleName"_tag, self.module_name);
        filer.Value("SpoilerFilterSettings"_tag, self.spoiler_filter_settings);
        filer.Value("DualQuaternionInterpolatorSettings"_tag, self.dual_quaternion_interpolator_settings);
    }

    bool operator==(const PlainScanEngine&) const = default;
};

struct PlainZrd : PlainRecord {
    int32_t version = 8;
    uint8_t video_win_roi_percent_x{};
    uint8_t video_win_roi_percent_y{};
    int32_t intensity_lut_type{};
    uint8_t intensity_gain01234{};
    uint8_t intensity_offset{};
    bool intensity_low_light{};
    uint32_t row_delay{};
    uint32_t frame_delay{};
    uint32_t trigr_single_pulse_delay_mcs{};
    uint32_t trigr_repeat_pulse_delay_mcs{};
    uint32_t trigr_repeat_pulse_width_mcs{};
    uint32_t trigr_repeat_pulse_count{};
    uint8_t subsampl_mode{};
    uint8_t subsampl_h_sub{};
    uint8_t subsampl_v_sub{};
    uint8_t subsampl_h_avr{};
    uint8_t subsampl_v_avr{};
    uint8_t hw_img_compr_method{};
    uint8_t hw_img_compr_fixed_threshold{};
    uint8_t hw_img_compr_dynamic_threshold{};
    uint32_t hw_img_compr_max_segment_width{};
    uint8_t hw_img_compr_max_segments_per_line{};
    uint8_t spot_laser_mode{};
    uint32_t spot_laser_auto_min_power{};
    uint32_t spot_laser_auto_max_power{};
    uint32_t spot_laser_avr_samples{};
    uint16_t dlpc_rsw{};
    uint8_t dlpc_ue_threshold{};
    uint16_t dlpc_ue_targetlp{};
    uint8_t dlpc_oe_threshold{};
    uint8_t dlpc_oe_targetint{};
    uint8_t dlpc_targetint{};
    uint8_t dlpc_spiketolinterval{};
    uint8_t dlpc_visel{};
    uint8_t dlpc_greedy{};
    uint8_t dlpc_freeze{};
    uint8_t dlpc_peak_width{};
    uint16_t dlpc_max_lp{};
    uint32_t laser_power_range{};
    uint32_t fpga_counter_prescaller{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("VideoWin_ROIPercentX"_tag, self.video_win_roi_percent_x);
        filer.Value("VideoWin_ROIPercentY"_tag, self.video_win_roi_percent_y);
        filer.Value("IntensityLUTType"_tag, self.intensity_lut_type);
        filer.Value("IntensityGain01234"_tag, self.intensity_gain01234);
        filer.Value("IntensityOffset"_tag, self.intensity_offset);
        filer.Value("IntensityLowLight"_tag, self.intensity_low_light);
        filer.Value("RowDelay"_tag, self.row_delay);
        filer.Value("FrameDelay"_tag, self.frame_delay);
        filer.Value("TrigrSinglePulseDelay_mcs"_tag, self.trigr_single_pulse_delay_mcs);
        filer.Value("TrigrRepeatPulseDelay_mcs"_tag, self.trigr_repeat_pulse_delay_mcs);
        filer.Value("TrigrRepeatPulseWidth_mcs"_tag, self.trigr_repeat_pulse_width_mcs);
        filer.Value("TrigrRepeatPulseCount"_tag, self.trigr_repeat_pulse_count);
        filer.Value("SubsamplMode"_tag, self.subsampl_mode);
        filer.Value("SubsamplHSub"_tag, self.subsampl_h_sub);
        filer.Value("SubsamplVSub"_tag, self.subsampl_v_sub);
        filer.Value("SubsamplHAvr"_tag, self.subsampl_h_avr);
        filer.Value("SubsamplVAvr"_tag, self.subsampl_v_avr);
        filer.Value("HWImgComprMethod"_tag, self.hw_img_compr_method);
        filer.Value("HWImgComprFixedThreshold"_tag, self.hw_img_compr_fixed_threshold);
        filer.Value("HWImgComprDynamicThreshold"_tag, self.hw_img_compr_dynamic_threshold);
        filer.Value("HWImgComprMaxSegmentWidth"_tag, self.hw_img_compr_max_segment_width);
        filer.Value("HWImgComprMaxSegmentsPerLine"_tag, self.hw_img_compr_max_segments_per_line);
        filer.Value("SpotLaserMode"_tag, self.spot_laser_mode);
        filer.Value("SpotLaserAutoMinPower"_tag, self.spot_laser_auto_min_power);
        filer.Value("SpotLaserAutoMaxPower"_tag, self.spot_laser_auto_max_power);
        filer.Value("SpotLaserAvrSamples"_tag, self.spot_laser_avr_samples);
        filer.Value("DLPC_RSW"_tag, self.dlpc_rsw);
        filer.Value("DLPC_UE_THRESHOLD"_tag, self.dlpc_ue_threshold);
        filer.Value("DLPC_UE_TARGETLP"_tag, self.dlpc_ue_targetlp);
        filer.Value("DLPC_OE_THRESHOLD"_tag, self.dlpc_oe_threshold);
        filer.Value("DLPC_OE_TARGETINT"_tag, self.dlpc_oe_targetint);
        filer.Value("DLPC_TARGETINT"_tag, self.dlpc_targetint);
        filer.Value("DLPC_SPIKETOLINTERVAL"_tag, self.dlpc_spiketolinterval);
        filer.Value("DLPC_VISEL"_tag, self.dlpc_visel);
        filer.Value("DLPC_GREEDY"_tag, self.dlpc_greedy);
        filer.Value("DLPC_FREEZE"_tag, self.dlpc_freeze);
        filer.Value("DLPC_PEAK_WIDTH"_tag, self.dlpc_peak_width);
        filer.Value("DLPC_MAX_LP"_tag, self.dlpc_max_lp);
        filer.Value("LaserPowerRange"_tag, self.laser_power_range);
        filer.Value("FPGA_CounterPrescaller"_tag, self.fpga_counter_prescaller);
    }

    bool operator==(const PlainZrd&) const = default;
};

struct PlainHx : PlainRecord {
    int32_t version = 1;
    uint32_t exposure_range_us{};

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("ExposureRange_us"_tag, self.exposure_range_us);
    }

    bool operator==(const PlainHx&) const = default;
};

struct PlainPipeline : PlainRecord {
    PlainProcessing processing_settings;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("ProcessingSettings"_tag, self.processing_settings);
    }

    bool operator==(const PlainPipeline&) const = default;
};

struct PlainFrequencyLogger : PlainRecord {
    template <class Filer, class Self>
    static void Exchange(Filer&, Self&) {}

    bool operator==(const PlainFrequencyLogger&) const = default;
};

// Documents may hold all pipelines; written is one.
template <bool kAllPipelines>
struct PlainProcessors : PlainRecord {
    PlainPipeline fx_pipeline;
    PlainPipeline hx_pipeline;
    PlainPipeline peaks_pipeline;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        if constexpr (kAllPipelines) filer.Value("FxPipeline"_tag, self.fx_pipeline);
        filer.Value("HXPipeline"_tag, self.hx_pipeline);
        if constexpr (kAllPipelines) filer.Value("PeaksPipeline"_tag, self.peaks_pipeline);
    }

    bool operator==(const PlainProcessors&) const = default;
};

template <bool kAllPipelines>
struct PlainScanPipeline : PlainRecord {
    PlainProcessors<kAllPipelines> scan_processors;
    PlainFrequencyLogger frequency_logger;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("ScanProcessors"_tag, self.scan_processors);
        filer.Value("FrequencyLogger"_tag, self.frequency_logger);
    }

    bool operator==(const PlainScanPipeline&) const = default;
};

template <class String, bool kAllPipelines>
struct PlainDevice : PlainRecord {
    int32_t version = 2;
    PlainStage<String> stage2d;
    PlainStage<String> stage_alignment_settings;
    PlainStage<String> stage3d;
    PlainScanPipeline<kAllPipelines> scan_pipeline;
    PlainScanEngine<String> scan_engine_processing_settings;
    PlainZrd zrd_measurement_settings;
    PlainHx hx_measurement_settings;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("Stage2DSettings"_tag, self.stage2d);
        filer.Value("StageAlignmentSettings"_tag, self.stage_alignment_settings);
        filer.Value("Stage3DSettings"_tag, self.stage3d);
        filer.Value("ScanPipeline"_tag, self.scan_pipeline);
        filer.Value("ScanEngineProcessingSettings"_tag, self.scan_engine_processing_settings);
        filer.Value("ZRDMeasurementSettings"_tag, self.zrd_measurement_settings);
        filer.Value("HXMeasurementSettings"_tag, self.hx_measurement_settings);
    }

    bool operator==(const PlainDevice&) const = default;
};

template <class String, bool kAllPipelines>
struct PlainDeviceDocument : PlainRecord {
    using Text = String;

    PlainDevice<String, kAllPipelines> device;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("DeviceMeasurementSettings"_tag, self.device);
    }

    bool operator==(const PlainDeviceDocument&) const = default;
};

template <class String>
using PlainDeviceRead = PlainDeviceDocument<String, true>;
template <class String>
using PlainDeviceWritten = PlainDeviceDocument<String, false>;

}  // namespace hx::bench
