// One laser plane of a scanner, as the device's properties tell it. Held by MLaserPlanes; on its thread.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/properties/forms.h"

namespace hx {

class MLaserPlane {
public:
    static const RecordType kType;
    // A document may count points that it does not tell; those are not made up beyond this number.
    static constexpr uint32_t kMostPoints = 65'536;

    MLaserPlane();

    // Reads group `element`, in which everything is optional: false if there is none, or if a part of it is
    // of a newer version; what stands in front of that part is kept then. What is missing is taken from
    // `defaults`, which may be the record itself.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const MLaserPlane& defaults);
    // The same from an element that was extracted as a document. Points that are counted and not told are
    // (0, 0); `spare_points` says how many of those there may be, and goes down by what it gave.
    bool ReadFragment(std::wstring fragment, const MLaserPlane& defaults, uint32_t& spare_points);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    int32_t PlaneNumber{};  // -1: none
    double PlaneFrequency{};
    double Resolution{};
    double StandardDeviation{};
    Point3D LaserOrigin;
    Point3D CameraPinhole;
    Transform4x4 PlaneToAutoJoint;
    std::vector<Point2D> MeasurementArea;  // its corners, in their order
    int16_t ExposureRange_us{};            // microseconds
    std::wstring VideoWin_RorConfigX;      // the choices for the field of view
    std::wstring VideoWin_RorConfigY;
    Point3D EntranceOfThePupilCentre;
    std::wstring FrequencySelection;  // as FrequencySelectionHelper names them

private:
    friend struct PlanePoints;

    uint32_t m_missing_points = 0;  // of the element read last: counted, and not told
};

}  // namespace hx
