// What the scan engine does with the scanned lines. Held by a device's measurement settings; any one thread
// at a time.
#pragma once

#include <string>
#include <string_view>

#include "core/records/ReferenceCopy.h"
#include "settings/base/SettingsObjectBase.h"
#include "settings/processing/MDualQuaternionInterpolatorSettings.h"
#include "settings/processing/MSpoilerSettings.h"

namespace hx {

class MScanEngineProcessingSettings final : public SettingsObjectBase {
public:
    static const RecordType kType;

    MScanEngineProcessingSettings();

    // Reads group `element` straight into the members, each that its version has. A missing version counts as
    // the newest and makes the read fail; a newer one changes nothing. `defaults` is kept as the reference
    // copy.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                            const MScanEngineProcessingSettings& defaults);
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    // Passed on to the members first.
    void SetStrict(bool strict) override;

    // The members keep no references.
    void DropReference() { m_reference.Drop(); }

    std::wstring ModuleName;  // the module of the engine
    MSpoilerSettings SpoilerFilter;
    MDualQuaternionInterpolatorSettings DualQuaternionInterpolator;

private:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MScanEngineProcessingSettings& defaults);

    ReferenceCopy<MScanEngineProcessingSettings> m_reference;
};

}  // namespace hx
