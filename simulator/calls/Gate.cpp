#include "simulator/calls/Gate.h"

#include <algorithm>
#include <chrono>
#include <thread>

#include "core/errors/MException.h"
#include "core/filer/MOutFilerTaggedXml.h"
#include "core/messages/MMatchingRule.h"
#include "hxapi/HXSimulatorClasses.h"
#include "platform/com/comptr.h"
#include "simulator/calls/Texts.h"

namespace hx::simulator {
namespace {

// The document in which a chain of one record travels with the message for the operator.
std::wstring ChainWithMessage(const std::wstring& code, std::wstring message) {
    const MError error(code);
    const MException exception(error);
    MOutFilerTaggedXml writer(kChainRoot);
    MFilerTaggedPair filer(writer);
    const bool written =
        exception.Write(filer, kChainGroup) && MMatchingRule{{error}, std::move(message)}.Write(filer);
    return written ? writer.TakeText() : std::wstring();
}

std::wstring Description(HRESULT result, const Refusal& refusal) {
    std::wstring text = refusal.text;
    if (text.empty()) text = TextOfCode(refusal.chain_code);
    if (text.empty()) text = TextOfResult(result);
    return refusal.chain_code.empty() ? text : ChainWithMessage(refusal.chain_code, std::move(text));
}

ComPtr<IErrorInfo> MakeErrorInfo(REFIID iid, std::wstring description) {
    // A description ends at its first NUL.
    std::ranges::replace(description, L'\0', L'\xFFFD');
    std::wstring source = kProgIdHXSimulator;
    ComPtr<ICreateErrorInfo> information;
    HRESULT result = CreateErrorInfo(information.put());
    if (SUCCEEDED(result)) result = information->SetGUID(iid);
    if (SUCCEEDED(result)) result = information->SetDescription(description.data());
    if (SUCCEEDED(result)) result = information->SetSource(source.data());
    return SUCCEEDED(result) ? information.as<IErrorInfo>() : nullptr;
}

std::wstring JsonOf(std::initializer_list<Argument> arguments) {
    std::wstring json = L"[";
    for (const Argument& each : arguments) {
        if (json.size() > 1) json += L',';
        each.AppendTo(json);
    }
    return json += L']';
}

}  // namespace

void Gate::FailOnDemand(const Operation& operation, std::wstring_view preset) const {
    const std::optional<Fault> fault = m_calls.Faults().Take(operation, preset);
    if (!fault) return;
    // The time that the scanner takes: it is none of the waits of the program under test.
    std::this_thread::sleep_for(std::chrono::milliseconds(fault->delay_ms));
    if (fault->hangs_up) m_line->HangUp();
    if (fault->result != S_OK) throw Refusal{fault->result, fault->text, fault->chain_code};
}

void Gate::Finish(const Operation& operation, std::initializer_list<Argument> arguments, HRESULT result,
                  const Refusal& refusal, const CallExtras& extras) const noexcept {
    AtBoundary([&] {
        std::wstring on(operation.logged_as);
        if (operation.logged_as == kPresetPrefix) on += extras.preset;
        m_calls.Log().Enter(on, operation.name, JsonOf(arguments), result);
        return S_OK;
    });
    const bool has_information = operation.failure == FailureForm::kErrorInfo;
    if (SUCCEEDED(result) || (!has_information && !extras.detail)) return;
    ComPtr<IErrorInfo> information;
    AtBoundary([&] {
        information = MakeErrorInfo(m_iid, Description(result, refusal));
        return S_OK;
    });
    // Without memory an older failure's information must not pass for this one's.
    if (has_information) SetErrorInfo(0, information.get());
    if (extras.detail) *extras.detail = information.detach();
}

}  // namespace hx::simulator
