// Where the settings file of a stage of the scan pipeline lies. Held by a device's measurement settings; any
// one thread at a time.
#pragma once

#include <string>
#include <string_view>

#include "core/records/Streamable.h"
#include "settings/base/SettingsObjectBase.h"

namespace hx {

class StageSettingsLocation final : public SettingsObjectBase,
                                    public Streamable<StageSettingsLocation, 1, StreamableBase, 0> {
public:
    static const RecordType kType;

    // Read straight into the fields; what is missing is taken from `defaults` and makes the read fail. A
    // newer version changes nothing.
    bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view element,
                    const StageSettingsLocation& defaults);
    bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view element) const;

    std::wstring FilePath;
    std::wstring FileName;
};

}  // namespace hx
