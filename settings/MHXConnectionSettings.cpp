#include "settings/MHXConnectionSettings.h"

namespace hx {

bool MHXConnectionSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view tag,
                                       const MHXConnectionSettings& defaults) {
    if (!filer.BeginGroup(tag)) return false;
    const bool read = ReadImpTagged(filer, defaults);
    return filer.EndGroup() && read;
}

bool MHXConnectionSettings::WriteTagged(MFilerTaggedPair& filer, std::wstring_view tag) const {
    if (!filer.BeginGroup(tag)) return false;
    const bool written = WriteImpTagged(filer);
    return filer.EndGroup() && written;
}

bool MHXConnectionSettings::ReadImpTagged(MFilerTaggedPair& filer, const MHXConnectionSettings& defaults) {
    int32_t version = 0;
    filer.Read(L"Version", version, 0);
    if (version > kVersion) return false;
    const bool has_server = filer.Read(L"ServerIP", ServerIP, defaults.ServerIP);
    filer.Read(L"IsProxy", IsProxy, false);
    // The first versions knew no wireless link.
    if (version >= 2) filer.Read(L"WiFiConnection", WiFiConnection, false);
    return has_server;
}

bool MHXConnectionSettings::WriteImpTagged(MFilerTaggedPair& filer) const {
    const bool version = filer.Write(L"Version", kVersion);
    const bool server = filer.Write(L"ServerIP", ServerIP);
    const bool proxy = filer.Write(L"IsProxy", IsProxy);
    const bool wifi = filer.Write(L"WiFiConnection", WiFiConnection);
    return version && server && proxy && wifi;
}

}  // namespace hx
