// A device's measurement settings, version by version: what counts as missing, what is written back.
#include <gtest/gtest.h>

#include <map>

#include "settings/device/MDeviceMeasurementSettings.h"
#include "tests/settings/record_text.h"

namespace {

using hx::MDeviceMeasurementSettings;
using Text = std::wstring;

Text String(const Text& tag, const Text& value) {
    return Child(tag, L"string", value);
}

Text Stage(const Text& name, const Text& path, bool with_file = true) {
    return Group(name, Version(1) + String(L"FilePath", path) +
                           (with_file ? String(L"FileName", path + L".xml") : L""));
}
Text Stages(const Text& path) {
    return Stage(L"Stage2DSettings", path) + Stage(L"StageAlignmentSettings", path) +
           Stage(L"Stage3DSettings", path);
}
// A pipeline whose processing settings are told from others by one value.
Text Pipeline(const Text& name, int window) {
    hx::MProcessingSettings settings;
    settings.FilterSettings.Speckle3DSettings.WindowSizeC0 = window;
    return Group(name, Written(settings, L"ProcessingSettings"));
}
Text ScanPipeline(const Text& pipelines) {
    return Group(L"ScanPipeline", Group(L"ScanProcessors", pipelines) + L"<FrequencyLogger/>");
}

// Which of the elements that come and go a text has, in their order: one letter each.
Text Elements(const Text& text) {
    static const std::map<Text, wchar_t> letters = {
        {L"Stage2DSettings", L'2'},
        {L"StageAlignmentSettings", L'A'},
        {L"Stage3DSettings", L'3'},
        {L"ScanPipeline", L'S'},
        {L"ScanProcessors", L'R'},
        {L"FxPipeline", L'F'},
        {L"HXPipeline", L'X'},
        {L"PeaksPipeline", L'P'},
        {L"FrequencyLogger", L'L'},
        {L"ScanEngineProcessingSettings", L'E'},
        {L"ZRDMeasurementSettings", L'Z'},
        {L"HXMeasurementSettings", L'H'},
    };
    Text found;
    for (size_t at = text.find(L'<'); at != Text::npos; at = text.find(L'<', at + 1)) {
        const auto letter = letters.find(text.substr(at + 1, text.find_first_of(L" />", at) - at - 1));
        if (letter != letters.end() && text[at + 1] != L'/') found += letter->second;
    }
    return found;
}

TEST(DeviceSettings, EachVersionIsReadByItsOwnRulesAndWrittenBackAsItIs) {
    const Text stages = Stages(L"p");
    const Text engine = Written(hx::MScanEngineProcessingSettings(), L"ScanEngineProcessingSettings");
    const Text pipeline = ScanPipeline(Pipeline(L"HXPipeline", 11));
    const Text hx = Written(hx::MHXMeasurementSettings(), L"HXMeasurementSettings");
    const Text zrd = Written(hx::ZRDMeasurementSettings(), L"ZRDMeasurementSettings");
    const Text zrd_without_values = Group(L"ZRDMeasurementSettings", Version(6));
    const Text newer_hx = Group(L"HXMeasurementSettings", Version(1000));
    const Text full = stages + pipeline + engine;
    // The window (6 before, 99 in the defaults) is that of the pipeline in force. Strict, lenient: the
    // results with and without the strict flag.
    struct Row {
        const char* what;
        Text body;
        bool strict;
        bool lenient;
        int32_t version;
        int window;
        Text written;
    };
    const Text all = L"2A3SRXLE";
    const Row rows[] = {
        {"version 2", Version(2) + full + zrd + hx, true, true, 2, 11, all + L"ZH"},
        {"version 1 has hardware alone", Version(1) + hx, true, true, 1, 6, L"H"},
        {"version 1 ignores the rest", Version(1) + full + zrd, true, true, 1, 6, L"Z"},
        {"version 0 has all", Version(0) + full, true, true, 0, 11, all},
        {"negative version", Version(-1) + full, true, true, -1, 11, all},
        {"newer version", Version(3) + full + zrd, false, false, 2, 6, all},
        {"no version", full + zrd, false, false, 2, 6, all},

        {"no pipeline", Version(2) + stages + engine, true, true, 2, 6, all},
        {"no processors", Version(2) + stages + L"<ScanPipeline/>" + engine, true, true, 2, 6, all},
        {"processors without a pipeline", Version(2) + stages + ScanPipeline(L"") + engine, true, true, 2, 6,
         all},
        {"no logger",
         Version(2) + stages + Group(L"ScanPipeline", Group(L"ScanProcessors", Pipeline(L"HXPipeline", 11))) +
             engine,
         true, true, 2, 11, all},
        {"pipeline without settings",
         Version(2) + stages + ScanPipeline(L"<FxPipeline/>" + Pipeline(L"PeaksPipeline", 12)) + engine, true,
         true, 2, 12, all},
        {"behind a broken pipeline",
         Version(2) + stages +
             ScanPipeline(Group(L"FxPipeline", L"<ProcessingSettings/>") + Pipeline(L"PeaksPipeline", 12)) +
             engine + hx,
         false, true, 2, 12, all + L"H"},
        {"the later pipeline counts",
         Version(2) + stages + ScanPipeline(Pipeline(L"FxPipeline", 10) + Pipeline(L"HXPipeline", 11)) +
             engine,
         true, true, 2, 11, all},
        {"the last pipeline counts",
         Version(2) + stages +
             ScanPipeline(Pipeline(L"FxPipeline", 10) + Pipeline(L"HXPipeline", 11) +
                          Pipeline(L"PeaksPipeline", 12)) +
             engine,
         true, true, 2, 12, all},
        {"a pipeline in front of its place is not found",
         Version(2) + stages + ScanPipeline(Pipeline(L"HXPipeline", 11) + Pipeline(L"FxPipeline", 10)) +
             engine,
         true, true, 2, 10, all},

        {"no stages", Version(2) + pipeline + engine, false, true, 2, 11, all},
        {"a newer stage",
         Version(2) + Group(L"Stage2DSettings", Version(2)) + Stage(L"StageAlignmentSettings", L"p") +
             Stage(L"Stage3DSettings", L"p") + pipeline + engine,
         false, true, 2, 11, all},
        {"no engine", Version(2) + stages + pipeline + hx, false, true, 2, 11, all + L"H"},
        {"a newer engine",
         Version(2) + stages + pipeline + Group(L"ScanEngineProcessingSettings", Version(4)) + hx, false,
         true, 2, 11, all + L"H"},

        {"hardware settings without their values", Version(2) + full + zrd_without_values, true, true, 2, 11,
         all + L"Z"},
        {"newer hardware settings", Version(2) + full + newer_hx, true, true, 2, 11, all},
    };
    MDeviceMeasurementSettings defaults;
    defaults.Processing.FilterSettings.Speckle3DSettings.WindowSizeC0 = 99;
    for (const Row& row : rows) {
        for (const bool strict : {true, false}) {
            SCOPED_TRACE(row.what);
            SCOPED_TRACE(strict);
            MDeviceMeasurementSettings record;
            record.SetStrict(strict);
            EXPECT_EQ(ReadFrom(row.body, record, defaults), strict ? row.strict : row.lenient);
            EXPECT_EQ(record.Version, row.version);
            EXPECT_EQ(record.HasPipeline(), row.lenient && row.version != 1)
                << "only if the version was accepted";
            EXPECT_EQ(record.Processing.FilterSettings.Speckle3DSettings.WindowSizeC0, row.window);
            const Text written = Written(record);
            EXPECT_EQ(Elements(written), row.written);
            EXPECT_TRUE(written.starts_with(Version(row.version)));
        }
    }
}

TEST(DeviceSettings, OnlyHardwareSettingsOfTheLastDocumentAreWritten) {
    const Text hx = Written(hx::MHXMeasurementSettings(), L"HXMeasurementSettings");
    const Text zrd = Written(hx::ZRDMeasurementSettings(), L"ZRDMeasurementSettings");
    MDeviceMeasurementSettings record;
    const std::pair<Text, Text> reads[] = {{zrd + hx, L"ZH"}, {hx, L"H"}, {zrd, L"Z"}, {L"", L""}};
    for (const auto& [body, written] : reads) {
        EXPECT_TRUE(ReadFrom(Version(1) + body, record, record));
        EXPECT_FALSE(record.HasPipeline());
        EXPECT_EQ(Elements(Written(record)), written);
        EXPECT_EQ(Elements(Written(MDeviceMeasurementSettings(record))), written);
    }
}

TEST(DeviceSettings, TheStrictFlagTellsWhereMissingValuesComeFrom) {
    const Text body =
        Version(2) + Stage(L"Stage2DSettings", L"read", false) +
        Group(L"ScanEngineProcessingSettings", Version(3) + Group(L"SpoilerFilterSettings", Version(1))) +
        Group(L"HXMeasurementSettings", Version(1));
    MDeviceMeasurementSettings defaults;
    defaults.Stage2DSettings.FileName = L"default";
    defaults.ScanEngine.ModuleName = L"default";
    defaults.ScanEngine.SpoilerFilter.Geom = 7;
    defaults.HX.ExposureRange_us = 8;
    for (const bool strict : {true, false}) {
        SCOPED_TRACE(strict);
        MDeviceMeasurementSettings record;
        record.Stage2DSettings.FileName = L"own";
        record.ScanEngine.ModuleName = L"own";
        record.SetStrict(strict);
        const hx::SettingsObjectBase* const members[] = {&record.Stage2DSettings,
                                                         &record.StageAlignmentSettings,
                                                         &record.Stage3DSettings,
                                                         &record.Processing,
                                                         &record.ScanEngine,
                                                         &record.ZRD,
                                                         &record.HX};
        for (const hx::SettingsObjectBase* const member : members) EXPECT_EQ(member->IsStrict(), strict);
        EXPECT_EQ(ReadFrom(body, record, defaults), !strict);
        EXPECT_EQ(record.Stage2DSettings.FilePath, L"read");
        EXPECT_EQ(record.Stage2DSettings.FileName, strict ? L"own" : L"default");
        EXPECT_EQ(record.ScanEngine.ModuleName, L"own") << "the module is never taken from the defaults";
        EXPECT_EQ(record.ScanEngine.SpoilerFilter.Geom, strict ? 1 : 7);
        EXPECT_EQ(record.HX.ExposureRange_us, 8U) << "hardware settings always are";
    }
}

TEST(DeviceSettings, TheScanEngineHasWhatItsVersionHas) {
    const Text module = String(L"ModuleName", L"read");
    hx::MSpoilerSettings other_spoiler;
    other_spoiler.Geom = 5;
    const Text spoiler = Written(other_spoiler, L"SpoilerFilterSettings");
    hx::MDualQuaternionInterpolatorSettings other_spline;
    other_spline.SplineInterpolationOrder = 9;
    const Text spline = Written(other_spline, L"DualQuaternionInterpolatorSettings");
    const Text old_module = L"AsynchroLaserScanningEngine.dll";
    const hx::MScanEngineProcessingSettings fresh;
    const int32_t order = fresh.DualQuaternionInterpolator.SplineInterpolationOrder;
    struct Row {
        const char* what;
        Text body;
        bool strict;
        bool lenient;
        Text module;
        int32_t geom;
        int32_t order;
    };
    const Row rows[] = {
        {"version 3", Version(3) + module + spoiler + spline, true, true, L"read", 5, 9},
        {"version 2", Version(2) + module + spoiler + spline, true, true, L"read", 5, order},
        {"version 1", Version(1) + module + spoiler + spline, true, true, old_module, 5, order},
        {"version 0", Version(0) + spoiler, true, true, old_module, 5, order},
        {"no version, read as the newest", module + spoiler + spline, false, false, L"read", 5, 9},
        {"newer version", Version(4) + module + spoiler + spline, false, false, old_module, 1, order},
        {"no module", Version(3) + spoiler + spline, false, true, old_module, 5, 9},
        {"no spoiler", Version(3) + module + spline, false, true, L"read", 1, 9},
        {"no spline", Version(3) + module + spoiler, false, true, L"read", 5, order},
    };
    for (const Row& row : rows) {
        for (const bool strict : {true, false}) {
            SCOPED_TRACE(row.what);
            SCOPED_TRACE(strict);
            hx::MScanEngineProcessingSettings record;
            record.SetStrict(strict);
            EXPECT_EQ(ReadFrom(row.body, record, fresh), strict ? row.strict : row.lenient);
            EXPECT_EQ(record.ModuleName, row.module);
            EXPECT_EQ(record.SpoilerFilter.Geom, row.geom);
            EXPECT_EQ(record.DualQuaternionInterpolator.SplineInterpolationOrder, row.order);
            EXPECT_TRUE(Written(record).starts_with(Version(3) + L"<ModuleName"));
        }
    }
}

}  // namespace
