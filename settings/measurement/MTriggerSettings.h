// The trigger settings that a scanner once took over from its localiser, in measurement settings documents of
// that time. Read so that such documents load; nothing writes them any more. Any one thread at a time.
#pragma once

#include <string_view>

#include "core/records/RecordType.h"

namespace hx {

class MTriggerSettings {
public:
    static const RecordType kType;

    MTriggerSettings();

    // Reads group `element`, straight into the record. Every value is attempted; the result is true only if
    // all that the version has were there.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element, const MTriggerSettings& defaults);

    bool ActiveTriggerEdgeOrPolarity{};  // the active edge in version 1, then active high
    uint32_t MinTriggerAssertTime_us{};  // microseconds

private:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MTriggerSettings& defaults);
};

}  // namespace hx
