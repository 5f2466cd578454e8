#include "apps/hxctl/record_account.h"

#include <algorithm>

#include "apps/hxctl/field_account.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

std::string ReasonOf(const RecordReading& reading, const std::string& bad_version,
                     const FieldTeller& teller) {
    if (!bad_version.empty()) return bad_version;
    if (!reading.error_codes.empty()) return hx::ToUtf8(reading.error_codes);
    const std::vector<std::string>& missing = teller.missing;
    if (missing.empty()) {
        if (!teller.bad_version.empty()) return teller.bad_version;
        return "its version, or the types or the order of its elements, are not those that are read";
    }
    std::string reason = "missing: ";
    constexpr size_t kNamed = 5;
    for (size_t i = 0; i < std::min(missing.size(), kNamed); ++i) reason += (i == 0 ? "" : ", ") + missing[i];
    if (missing.size() > kNamed) reason += " and " + std::to_string(missing.size() - kNamed) + " more";
    return reason;
}

}  // namespace

Json RecordAccount(const hx::RecordType& type, const RecordReading& reading, const DocumentElement& element) {
    FieldTeller teller;
    Json fields = teller.FieldsOf(type, reading.record.get(), &element, {});
    const auto version = VersionOf(type, element);
    Json account = {{"class", hx::ToUtf8(type.name)}, {"purpose", type.purpose}};
    account["version"] = version ? Json(*version) : Json();
    if (type.version.word != hx::RecordVersion::kNone) account["newest"] = type.version.current;
    account["read"] = reading.read;
    if (!reading.read) account["reason"] = ReasonOf(reading, BadVersion(type, version), teller);
    if (!reading.error_codes.empty()) account["errorCodes"] = hx::ToUtf8(reading.error_codes);
    account["fields"] = std::move(fields);
    account["unknown"] = teller.unknown;
    return account;
}

}  // namespace hxctl
