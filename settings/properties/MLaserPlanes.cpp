#include "settings/properties/MLaserPlanes.h"

#include <algorithm>
#include <unordered_map>

#include "core/records/FieldsOf.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MLaserPlanes"};
const StreamedClasses kClasses(kNames);

constexpr int32_t kNoNumber = -1;

FieldRef PlanesAt(void* record) {
    return ListRef{&static_cast<MLaserPlanes*>(record)->Planes, &VectorType<MLaserPlane>::kType};
}

bool ReadPlanes(const Field& field, void* record, const void*, MFilerTaggedPair& filer) {
    auto& planes = static_cast<MLaserPlanes*>(record)->Planes;
    std::unordered_map<int32_t, size_t> by_number;
    for (size_t i = 0; i < planes.size(); ++i) by_number.try_emplace(planes[i].PlaneNumber, i);
    // Of all planes together: a small document cannot ask for great memory.
    uint32_t spare_points = MLaserPlane::kMostPoints;
    std::wstring fragment;
    while (filer.ExtractGroup(field.child, fragment)) {
        MLaserPlane plane;
        uint32_t spare_after = spare_points;
        plane.ReadFragment(fragment, plane, spare_after);
        if (plane.PlaneNumber == kNoNumber) break;
        const auto [known, is_new] = by_number.try_emplace(plane.PlaneNumber, planes.size());
        if (is_new) {
            planes.push_back(std::move(plane));
            spare_points = spare_after;
        } else {
            MLaserPlane& old = planes[known->second];
            old.ReadFragment(std::move(fragment), old, spare_points);
        }
    }
    return true;
}

bool WritePlanes(const Field& field, const void* record, MFilerTaggedPair& filer) {
    return std::ranges::all_of(
        static_cast<const MLaserPlanes*>(record)->Planes,
        [&](const MLaserPlane& plane) { return plane.WriteTagged(filer, field.child); });
}

constexpr FieldOps kPlanesOps{L"MLaserPlane", 0, &PlanesAt, &ReadPlanes, &WritePlanes};
constexpr Field kFields[] = {{L"Plane", &kPlanesOps, {}, "one for each plane"}};

}  // namespace

constinit const RecordType MLaserPlanes::kType =
    RecordTypeOf<MLaserPlanes>(L"MLaserPlanes", {RecordVersion::kUint, 1}, kFields,
                               "The laser planes of a scanner, each by its number.");

bool MLaserPlanes::ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                              const MLaserPlanes& defaults) {
    return ReadElement(kType, this, &defaults, filer, element);
}

bool MLaserPlanes::WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const {
    return WriteElement(kType, this, filer, element);
}

const MLaserPlane* MLaserPlanes::GetPlane(int32_t number) const {
    const auto plane = std::ranges::find(Planes, number, &MLaserPlane::PlaneNumber);
    return plane == Planes.end() ? nullptr : &*plane;
}

}  // namespace hx
