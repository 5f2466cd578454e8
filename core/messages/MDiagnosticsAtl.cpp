#include "core/messages/MDiagnosticsAtl.h"

#include <algorithm>

#include "core/log/MFlowScope.h"
#include "core/messages/MErrorFormatter.h"
#include "platform/com/boundary.h"
#include "platform/com/comptr.h"
#include "platform/com/errorinfo.h"
#include "platform/com/loader.h"

namespace hx {
namespace {

constexpr char kMethod[] = "MDiagnosticsAtl::MExceptionAsErrorinfo";
constexpr char kSource[] = "MDiagnosticsAtl";

// An exception whose message cannot be had is told of without one: it must not get lost.
MErrorFormatter::Formatted Format(const MException& exception) {
    try {
        return MErrorFormatter::Get().Format(exception);
    } catch (const MException&) {
        return {std::wstring(MErrorFormatter::kNoDescription), ErrorCodesText(exception),
                ChainDocument(exception)};
    }
}

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

}  // namespace

HRESULT MDiagnosticsAtl::MExceptionAsErrorinfo(REFCLSID component_class, const MException& exception,
                                               REFIID iid, HRESULT result) noexcept {
    const MFlowScope scope(kMethod, kSource, 18);
    const HRESULT set = AtBoundary([&] {
        MErrorFormatter::Formatted formatted = Format(exception);
        // A description ends at its first NUL.
        std::ranges::replace(formatted.chain_document, L'\0', L'\xFFFD');
        const std::wstring entry = formatted.message + L"\nError codes:\n" + formatted.error_codes;
        ModuleLogger().Log({MLogSeverity::kError, kSource, 23, kMethod, entry});
        std::wstring source = RegisteredProgId(component_class);
        ComPtr<ICreateErrorInfo> information;
        HRESULT step = CreateErrorInfo(information.put());
        if (SUCCEEDED(step)) step = information->SetGUID(iid);
        if (SUCCEEDED(step)) step = information->SetDescription(formatted.chain_document.data());
        if (SUCCEEDED(step)) step = information->SetSource(source.data());
        if (SUCCEEDED(step)) step = SetErrorInfo(0, information.as<IErrorInfo>().get());
        return step;
    });
    // An older failure's information must not pass for this one's.
    if (FAILED(set)) SetErrorInfo(0, nullptr);
    return result;
}

}  // namespace hx
