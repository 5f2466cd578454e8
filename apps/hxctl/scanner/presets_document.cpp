#include "apps/hxctl/scanner/presets_document.h"

#include <limits>
#include <set>

#include "apps/hxctl/scanner/failed_call.h"
#include "core/errors/MException.h"
#include "core/filer/MFilerTaggedPair.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/filer/TaggedXml.h"
#include "core/xml/MXmlDocument.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using hx::MLaserProfileSettings;

constexpr std::wstring_view kElement = L"LaserProfileSettings";

// Of a profile that was not in the document.
constexpr uint32_t kNotThere = std::numeric_limits<uint32_t>::max();

// False if there is no further one.
bool ReadProfile(hx::MFilerTaggedPair& filer, size_t number, MLaserProfileSettings& profile) {
    profile.Version = kNotThere;
    if (profile.ReadTagged(filer, kElement, MLaserProfileSettings())) return true;
    if (profile.Version == kNotThere) return false;
    std::string reason = "profile " + std::to_string(number) + " of the document cannot be read";
    if (profile.Version > MLaserProfileSettings::kStreamVersion) {
        reason += ": its version is " + std::to_string(profile.Version);
    }
    throw FailedCall(reason);
}

}  // namespace

std::string PresetsDocument(const std::vector<MLaserProfileSettings>& profiles) {
    hx::MOutFilerTaggedXml writer(hx::kTaggedXmlRoot);
    hx::MFilerTaggedPair filer(writer);
    for (const MLaserProfileSettings& profile : profiles) {
        if (!profile.WriteTagged(filer, kElement)) {
            throw FailedCall("the profile \"" + hx::ToUtf8(profile.ProfileName) + "\" cannot be written");
        }
    }
    return hx::ToUtf8(writer.TakeText());
}

std::vector<MLaserProfileSettings> ReadPresetsDocument(std::wstring text) {
    hx::MXmlDocument document;
    if (!document.Parse(text))
        throw FailedCall("the document is not well-formed: " + hx::ToUtf8(document.GetError()));
    std::vector<MLaserProfileSettings> profiles;
    std::set<std::wstring> names;
    try {
        hx::MInFilerTaggedXml reader(std::move(text), hx::kTaggedXmlRoot);
        hx::MFilerTaggedPair filer(reader);
        for (MLaserProfileSettings profile; ReadProfile(filer, profiles.size() + 1, profile);) {
            if (!names.insert(profile.ProfileName).second) {
                throw FailedCall("two profiles of the document have the name \"" +
                                 hx::ToUtf8(profile.ProfileName) + "\"");
            }
            profiles.push_back(profile);
        }
    } catch (const hx::MException& exception) {
        throw FailedCall("the document cannot be read: " + hx::ToUtf8(hx::ErrorCodesText(exception)));
    }
    if (profiles.empty()) throw FailedCall("the document has no profile");
    return profiles;
}

}  // namespace hxctl
