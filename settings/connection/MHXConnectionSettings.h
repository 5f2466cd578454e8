// How a scanner is reached. Held by the connection settings object; on its thread.
#pragma once

#include <string>
#include <string_view>

#include "core/records/RecordType.h"

namespace hx {

class MHXConnectionSettings final {
public:
    // The element in which the record travels.
    static constexpr std::wstring_view kElement = L"HXConnectionSettings";
    // Written into every record; a newer one is not read.
    static constexpr int32_t kVersion = 2;
    static const RecordType kType;

    MHXConnectionSettings();

    // Reads group `tag`. Absent or unreadable, ServerIP is taken from `defaults` and the read fails; IsProxy
    // becomes false, and so does WiFiConnection from version 2 on. Older versions leave WiFiConnection alone,
    // a newer version and a missing group everything.
    virtual bool ReadTagged(MFilerTaggedPair& filer, std::wstring_view tag,
                            const MHXConnectionSettings& defaults);
    virtual bool WriteTagged(MFilerTaggedPair& filer, std::wstring_view tag) const;

    std::wstring ServerIP;  // dotted decimal
    bool IsProxy{};
    bool WiFiConnection{};

private:
    bool ReadImpTagged(MFilerTaggedPair& filer, const MHXConnectionSettings& defaults);
    bool WriteImpTagged(MFilerTaggedPair& filer) const;
};

}  // namespace hx
