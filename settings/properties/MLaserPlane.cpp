#include "settings/properties/MLaserPlane.h"

#include <algorithm>

#include "core/filer/MInFilerTaggedOptionalXml.h"
#include "core/filer/TaggedXml.h"
#include "core/records/InGroup.h"
#include "core/records/Streamable.h"
#include "settings/properties/TransformField.h"

namespace hx {

constexpr std::wstring_view kNumberOfPoints = L"NumberOfPoints";
constexpr std::wstring_view kPoint = L"Point";

// The corners of the measurement area: their number, then each in an element of its own. A plane that is read
// once more keeps its corners if the element has no number, and gets the element's otherwise.
struct PlanePoints {
    static FieldRef At(void* record) {
        return ListRef{&static_cast<MLaserPlane*>(record)->MeasurementArea, &VectorType<Point2D>::kType};
    }

    static bool Read(const Field& field, void* record, const void*, MFilerTaggedPair& filer) {
        auto& plane = *static_cast<MLaserPlane*>(record);
        plane.m_missing_points = 0;
        int32_t number = 0;
        const bool read = filer.Read(kNumberOfPoints, number, -1);
        if (number < 0) return read;
        const auto count = static_cast<uint32_t>(number);
        auto& points = plane.MeasurementArea;
        points.clear();
        // Behind the first that is not there nobody looks for another, so that a great number costs nothing.
        while (points.size() < count) {
            Point2D point;
            bool found = false;
            InGroup(filer, field.child, [&] {
                found = filer.Found();
                return found && ReadFields(point, point, filer, 0, ReadRule::kUntilFailure);
            });
            if (!found) break;
            points.push_back(point);
        }
        const auto told = static_cast<uint32_t>(points.size());
        plane.m_missing_points = std::max(std::min(count, MLaserPlane::kMostPoints), told) - told;
        return read;
    }

    static bool Write(const Field& field, const void* record, MFilerTaggedPair& filer) {
        const auto& points = static_cast<const MLaserPlane*>(record)->MeasurementArea;
        return filer.Write(kNumberOfPoints, static_cast<int32_t>(points.size())) &&
               std::ranges::all_of(
                   points, [&](const Point2D& point) { return point.WriteTagged(filer, field.child); });
    }

    static constexpr FieldOps kOps{L"Point2D", 0, &At, &Read, &Write, kNumberOfPoints};
};

namespace {

constexpr const char* kNames[] = {"MLaserPlane"};
const StreamedClasses kClasses(kNames);

using Plane = MLaserPlane;
using F = FieldsOf<Plane>;

constexpr RecordVersion kVersion1{RecordVersion::kUint, 1};

// An element of the plane without a class of its own.
constexpr RecordType Part(std::wstring_view name, std::span<const Field> fields, std::string_view purpose) {
    return {name, kVersion1, fields, purpose, nullptr, nullptr, nullptr};
}

constexpr Field kAreaFields[] = {
    {kPoint, &PlanePoints::kOps, {}, "as many as \"NumberOfPoints\" in front of them tells"},
    F::Value<&Plane::ExposureRange_us>(L"ExposureRange_us", 0, "us"),
};
constexpr RecordType kArea =
    Part(L"MeasurementArea", kAreaFields, "Where the plane measures; the exposure has its place here, too.");

constexpr Field kRorConfigFields[] = {
    F::Value<&Plane::VideoWin_RorConfigX>(L"VideoWin_RorConfigX", L"", "choices for the width"),
    F::Value<&Plane::VideoWin_RorConfigY>(L"VideoWin_RorConfigY", L"", "choices for the height"),
};
constexpr RecordType kRorConfig =
    Part(L"VideoWin_RorConfig", kRorConfigFields, "The choices for the field of view.");

constexpr Field kLensFields[] = {
    F::Record<&Plane::EntranceOfThePupilCentre>(L"EntranceOfThePupilCentre"),
};
// The lens tells a version, and any will do.
bool ReadLens(void* record, MFilerTaggedPair& filer, std::wstring_view element, const void* defaults) {
    return InGroup(filer, element, [&] {
        uint32_t version = 0;
        return ReadVersion(filer, version, 0u) &&
               ReadFields(kLensFields, record, defaults, filer, version, ReadRule::kUntilFailure);
    });
}
extern const RecordType kLens;
bool WriteLens(const void* record, MFilerTaggedPair& filer, std::wstring_view element) {
    return WriteElement(kLens, record, filer, element);
}
constexpr RecordType kLens{L"Lens",   kVersion1,  kLensFields, "The lens; any version is read.",
                           &ReadLens, &WriteLens, nullptr};

constexpr Field kFrequencyFields[] = {
    F::Value<&Plane::FrequencySelection>(L"FrequencySelection", L"", "100%, 75%, 50% or 25%"),
};
constexpr RecordType kFrequency = Part(L"FrequencyConfig", kFrequencyFields, "The measuring speed.");

constexpr Field kFields[] = {
    F::Value<&Plane::PlaneNumber, uint32_t>(L"PlaneNumber", -1, "4294967295: none"),
    F::Value<&Plane::PlaneFrequency>(L"PlaneFrequency", 0.0, "Hz"),
    F::Value<&Plane::Resolution>(L"Resolution", 0.0, "mm"),
    F::Value<&Plane::StandardDeviation>(L"StandardDeviation", 0.0, "mm"),
    F::Record<&Plane::LaserOrigin>(L"LaserOrigin"),
    F::Record<&Plane::CameraPinhole>(L"CameraPinhole"),
    TransformField<Plane, &Plane::PlaneToAutoJoint>(L"PlaneToAutoJoint"),
    F::Element<kArea>(L"MeasurementArea"),
    F::Element<kRorConfig>(L"VideoWin_RorConfig"),
    F::Element<kLens>(L"Lens"),
    F::Element<kFrequency>(L"FrequencyConfig"),
};

}  // namespace

constinit const RecordType MLaserPlane::kType = RecordTypeOf<MLaserPlane>(
    L"MLaserPlane", kVersion1, kFields, "One laser plane of a scanner. Each of its children may be absent.");

MLaserPlane::MLaserPlane() {
    SetDefaults(*this);
}

bool MLaserPlane::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                             const MLaserPlane& defaults) {
    std::wstring fragment;
    uint32_t spare_points = kMostPoints;
    return filer.ExtractGroup(element, fragment) && ReadFragment(std::move(fragment), defaults, spare_points);
}

bool MLaserPlane::ReadFragment(std::wstring fragment, const MLaserPlane& defaults, uint32_t& spare_points) {
    MInFilerTaggedOptionalXml reader(std::move(fragment), kTaggedXmlRoot);
    MFilerTaggedPair filer(reader);
    m_missing_points = 0;
    uint32_t version = 0;
    const bool read = ReadVersion(filer, version, 0u, kType.version.current) &&
                      ReadFields(*this, defaults, filer, version, ReadRule::kUntilFailure);
    const uint32_t spare = std::min(m_missing_points, spare_points);
    spare_points -= spare;
    MeasurementArea.resize(MeasurementArea.size() + spare);
    return read;
}

bool MLaserPlane::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

}  // namespace hx
