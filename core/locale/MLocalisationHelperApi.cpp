#include "core/locale/MLocalisationHelperApi.h"

#include "core/errors/MErrorCom.h"
#include "core/errors/MErrorLocation.h"
#include "hxapi/IHXLocale.h"

namespace hx {
namespace {

MErrorLocation& Location() {
    static MErrorLocation location("MLocalisationHelperApi", "GetLocaleFromApi");
    return location;
}

[[noreturn]] void Refuse(int32_t line, std::wstring_view error_name, HRESULT result) {
    Location().Set(nullptr, line);
    MError error = MakeError(Location(), error_name);
    if (FAILED(result)) error.AddParameter(L"hresult", static_cast<uint32_t>(result), true);
    Throw(Location(), error);
}

}  // namespace

void MLocalisationHelperApi::SetLocaleFromApi(IUnknown* api) {
    LoadSatelliteResources(GetLocaleFromApi(api));
}

std::wstring MLocalisationHelperApi::GetLocaleFromApi(IUnknown* api) {
    if (api == nullptr) Refuse(21, L"NoApiPointer", S_OK);
    ComPtr<IHXLocale> locale;
    HRESULT result = api->QueryInterface(uuid_of<IHXLocale>(), locale.put_void());
    if (FAILED(result)) Refuse(28, L"QueryInterface", result);
    Bstr name;
    result = locale->GetLocale(name.put());
    if (FAILED(result)) Refuse(34, L"GetLocale", result);
    return std::wstring(name.view());
}

}  // namespace hx
