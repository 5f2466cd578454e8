// The hardware settings of a scanner of the HX family, inside a device's measurement settings. Any one thread
// at a time.
#pragma once

#include <string_view>

#include "core/records/ReferenceCopy.h"
#include "settings/base/FlaggedFields.h"
#include "settings/base/SettingsObjectBase.h"

namespace hx {

class MHXMeasurementSettings final : public SettingsObjectBase {
public:
    static const RecordType kType;

    MHXMeasurementSettings();

    // Reads group `element`. The values are read straight into the record, each with its validity flag; one
    // that is missing is taken from `defaults` and makes the read fail. A newer version clears the flags and
    // changes no value. `defaults` is kept as the reference copy in any case.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                            const MHXMeasurementSettings& defaults);
    // What is not valid is written as the reference copy has it.
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    // Whether the last read found the element, and in it a version that it knows.
    bool VersionAccepted() const { return m_version_accepted; }
    // Whether the value of that index came from the last document; true in a new record. Raises "OutofRange"
    // for an index greater than 40.
    bool IsValid(uint32_t index) const;
    // Marks everything as valid or not.
    void SetAllValid(bool valid) { m_valid = valid ? ~ValidityFlags() : ValidityFlags(); }

    void DropReference() { m_reference.Drop(); }

    uint32_t ExposureRange_us{};    // microseconds
    bool WriteChangesOnly = false;  // writes only what is valid and differs from the reference copy

private:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MHXMeasurementSettings& defaults);
    bool WriteImpTagged(MFilerTaggedPair& filer) const;

    bool m_version_accepted = false;
    ValidityFlags m_valid = ~ValidityFlags();
    ReferenceCopy<MHXMeasurementSettings> m_reference;
};

}  // namespace hx
