#include "apps/hosting/ComponentLibraries.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "platform/com/bstr.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"
#include "platform/com/self_registration.h"
#include "platform/registry/store_location.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hosting {
namespace {

constexpr const char* kLibraries[] = {"HXScannerCtrls.so", "HXPreview.so", "HXSimulator.so"};

struct StoreFault {
    hx::RegistryResult result;
    const wchar_t* before_file;
    const wchar_t* behind_file;
};
constexpr StoreFault kStoreFaults[] = {
    {hx::RegistryResult::kAccessDenied, L"this user has no right to the registry's store ",
     L", an administrator has"},
    {hx::RegistryResult::kDiskFull, L"the disk has no room for the registry's store ", L""},
    {hx::RegistryResult::kBusy, L"other processes held the registry's store ", L" for too long"},
    {hx::RegistryResult::kDamaged, L"the registry's store ", L" is damaged or of a newer version"},
    {hx::RegistryResult::kIoFailed, L"the system could not read or write the registry's store ", L""},
};

std::wstring ResultText(HRESULT result) {
    char hex[12];
    std::snprintf(hex, sizeof hex, "0x%08X", static_cast<unsigned>(result));
    const std::string name(hx::HresultName(result));
    return *hx::FromUtf8(name.empty() ? hex : name + " (" + hex + ")");
}

std::wstring ErrorInformation() {
    hx::ComPtr<IErrorInfo> information;
    hx::Bstr text;
    if (GetErrorInfo(0, information.put()) == S_OK) information->GetDescription(text.put());
    return std::wstring(text.view());
}

// What of the store a library met; a step of its registration may not say so in its result.
hx::RegistryResult StoreResultOf(HRESULT result) {
    constexpr uint32_t kSystemErrors = 0x80070000;
    const auto code = static_cast<uint32_t>(result);
    if ((code & 0xFFFF0000) == kSystemErrors) return static_cast<hx::RegistryResult>(code & 0xFFFF);
    if (result != SELFREG_E_TYPELIB && result != SELFREG_E_CLASS) return hx::RegistryResult::kDone;
    return hx::Registry()->OpenKey(hx::RegistryRoot::kClassesRoot, L"", hx::RegistryAccess::kReadWrite);
}

// A library of this installation that lies there cannot be told by a path, and is never found by one.
bool IsInFolderThatIsNoUtf8(const std::wstring& library) {
    if (hx::FromUtf8(hx::ComponentFolder().native())) return false;
    const std::vector<std::wstring> own = ComponentLibraries();
    return std::ranges::find(own, library) != own.end();
}

RegistrationAnswer Answer(const std::wstring& library, HRESULT result) {
    if (SUCCEEDED(result)) return {result, {}};
    std::wstring reason = library + L": " + ResultText(result);
    if (result == CO_E_DLLNOTFOUND) {
        reason += IsInFolderThatIsNoUtf8(library)
                      ? L": the library lies where only a path that is no UTF-8 leads"
                      : L": there is no such file";
    }
    for (const std::wstring& more : {ErrorInformation(), StoreFaultText(StoreResultOf(result))}) {
        if (!more.empty()) reason += L": " + more;
    }
    return {result, reason};
}

}  // namespace

std::vector<std::wstring> ComponentLibraries() {
    const std::filesystem::path folder = hx::ComponentFolder();
    std::vector<std::wstring> libraries;
    for (const char* name : kLibraries) libraries.push_back(hx::FromDamagedUtf8((folder / name).native()));
    return libraries;
}

RegistrationAnswer RunRegistration(hx::RegistrationAction action, const std::wstring& library) {
    return Answer(library, action == hx::RegistrationAction::kRegister
                               ? hx::RegisterComponentLibrary(library)
                               : hx::UnregisterComponentLibrary(library));
}

RegistrationAnswer CheckLibrary(const std::wstring& library) {
    return Answer(library, hx::CheckComponentLibrary(library));
}

std::wstring StoreFaultText(hx::RegistryResult result) {
    const auto* const fault = std::ranges::find(kStoreFaults, result, &StoreFault::result);
    if (fault == std::end(kStoreFaults)) return {};
    return fault->before_file + hx::FromDamagedUtf8(hx::LocateStores().machine.native()) + fault->behind_file;
}

}  // namespace hosting
