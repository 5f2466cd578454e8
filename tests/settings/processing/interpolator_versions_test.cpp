#include <gtest/gtest.h>

#include "settings/processing/MInterpolatorSettings.h"
#include "settings/processing/MSpoilerSettings.h"
#include "tests/settings/record_text.h"

namespace {

TEST(ImageInterpolator, EachVersionHasItsOwnChildren) {
    const std::wstring first = Child(L"Smooth", L"float", 0.5) + Child(L"PerspectiveOnly", L"int", 1) +
                               Written(hx::MSpeckleSettings(), L"SpeckleSettings");
    const std::wstring old_limits =
        Child(L"Min Reflectivity", L"float", 0.2) + Child(L"Max Reflectivity", L"float", 0.8);
    const std::wstring limits =
        Child(L"MinReflectivity", L"float", 0.2) + Child(L"MaxReflectivity", L"float", 0.8);
    const std::wstring clipping = Child(L"NoClipping", L"bool", 1);
    const std::wstring border = Child(L"QualityBorderDistance", L"float", 7.0);
    struct Row {
        const char* what;
        int version;
        std::wstring children;
        bool read;
        bool limits_read;
        bool clipping_read;
        bool border_read;
    };
    const Row rows[] = {
        {"version 0", 0, old_limits, true, true, false, false},
        {"version 1", 1, old_limits + clipping + border, true, true, false, false},
        {"the old limits by their present names", 1, limits, false, false, false, false},
        {"version 2 reads no limits of either name", 2, old_limits + clipping, true, false, false, false},
        {"version 2 has no limits", 2, L"", true, false, false, false},
        {"and reads none", 2, limits, true, false, false, false},
        {"version 3", 3, clipping, true, false, true, false},
        {"limits of version 3 stop all behind them", 3, limits + clipping, false, false, false, false},
        {"version 4", 4, limits + clipping, true, true, true, false},
        {"version 5", 5, limits + clipping + border, true, true, true, true},
        {"a later version", 6, limits + clipping + border, true, true, true, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        hx::MImageInterpolatorSettings record;
        EXPECT_EQ(ReadFrom(Version(row.version) + first + row.children, record, record), row.read);
        EXPECT_EQ(record.MinReflectivity, row.limits_read ? 0.2 : 0.0);
        EXPECT_EQ(record.MaxReflectivity, row.limits_read ? 0.8 : 1.0);
        EXPECT_EQ(record.NoClipping, row.clipping_read);
        EXPECT_EQ(record.QualityBorderDistance, row.border_read ? 7.0 : 0.5);
    }
}

TEST(Interpolator, EachVersionHasItsOwnChildren) {
    hx::MReflectionFilterSettings reflection;
    reflection.TrackingWindowX = 9;
    hx::MSpoilerSettings spoiler;
    spoiler.OrientAngle = 12.0;
    const std::wstring first =
        Written(hx::MColumnInterpolatorMaxIntensitySettings(), L"MaxIntensitySettings") +
        Written(hx::MImageInterpolatorSettings(), L"ImageInterpolatorSettings");
    const std::wstring old = Written(spoiler, L"OtherSettings");
    const std::wstring moved = Written(spoiler, L"SpoilerFilterSettings");
    const std::wstring peaks =
        Written(hx::MMultiplePeakDetectionSettings(), L"MultiplePeakDetectionSettings") +
        Written(reflection, L"ReflectionFilterSettings");
    struct Row {
        const char* what;
        std::wstring body;
        bool read;
        bool peaks_read;
        bool spoiler_read;
        bool read_if_not_strict = true;
        bool peaks_read_if_not_strict = true;
    };
    const Row rows[] = {
        {"version 1 ends behind the spoiler", Version(1) + first + old + peaks, true, false, true, true,
         false},
        {"of which something was missing is searched on", Version(1) + first + peaks, false, true, false,
         true, false},
        {"also if what failed is within", Version(1) + first + Group(L"OtherSettings", Version(1)) + peaks,
         false, true, false, true, false},
        {"version 0 never has peaks", Version(0) + first + peaks, false, false, false, true, false},
        {"nor a version below", Version(-1) + first + old + peaks, true, false, true, true, false},
        {"version 2", Version(2) + first + old + peaks, true, true, true},
        {"version 2 with the element of version 3", Version(2) + first + moved + peaks, false, true, false},
        {"version 3", Version(3) + first + moved + peaks, true, true, true},
        {"version 4 knows no spoiler", Version(4) + first + peaks, true, true, false},
        {"and leaves one alone", Version(4) + first + moved + peaks, true, true, false},
        {"a later version", Version(9) + first + peaks, true, true, false},
        {"no version", first + old + peaks, false, true, true, false},
    };
    for (const Row& row : rows) {
        for (const bool strict : {true, false}) {
            SCOPED_TRACE(std::string(row.what) + (strict ? ", strict" : ", not strict"));
            hx::MInterpolatorSettings record;
            record.SetStrict(strict);
            EXPECT_EQ(ReadFrom(row.body, record), strict ? row.read : row.read_if_not_strict);
            const bool peaks_read = strict ? row.peaks_read : row.peaks_read_if_not_strict;
            EXPECT_EQ(record.ReflectionFilterSettings.TrackingWindowX, peaks_read ? 9 : 3);
            EXPECT_TRUE(!strict || record.SpoilerOrientation == (row.spoiler_read ? 12.0 : 0.0));
            EXPECT_EQ(Written(record).find(L"Spoiler"), std::wstring::npos);
        }
    }
}

}  // namespace
