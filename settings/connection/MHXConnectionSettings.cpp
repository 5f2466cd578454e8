#include "settings/connection/MHXConnectionSettings.h"

#include "core/records/FieldsOf.h"
#include "core/records/InGroup.h"
#include "core/records/RecordFields.h"
#include "core/records/Streamable.h"

namespace hx {
namespace {

constexpr const char* kNames[] = {"MHXConnectionSettings"};
const StreamedClasses kClasses(kNames);

using F = FieldsOf<MHXConnectionSettings>;

// The server's address as the scanner controller leaves the factory. The flags may be absent, and are then
// off. The first versions knew no wireless link.
constexpr Field kFields[] = {
    F::Value<&MHXConnectionSettings::ServerIP>(L"ServerIP", L"192.168.178.10", "dotted decimal"),
    F::Value<&MHXConnectionSettings::IsProxy>(L"IsProxy", true).Optional(),
    F::Value<&MHXConnectionSettings::WiFiConnection>(L"WiFiConnection", false)
        .In(VersionSet::From(2))
        .Optional(),
};

}  // namespace

constinit const RecordType MHXConnectionSettings::kType = RecordTypeOf<MHXConnectionSettings>(
    L"MHXConnectionSettings", {RecordVersion::kInt, kVersion}, kFields, "How a scanner is reached.");

MHXConnectionSettings::MHXConnectionSettings() {
    SetDefaults(*this);
}

bool MHXConnectionSettings::ReadTagged(MFilerTaggedPair& filer, std::wstring_view tag,
                                       const MHXConnectionSettings& defaults) {
    return InGroup(filer, tag, [&] { return ReadImpTagged(filer, defaults); });
}

bool MHXConnectionSettings::WriteTagged(MFilerTaggedPair& filer, std::wstring_view tag) const {
    return InGroup(filer, tag, [&] { return WriteImpTagged(filer); });
}

bool MHXConnectionSettings::ReadImpTagged(MFilerTaggedPair& filer, const MHXConnectionSettings& defaults) {
    // A record without a version is as old as records get.
    int32_t version = 0;
    ReadVersion(filer, version, 0);
    if (version > kVersion) return false;
    // Whatever the defaults say, a flag that is absent is off.
    MHXConnectionSettings otherwise;
    otherwise.ServerIP = defaults.ServerIP;
    otherwise.IsProxy = false;
    return ReadFields(*this, otherwise, filer, version, ReadRule::kAll);
}

bool MHXConnectionSettings::WriteImpTagged(MFilerTaggedPair& filer) const {
    return WriteVersion(filer, kType.version) && WriteFields(*this, filer);
}

}  // namespace hx
