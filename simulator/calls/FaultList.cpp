#include "simulator/calls/FaultList.h"

#include <algorithm>

#include "hxapi/HXApiErrors.h"
#include "simulator/calls/TextAcross.h"

namespace hx::simulator {
namespace {

bool IsFailure(const Operation& operation, HRESULT result) {
    return operation.failure == FailureForm::kNumber ? result != 0 : FAILED(result);
}

}  // namespace

HRESULT FaultList::Inject(const HXSimulatorFault* wanted) {
    if (wanted == nullptr) return E_POINTER;
    Fault fault;
    fault.operation = FindOperation(TextOf(wanted->operation));
    if (fault.operation == nullptr) return HX_E_NOTFOUND;
    if (wanted->preset != nullptr && fault.operation->logged_as != kPresetPrefix) return E_INVALIDARG;
    fault.result = wanted->result;
    fault.hangs_up = wanted->hang_up != FALSE;
    fault.delay_ms = wanted->delay_ms;
    // A call that succeeds may be slow, or the last one before the cable goes.
    const bool does_something = IsFailure(*fault.operation, fault.result) ||
                                (fault.result == S_OK && (fault.hangs_up || fault.delay_ms != 0));
    if (!does_something) return E_INVALIDARG;
    fault.times = wanted->times;
    fault.after = std::max(wanted->after, 0);
    fault.chain_code = TextOf(wanted->chain_code);
    fault.text = TextOf(wanted->text);
    if (wanted->preset) fault.preset = TextOf(wanted->preset);
    if (fault.times == 0) return S_OK;
    const std::lock_guard guard(m_mutex);
    m_faults.push_back(std::move(fault));
    return S_OK;
}

void FaultList::Clear() {
    const std::lock_guard guard(m_mutex);
    m_faults.clear();
}

std::optional<Fault> FaultList::Take(const Operation& operation, std::wstring_view preset) {
    const std::lock_guard guard(m_mutex);
    const auto place = std::ranges::find_if(m_faults, [&](const Fault& each) {
        return each.operation == &operation && (!each.preset || *each.preset == preset);
    });
    if (place == m_faults.end()) return std::nullopt;
    if (place->after > 0) {
        --place->after;
        return std::nullopt;
    }
    Fault fault = *place;
    if (place->times > 0 && --place->times == 0) m_faults.erase(place);
    return fault;
}

}  // namespace hx::simulator
