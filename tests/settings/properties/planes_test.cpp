#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "settings/properties/MHXFamilyDeviceProperties.h"
#include "tests/settings/properties/properties_xml.h"

namespace {

using namespace properties_xml;

std::wstring Plane(int64_t number, const std::wstring& rest = L"") {
    return Group(L"Plane", Uint(L"Version", 1) + Uint(L"PlaneNumber", number) + rest);
}
std::wstring Area(int64_t number, const std::wstring& rest) {
    return Group(L"MeasurementArea", Uint(L"Version", 1) + Int(L"NumberOfPoints", number) + rest);
}
std::wstring Point(double x, double y) {
    return Points(L"Point", {x, y});
}

// "number/frequency/exposure(x,y x,y ...)selection" of each plane.
std::string Told(const hx::MLaserPlanes& planes) {
    std::ostringstream told;
    for (const hx::MLaserPlane& plane : planes.Planes) {
        told << plane.PlaneNumber << '/' << plane.PlaneFrequency << '/' << plane.ExposureRange_us << '(';
        const char* between = "";
        for (const hx::Point2D& point : plane.MeasurementArea) {
            told << std::exchange(between, " ") << point.X << ',' << point.Y;
        }
        told << ')' << std::string(plane.FrequencySelection.begin(), plane.FrequencySelection.end()) << ';';
    }
    return told.str();
}

TEST(LaserPlanes, AreReadUntilOneHasNoNumber) {
    const std::wstring version = Uint(L"Version", 1);
    const std::wstring exposure = Int(L"ExposureRange_us", 9);
    const std::wstring frequency = Float(L"PlaneFrequency", 50);
    const auto speed = [](int64_t newer) {
        return Group(L"FrequencyConfig", Uint(L"Version", newer) + Text(L"FrequencySelection", L"75%"));
    };
    const auto ror = [](int64_t newer) {
        return Group(L"VideoWin_RorConfig", Uint(L"Version", newer) + Text(L"VideoWin_RorConfigX", L"x"));
    };
    const std::wstring lens = Group(L"Lens", Uint(L"Version", 70) + Points(L"EntranceOfThePupilCentre", {1}));
    struct Row {
        const char* what;
        std::wstring body;
        bool read;
        std::string told;
    };
    const Row rows[] = {
        {"two", version + Plane(3, frequency) + L"<other/>" + Plane(1), true, "3/50/0();1/0/0();"},
        {"none", version, true, ""},
        {"no version", Plane(1), false, ""},
        {"newer version", Uint(L"Version", 2) + Plane(1), false, ""},
        {"no number ends them", version + Plane(1) + Group(L"Plane", frequency) + Plane(2), true, "1/0/0();"},
        {"a newer plane has no number", version + Plane(1) + Group(L"Plane", Uint(L"Version", 2)) + Plane(2),
         true, "1/0/0();"},
        {"the last number is none", version + Plane(4294967295) + Plane(2), true, ""},
        {"the same twice",
         version + Plane(1, frequency + Area(1, Point(1, 2) + exposure)) + Plane(2) +
             Plane(1, Area(2, Point(3, 4) + Point(5, 6)) + speed(1)),
         true, "1/50/9(3,4 5,6)75%;2/0/0();"},
        {"the same without points",
         version + Plane(1, Area(1, Point(1, 2) + exposure)) +
             Plane(1, frequency + Group(L"MeasurementArea", Uint(L"Version", 1))),
         true, "1/50/9(1,2);"},
        {"the same with no points", version + Plane(1, Area(1, Point(1, 2))) + Plane(1, Area(0, L"")), true,
         "1/0/0();"},
        {"more points told than there are", version + Plane(1, Area(3, Point(1, 2) + exposure)), true,
         "1/0/9(1,2 0,0 0,0);"},
        {"fewer points told than there are",
         version + Plane(1, Area(1, Point(1, 2) + Point(3, 4) + exposure)), true, "1/0/0(1,2);"},
        {"newer area", version + Plane(1, Group(L"MeasurementArea", Uint(L"Version", 2)) + speed(1)), true,
         "1/0/0();"},
        {"exposure outside the area", version + Plane(1, Area(0, L"") + exposure), true, "1/0/0();"},
        {"newer choices stop what follows", version + Plane(1, ror(2) + lens + speed(1)), true, "1/0/0();"},
        {"any lens", version + Plane(1, ror(1) + lens + speed(1)), true, "1/0/0()75%;"},
        {"newer speed", version + Plane(1, speed(2)), true, "1/0/0();"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        hx::MLaserPlanes planes;
        EXPECT_EQ(ReadFrom(row.body, planes), row.read);
        EXPECT_EQ(Told(planes), row.told);
    }
}

TEST(LaserPlanes, AreFoundByTheirNumber) {
    hx::MLaserPlanes planes;
    planes.Planes.resize(3);
    planes.Planes[1].PlaneNumber = planes.Planes[2].PlaneNumber = 7;
    EXPECT_EQ(planes.GetPlane(7), &planes.Planes[1]);
    EXPECT_EQ(planes.GetPlane(0), nullptr);
}

TEST(LaserPlane, LacksNothingThatIsAbsentUnlessAPartIsNewer) {
    hx::MLaserPlane plane;
    EXPECT_TRUE(ReadFrom(L"", plane)) << "it stands in the element";
    hx::MInFilerTaggedXml reader(Group(L"Root", L""), L"Root");
    hx::MFilerTaggedPair filer(reader);
    EXPECT_FALSE(plane.ReadTagged(filer, L"R", plane));
    EXPECT_EQ(plane.PlaneNumber, -1);
    hx::MLaserPlane defaults;
    defaults.LaserOrigin.Y = 5;
    defaults.FrequencySelection = L"50%";
    EXPECT_FALSE(ReadFrom(Uint(L"PlaneNumber", 1) + Points(L"LaserOrigin", {2}) +
                              Group(L"FrequencyConfig", Uint(L"Version", 2)),
                          plane, defaults));
    EXPECT_TRUE(plane.PlaneNumber == 1 && plane.LaserOrigin.X == 2 && plane.LaserOrigin.Y == 5);
    EXPECT_EQ(plane.FrequencySelection, L"");
}

// Counts that no document backs: each of these would not end, or fill the memory, if somebody believed them.
TEST(LaserPlanes, AGreatCountCostsNothing) {
    const std::wstring count = Area(2'147'483'647, Point(1, 2) + Int(L"ExposureRange_us", 3));
    std::wstring planes = Uint(L"Version", 1);
    for (int64_t i = 0; i < 1000; ++i) planes += Plane(i, count);
    planes += planes;
    hx::MLaserPlanes read;
    EXPECT_TRUE(ReadFrom(planes, read));
    ASSERT_EQ(read.Planes.size(), 1000u);
    size_t points = 0;
    for (const hx::MLaserPlane& plane : read.Planes) points += plane.MeasurementArea.size();
    EXPECT_LE(points, hx::MLaserPlane::kMostPoints + 2 * 1000);
    EXPECT_TRUE(ReadFrom(Uint(L"Version", 1) + Plane(2000, count), read));
    EXPECT_EQ(read.GetPlane(2000)->MeasurementArea.size(), hx::MLaserPlane::kMostPoints);

    std::wstring many;
    for (uint32_t i = 0; i <= hx::MLaserPlane::kMostPoints; ++i) many += L"<Point/>";
    many += Int(L"ExposureRange_us", 3);
    hx::MLaserPlane plane;
    EXPECT_TRUE(ReadFrom(Area(2'147'483'647, many), plane));
    EXPECT_EQ(plane.MeasurementArea.size(), hx::MLaserPlane::kMostPoints + 1) << "all that are there";
    EXPECT_EQ(plane.ExposureRange_us, 3);

    const std::wstring buttons =
        Group(L"Buttons", Int(L"NumberOfButtons", 2'147'483'647) +
                              Group(L"Button", Int(L"ButtonID", 1) + Text(L"ButtonDisplayName", L"a") +
                                                   Text(L"ButtonColour", L"b")));
    hx::MCommonDeviceProperties properties;
    EXPECT_TRUE(ReadFrom<hx::MInFilerTaggedOptionalXml>(
        Group(L"CommonDeviceProperties", buttons + Group(L"ConfigurationList", L"")), properties));
    EXPECT_EQ(properties.Buttons.size(), 1u);
}

TEST(Transforms, NameTheirEntriesAsTheirVersionDoes) {
    struct Row {
        std::wstring version;
        const wchar_t* prefix;
        bool read;
        double value;
    };
    const Row rows[] = {{Int(L"Version", 1), L"", true, 7},  {Int(L"Version", 2), L"E", true, 7},
                        {Int(L"Version", 9), L"E", true, 7}, {Int(L"Version", -1), L"", true, 7},
                        {Int(L"Version", 2), L"", false, 0}, {L"", L"", false, 7},
                        {Int(L"Version", 1), L"E", false, 0}};
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.version.begin(), row.version.end()));
        std::wstring body = row.version;
        for (const wchar_t* entry : {L"00", L"01", L"02", L"03", L"10", L"11", L"12", L"13", L"20", L"21",
                                     L"22", L"23", L"30", L"31", L"32", L"33"}) {
            body += Float(row.prefix + std::wstring(entry), 7);
        }
        hx::Transform4x4 transform;
        EXPECT_EQ(ReadFrom(body, transform), row.read);
        EXPECT_EQ(transform.m[1], row.value);
        EXPECT_EQ(transform.m[15], row.read || row.value == 7 ? 7 : 1);
    }
    hx::Transform4x4 transform;
    transform.m[0] = 1.0099;
    EXPECT_TRUE(transform.HasRotation());
    transform.m[0] = 1.0101;
    EXPECT_FALSE(transform.HasRotation());
    transform.m[0] = 1;
    transform.m[1] = 0.0101;
    EXPECT_FALSE(transform.HasRotation());
}

}  // namespace
