// The values of profiles: how they are converted, in which order they are read and written, which error tells
// of which call, and when two profiles differ.
#include <cmath>
#include <limits>

#include "controls/editor/DynamicSettings.h"
#include "tests/controls/scripted_api.h"

namespace {

using scripted::Raised;
using Limits = std::numeric_limits<double>;

constexpr double kNoNumber = Limits::quiet_NaN();
constexpr double kInfinite = Limits::infinity();
const std::string kClass = "BaseDynamicSettingsDlg.";

class Settings : public testing::Test {
protected:
    Settings() { settings.Data().exposure_range_max = 20000; }

    hx::ComPtr<IDynamicSettingsPreset> Preset(const std::string& tag, const scripted::Values& values = {}) {
        const auto preset = hx::Make<scripted::Preset>(script, values);
        preset->tag = tag;
        return preset.as<IDynamicSettingsPreset>();
    }
    static scripted::Values& ValuesOf(const hx::ComPtr<IDynamicSettingsPreset>& preset) {
        return static_cast<scripted::Preset*>(preset.get())->values;
    }

    scripted::Script script;
    hx::DynamicSettings settings;
};

TEST_F(Settings, ExposuresBecomePercentages) {
    const struct {
        double exposure_us;
        int32_t percentage;
    } kRows[] = {
        {0, 100},
        {-5, 100},
        {200, 100},
        {200.9, 100},
        {201, 101},
        {201.01, 101},
        {203, 102},
        {10000, 5000},
        {19998.9, 9999},
        {19999, 10000},
        {20000, 10000},
        {1e9, 10000},
        {1e300, 10000},
        {Limits::max(), 10000},
        {-1e300, 100},
        {kInfinite, 10000},
        {-kInfinite, 100},
        {kNoNumber, 100},
        {Limits::denorm_min(), 100},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(settings.ExposureFromMicroSecondsToPercentage(row.exposure_us), row.percentage)
            << row.exposure_us;
    }
    const std::pair<int32_t, double> kBack[] = {{0, 1.0}, {1, 2.0}, {100, 200.0}, {10000, 20000.0}};
    for (const auto& [percentage, exposure_us] : kBack) {
        EXPECT_EQ(settings.ExposureFromPercentageToMicroSeconds(percentage), exposure_us);
    }
    settings.Data().exposure_range_max = std::numeric_limits<uint32_t>::max();
    EXPECT_EQ(settings.ExposureFromPercentageToMicroSeconds(10000), 4294967295.0);
    EXPECT_EQ(settings.ExposureFromMicroSecondsToPercentage(4294967295.0), 10000);
    settings.Data().exposure_range_max = 0;
    const std::string error = ":ExposureTimeRangeNotSet";
    EXPECT_EQ(Raised([&] { settings.ExposureFromMicroSecondsToPercentage(1); }),
              kClass + "ExposureFromMicroSecondsToPercentage" + error);
    EXPECT_EQ(Raised([&] { settings.ExposureFromPercentageToMicroSeconds(1); }),
              kClass + "ExposureFromPercentageToMicroSeconds" + error);
}

TEST_F(Settings, ValuesAreTakenWithinTheirBounds) {
    using Data = hx::DynamicSettingsData;
    const struct {
        double value;
        int32_t power, filter, inclination;
    } kRows[] = {
        {0, 1, 0, 0},         {1.49, 1, 1, 1},           {1.5, 2, 2, 2},
        {2.5, 3, 3, 3},       {89.5, 90, 90, 90},        {90.6, 91, 91, 90},
        {99.5, 100, 100, 90}, {1e300, 100, 100, 90},     {-1e300, 1, 0, 0},
        {kNoNumber, 1, 0, 0}, {kInfinite, 100, 100, 90}, {-kInfinite, 1, 0, 0},
        {-0.5, 1, 0, 0},
    };
    for (const auto& row : kRows) {
        scripted::Values values;
        values.laser_power = values.edge_filter = values.max_inclination = row.value;
        settings.BaseSettingsToData(*Preset("", values));
        const Data& data = settings.Data();
        EXPECT_EQ(data.laser_power, row.power) << row.value;
        EXPECT_EQ(data.edge_filter, row.filter) << row.value;
        EXPECT_EQ(data.max_inclination, row.inclination) << row.value;
    }
    scripted::Values values;
    values.signal_threshold = 4000000000;
    values.gain = 4000000000;
    settings.BaseSettingsToData(*Preset("", values));
    EXPECT_EQ(settings.Data().signal_threshold, 100u);
    EXPECT_EQ(settings.Data().gain, 4000000000u) << "any is taken while none are known";
    settings.BaseSettingsToData(*Preset(""));
    settings.SupportedGains() = {1, 4};
    EXPECT_EQ(Raised([&] { settings.BaseSettingsToData(*Preset("", values)); }),
              kClass + "BaseSettingsToData:GainNotSupported");
    EXPECT_EQ(settings.Data().gain, 1u) << "it does not get into the record";
    values.gain = 4;
    settings.BaseSettingsToData(*Preset("", values));
    EXPECT_EQ(settings.Data().gain, 4u);
}

TEST_F(Settings, ValuesComeBackAsTheyWere) {
    scripted::Values values{33, 1234, 4, TRUE, TRUE, 77, 12, 34, FALSE, L"name"};
    const auto read = Preset("", values);
    const auto written = Preset("");
    settings.BaseSettingsToData(*read);
    settings.BaseDataToSettings(*written);
    EXPECT_FALSE(settings.SettingsAreDifferent(*read, *written));
    EXPECT_EQ(ValuesOf(written).exposure_us, 1234);
    // Copies are not rounded.
    ValuesOf(read).exposure_us = 1234.567;
    ValuesOf(read).laser_power = 33.3;
    settings.CopySettings(*read, *written);
    EXPECT_EQ(ValuesOf(written).exposure_us, 1234.567);
    EXPECT_EQ(ValuesOf(written).laser_power, 33.3);
    EXPECT_EQ(ValuesOf(written).name, L"");
}

// Each of the calls of an operation fails once: those before it were made, and no later one is.
TEST_F(Settings, EachCallFailsUnderItsName) {
    const std::vector<std::string> kGetters = {
        "GetLaserPower",       "IsDLPCEnabled",          "GetExposureTime",
        "GetAnalogImagerGain", "Get3DEdgeFilterEnabled", "GetSignalThreshold",
        "GetEdgeFilterValue",  "GetMaxInclination",      "IsRFEnabled"};
    const std::vector<std::string> kSetters = {
        "SetLaserPower",      "SetExposureTime",        "SetAnalogImagerGain",
        "SetDLPCEnabled",     "Set3DEdgeFilterEnabled", "SetSignalThreshold",
        "SetEdgeFilterValue", "SetMaxInclination",      "SetRFEnabled"};
    struct Call {
        std::string name, tag, error;
    };
    std::vector<Call> reads, writes, copies, comparisons;
    for (const std::string& getter : kGetters) {
        const bool sided = getter != "GetAnalogImagerGain";
        reads.push_back({getter, " A", getter});
        copies.push_back({getter, " A", getter});
        comparisons.push_back({getter, " A", getter + (sided ? "A" : "")});
        comparisons.push_back({getter, " B", getter + (sided ? "B" : "")});
    }
    for (const std::string& setter : kSetters) {
        writes.push_back({setter, " A", setter});
        copies.push_back({setter, " B", setter});
    }
    const auto a = Preset(" A");
    const auto b = Preset(" B");
    const struct {
        std::string operation;
        const std::vector<Call>& calls;
        std::function<void()> run;
    } kRows[] = {
        {"BaseSettingsToData", reads, [&] { settings.BaseSettingsToData(*a); }},
        {"BaseDataToSettings", writes, [&] { settings.BaseDataToSettings(*a); }},
        {"CopySettings", copies, [&] { settings.CopySettings(*a, *b); }},
        {"SettingsAreDifferent", comparisons, [&] { settings.SettingsAreDifferent(*a, *b); }},
    };
    script.enters_values = true;
    for (const auto& row : kRows) {
        std::vector<std::string> made;
        for (const Call& call : row.calls) {
            made.push_back(call.name + call.tag);
            script.failures = {{made.back(), {E_ABORT, 0}}};
            EXPECT_EQ(Raised(row.run), "MErrorCom.MErrorCom:, " + kClass + row.operation + ":" + call.error);
            EXPECT_EQ(script.Calls(), scripted::Joined(made));
        }
        script.failures.clear();
        row.run();
        EXPECT_EQ(script.Calls(), scripted::Joined(made)) << "and there are no others";
    }
}

TEST_F(Settings, DifferencesCountFromTheirTolerances) {
    using Values = scripted::Values;
    const struct {
        const char* what;
        void (*change)(Values&);
        bool differ;
    } kRows[] = {
        {"nothing", [](Values&) {}, false},
        {"power drifts", [](Values& values) { values.laser_power += 9e-6; }, false},
        {"power", [](Values& values) { values.laser_power -= 2e-5; }, true},
        {"automatic", [](Values& values) { values.automatic_laser_power = TRUE; }, true},
        {"exposure drifts", [](Values& values) { values.exposure_us += 100; }, false},
        {"exposure drifts down", [](Values& values) { values.exposure_us -= 100; }, false},
        {"exposure", [](Values& values) { values.exposure_us += 100.01; }, true},
        {"gain", [](Values& values) { values.gain = 2; }, true},
        {"3D", [](Values& values) { values.edge_filter_3d = TRUE; }, true},
        {"threshold", [](Values& values) { values.signal_threshold = 6; }, true},
        {"edge filter drifts", [](Values& values) { values.edge_filter = 9e-6; }, false},
        {"edge filter", [](Values& values) { values.edge_filter = 2e-5; }, true},
        {"inclination", [](Values& values) { values.max_inclination = 89.9; }, true},
        {"reflection", [](Values& values) { values.reflection_filter = FALSE; }, true},
        {"name", [](Values& values) { values.name = L"other"; }, false},
    };
    for (const auto& row : kRows) {
        Values changed;
        row.change(changed);
        const auto baseline = Preset("");
        const auto edited = Preset("", changed);
        EXPECT_EQ(settings.SettingsAreDifferent(*baseline, *edited), row.differ) << row.what;
        EXPECT_EQ(settings.SettingsAreDifferent(*edited, *baseline), row.differ) << row.what;
    }
    // While the range is not known any difference counts, and none fails.
    settings.Data().exposure_range_max = 0;
    Values changed;
    changed.exposure_us += 1e-6;
    EXPECT_TRUE(settings.SettingsAreDifferent(*Preset(""), *Preset("", changed)));
    EXPECT_FALSE(settings.SettingsAreDifferent(*Preset(""), *Preset("")));
}

}  // namespace
