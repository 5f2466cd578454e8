#include "core/errors/MDiagnosticsAtl.h"

#include "core/log/MFlowScope.h"
#include "platform/com/boundary.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"
#include "platform/com/loader.h"

namespace hx {
namespace {

std::wstring RegisteredProgId(REFCLSID component_class) {
    LPOLESTR text = nullptr;
    if (FAILED(ProgIDFromCLSID(component_class, &text))) return {};
    std::wstring prog_id;
    const HRESULT copied = AtBoundary([&] {
        prog_id = text;
        return S_OK;
    });
    CoTaskMemFree(text);
    return SUCCEEDED(copied) ? prog_id : std::wstring();
}

constexpr const char* kMethodName = "MDiagnosticsAtl::MExceptionAsErrorinfo";
constexpr const char* kSourceName = "MDiagnosticsAtl";

// The newest record's message, and the codes of all.
void Log(const MException& exception) noexcept {
    if (!ModuleLogger().Writes(MLogSeverity::kError)) return;
    AtBoundary([&] {
        const MException::Chain& chain = exception.GetChain();
        std::wstring message = chain.empty() ? std::wstring() : chain.back()->GetMessage();
        message.append(L"\nError codes:\n").append(ErrorCodesText(exception));
        ModuleLogger().Log({MLogSeverity::kError, kSourceName, 23, kMethodName, message});
        return S_OK;
    });
}

}  // namespace

HRESULT MDiagnosticsAtl::MExceptionAsErrorinfo(REFCLSID component_class, const MException& exception,
                                               REFIID iid, HRESULT result) noexcept {
    const MFlowScope scope(kMethodName, kSourceName, 18);
    Log(exception);
    const HRESULT set = AtBoundary([&] {
        std::wstring chain = ChainDocument(exception);
        std::wstring source = RegisteredProgId(component_class);
        ComPtr<ICreateErrorInfo> information;
        HRESULT step = CreateErrorInfo(information.put());
        if (SUCCEEDED(step)) step = information->SetGUID(iid);
        if (SUCCEEDED(step)) step = information->SetDescription(chain.data());
        if (SUCCEEDED(step)) step = information->SetSource(source.data());
        if (SUCCEEDED(step)) step = SetErrorInfo(0, information.as<IErrorInfo>().get());
        return step;
    });
    // An older failure's information must not pass for this one's.
    if (FAILED(set)) SetErrorInfo(0, nullptr);
    return result;
}

}  // namespace hx
