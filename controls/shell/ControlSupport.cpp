#include "controls/shell/ControlSupport.h"

#include <bit>
#include <cstring>

#include "controls/messages/MessageLog.h"
#include "controls/shell/PropertyFrame.h"
#include "core/locale/MResourceLocale.h"
#include "hxapi/ICtrlsInitialiser.h"
#include "platform/com/boundary.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"
#include "platform/com/loader.h"
#include "platform/com/ole_control.h"

namespace hx {
namespace {

ComPtr<IUnknown> ApiOfHost() {
    CLSID clsid = CLSID_NULL;
    ComPtr<ICtrlsInitialiser> initialiser;
    ComPtr<IUnknown> api;
    if (FAILED(CLSIDFromProgID(kProgIdCtrlsInitialiser, &clsid)) ||
        FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, uuid_of<ICtrlsInitialiser>(),
                                initialiser.put_void())) ||
        FAILED(initialiser->GetHXApi(api.put()))) {
        return {};
    }
    return api;
}

// "Class.Method" of "Class.Method:Error".
std::wstring PlaceOf(const MException& exception) {
    if (exception.GetChain().empty()) return {};
    const std::wstring& code = exception.GetChain().back()->GetCode();
    return code.substr(0, code.rfind(L':'));
}

}  // namespace

void FollowLanguageOfHost(MLocalisationHelperApi& localisation) noexcept {
    AtBoundary([&] {
        if (const ComPtr<IUnknown> api = ApiOfHost()) localisation.SetLocaleFromApi(api.get());
        return S_OK;
    });
}

HRESULT LeaveErrorInformation(const MException& exception) noexcept {
    // Without memory for the words an older failure's must not pass for this one's.
    SetErrorInfo(0, nullptr);
    AtBoundary([&] {
        LeaveErrorInfo(PlaceOf(exception), ErrorCodesText(exception));
        return S_OK;
    });
    return E_INVALIDARG;
}

HRESULT ShowProperties(IOleObject& control, ui::Window* owner) {
    ComPtr<IOleClientSite> site;
    if (SUCCEEDED(control.GetClientSite(site.put()))) {
        const ComPtr<IOleControlSite> containers = site.as<IOleControlSite>();
        if (containers && containers->ShowPropertyFrame() == S_OK) return S_OK;
    }
    return PropertyFrame().Run(owner) ? S_OK : E_FAIL;
}

void WriteAnswer(bool may_close, BOOL* answer) noexcept {
    static_assert(std::endian::native == std::endian::little, "the lower half comes first");
    const VARIANT_BOOL half = may_close ? VARIANT_TRUE : VARIANT_FALSE;
    std::memcpy(answer, &half, sizeof half);
}

std::wstring TextOf(BSTR text) {
    return text ? std::wstring(text, SysStringLen(text)) : std::wstring();
}

}  // namespace hx
