// hxctl exception: what a chain document, as components leave it in their error information, says to the
// user.

#include "apps/hxctl/command.h"
#include "apps/hxctl/json.h"
#include "core/errors/MErrorCom.h"
#include "core/locale/MLocalisationHelper.h"
#include "core/messages/MErrorFormatter.h"
#include "core/messages/MErrorFormatterResource.h"
#include "platform/com/implements.h"
#include "platform/module/this_module.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

using hx::MErrorFormatterMapped;

struct RuleName {
    uint32_t score;
    const char* name;
};

constexpr RuleName kRules[] = {
    {MErrorFormatterMapped::kOldestRecord, "oldest record"},
    {MErrorFormatterMapped::kTwoRecords, "two records"},
    {MErrorFormatterMapped::kNewerRecord, "newer record"},
    {hx::MErrorFormatterRemote::kRemoteMessage, "remote"},
    {MErrorFormatterMapped::kDefault, "default"},
    {0, "none"},
};

const char* NameOfRule(uint32_t score) {
    const auto* const rule = std::ranges::find(kRules, score, &RuleName::score);
    return rule != std::end(kRules) ? rule->name : "unknown";
}

// Stands for the other side of the call: it vouches for the error information that it leaves behind.
class FailedComponent final : public hx::Implements<FailedComponent, hx::SingleThreaded, ISupportErrorInfo> {
public:
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) override { return S_OK; }
};

// The exception that a caller makes of a failed call whose error information has this description.
hx::MException Received(std::wstring description) {
    const IID& failed_interface = hx::uuid_of<ISupportErrorInfo>();
    const auto component = hx::Make<FailedComponent>();
    hx::ComPtr<ICreateErrorInfo> information;
    HRESULT result = CreateErrorInfo(information.put());
    if (SUCCEEDED(result)) result = information->SetGUID(failed_interface);
    if (SUCCEEDED(result)) result = information->SetDescription(description.data());
    if (SUCCEEDED(result)) result = SetErrorInfo(0, information.as<IErrorInfo>().get());
    if (FAILED(result)) throw std::bad_alloc();
    return hx::MException(hx::MErrorCom(E_FAIL, component.as<IUnknown>().get(), failed_interface));
}

}  // namespace

Outcome RunException(const ExceptionRequest& request, bool json) {
    std::string reason;
    auto text = ReadTextFile(request.file, reason);
    if (!text) return Refused(reason);
    hx::MException sent;
    if (!hx::ReadChainDocument(*text, sent)) {
        return Refused(request.file + ": no document of an exception chain");
    }
    hx::SetThisModuleFileName(
        hx::FromUtf8((hx::ComponentFolder() / "HXScannerCtrls.so").native()).value_or(std::wstring()));
    hx::MLocalisationHelper localisation;
    if (!request.locale.empty()) {
        localisation.LoadSatelliteResources(hx::FromUtf8(request.locale).value_or(std::wstring()));
    }
    hx::MErrorFormatter::Get().AddRule(hx::MErrorFormatterResource::Get());
    const auto formatted = hx::MErrorFormatter::Get().Format(Received(std::move(*text)));
    if (request.chain) return {kDone, hx::ToUtf8(formatted.chain_document), {}};

    const std::string message = hx::ToUtf8(formatted.message);
    const std::string codes = hx::ToUtf8(hx::ErrorCodesText(sent));
    const std::string rule = NameOfRule(formatted.score);
    if (json) {
        const Json answer = {
            {"message", message}, {"codes", codes}, {"rule", rule}, {"score", formatted.score}};
        return {kDone, answer.dump() + "\n", {}};
    }
    return {kDone,
            message + "\nError codes:\n" + codes + "\nRule: " + rule + " (score " +
                std::to_string(formatted.score) + ")\n",
            {}};
}

}  // namespace hxctl
