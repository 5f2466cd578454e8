// The forms of element that the properties of drivers and devices share: points, dates, transforms. Each is
// read as a record is, by its owner, and on its thread. What is missing is taken from the defaults.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "core/records/ListType.h"
#include "core/records/RecordType.h"

namespace hx {

struct Point2D {
    static const RecordType kType;

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const Point2D& defaults);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    double X = 0;
    double Y = 0;
};

struct Point3D {
    static const RecordType kType;

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const Point3D& defaults);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    double X = 0;
    double Y = 0;
    double Z = 0;
};

// All zero: no date is known. The numbers are as the document has them, and need not make a day.
struct CalendarDate {
    static const RecordType kType;

    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const CalendarDate& defaults);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    uint16_t Year = 0;
    uint16_t Month = 0;
    uint16_t Day = 0;
};

// Row by row; the identity when new.
struct Transform4x4 {
    // A list of its 16 entries.
    static const ListType kEntries;

    // Without a version the entries are those of the first, and the read fails. If the upper left 3x3 is no
    // rotation, a warning is logged; that changes nothing else.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const Transform4x4& defaults);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    // Whether the rows of the 3x3 part are of length 1 and at right angles, as good as measured ones are.
    bool HasRotation() const;

    std::array<double, 16> m = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
};

}  // namespace hx
