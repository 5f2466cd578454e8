#include "controls/widgets/CScannerPreviewCtrl.h"

#include "core/errors/MErrorCom.h"
#include "core/errors/MErrorLocation.h"
#include "hxapi/HXPreviewClasses.h"

namespace hx {
namespace {

[[noreturn]] void Fail(const MErrorLocation& location, std::wstring_view error_name, HRESULT result,
                       std::wstring_view description = {}) {
    const MException cause{MErrorCom(result)};
    MError error = MakeCascadeError(location, error_name);
    if (!description.empty()) error.AddParameter(L"description", description);
    ThrowWithCause(location, cause, error);
}

// What a component says of its failure.
struct Excuse : EXCEPINFO {
    Excuse() : EXCEPINFO{} {}
    Excuse(const Excuse&) = delete;
    Excuse& operator=(const Excuse&) = delete;
    ~Excuse() {
        for (const BSTR text : {bstrSource, bstrDescription, bstrHelpFile}) SysFreeString(text);
    }
    std::wstring_view Description() const {
        return {bstrDescription != nullptr ? bstrDescription : L"", SysStringLen(bstrDescription)};
    }
};

}  // namespace

void CScannerPreviewCtrl::Reset() {
    static MErrorLocation location("CScannerPreviewCtrl", "Reset");
    location.Set(this, 24);
    const ComPtr<IUnknown> component = Component();
    if (!component) Fail(location, L"Component", E_POINTER);
    ComPtr<IDispatch> dispatch;
    const HRESULT found = component->QueryInterface(uuid_of<IDispatch>(), dispatch.put_void());
    if (FAILED(found)) Fail(location, L"QueryInterface", found);
    DISPPARAMS none{};
    Excuse excuse;
    const HRESULT done = dispatch->Invoke(DISPID_HXPREVIEW_RESET, IID_NULL, 0, DISPATCH_METHOD, &none,
                                          nullptr, &excuse, nullptr);
    if (FAILED(done)) Fail(location, L"Invoke", done, excuse.Description());
}

}  // namespace hx
