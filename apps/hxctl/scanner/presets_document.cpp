#include "apps/hxctl/scanner/presets_document.h"

#include <set>

#include "apps/hxctl/scanner/failed_call.h"
#include "core/errors/MException.h"
#include "core/filer/MFilerTaggedPair.h"
#include "core/filer/MInFilerTaggedXml.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/filer/TaggedXml.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using hx::MLaserProfileSettings;

constexpr std::wstring_view kElement = L"LaserProfileSettings";

MLaserProfileSettings ReadProfile(std::wstring fragment, size_t number) {
    hx::MInFilerTaggedXml reader(std::move(fragment), hx::kTaggedXmlRoot);
    hx::MFilerTaggedPair filer(reader);
    MLaserProfileSettings profile;
    if (!profile.ReadTagged(filer, kElement, MLaserProfileSettings())) {
        throw FailedCall("profile " + std::to_string(number) + " of the document cannot be read" +
                         (profile.Version > MLaserProfileSettings::kStreamVersion
                              ? ": its version is " + std::to_string(profile.Version)
                              : std::string()));
    }
    return profile;
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
    std::vector<MLaserProfileSettings> profiles;
    std::set<std::wstring> names;
    try {
        hx::MInFilerTaggedXml reader(std::move(text), hx::kTaggedXmlRoot);
        hx::MFilerTaggedPair filer(reader);
        for (std::wstring fragment; filer.ExtractGroup(kElement, fragment);) {
            profiles.push_back(ReadProfile(std::move(fragment), profiles.size() + 1));
            const std::wstring& name = profiles.back().ProfileName;
            if (!names.insert(name).second) {
                throw FailedCall("two profiles of the document have the name \"" + hx::ToUtf8(name) + "\"");
            }
        }
    } catch (const hx::MException& exception) {
        throw FailedCall("the document cannot be read: " + hx::ToUtf8(hx::ErrorCodesText(exception)));
    }
    if (profiles.empty()) throw FailedCall("the document has no profile");
    return profiles;
}

}  // namespace hxctl
