// The laser planes of a scanner. Held by the scanner's properties; on their thread.
#pragma once

#include <vector>

#include "settings/properties/MLaserPlane.h"

namespace hx {

class MLaserPlanes {
public:
    static const RecordType kType;

    // Reads group `element`; false without a version that is known. A plane whose number is already in the
    // list gets what its element carries and keeps the rest; others are appended, also those that could not
    // be read as a whole. An element without a number ends the list. Planes that are in the list already
    // stay. Points that are counted and not told are made up for all planes together only as many as a single
    // one may get, so that a small document fills no memory.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const MLaserPlanes& defaults);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    // The first with that number; null if there is none.
    const MLaserPlane* GetPlane(int32_t number) const;

    std::vector<MLaserPlane> Planes;
};

}  // namespace hx
