#include "simulator/api/Cable.h"

#include "hxapi/IHXApi.h"
#include "hxapi/IHXApiEvents.h"
#include "platform/com/boundary.h"

namespace hx::simulator {
namespace {

// The moment that a scanner needs to become ready once it is resumed.
constexpr uint32_t kResume_ms = 2;

constexpr ConnectionEvent kPlugged[] = {
    {HXNotConnected},
    {HXSuspended},
    {HXConnected, true, kResume_ms},
};
constexpr ConnectionEvent kUnplugged[] = {{HXConnected}, {HXNotConnected}};

void Tell(IDispatch& listener, int32_t state) {
    // A listener that fails is no matter of the others.
    AtBoundary([&] {
        VARIANTARG argument;
        VariantInit(&argument);
        argument.vt = VT_I4;
        argument.lVal = state;
        DISPPARAMS arguments{&argument, nullptr, 1, 0};
        Variant result;
        return listener.Invoke(DISPID_HXCONNECTIONSTATECHANGED, IID_NULL, 0, DISPATCH_METHOD, &arguments,
                               result.put(), nullptr, nullptr);
    });
}

}  // namespace

Cable::Cable(ComPtr<ConnectionPoint> listeners, std::shared_ptr<Scanner> scanner)
    : m_end(std::make_shared<End>()), m_events([end = m_end](const ConnectionEvent& event) {
          AtBoundary([&] {
              end->Tell(event);
              return S_OK;
          });
      }) {
    m_end->listeners = std::move(listeners);
    m_end->scanner = std::move(scanner);
}

int32_t Cable::State() const {
    const std::lock_guard guard(m_end->mutex);
    return m_end->state;
}

std::shared_ptr<Scanner> Cable::AtItsEnd() const {
    const std::lock_guard guard(m_end->mutex);
    return m_end->scanner;
}

HRESULT Cable::Replace(std::shared_ptr<Scanner> scanner) {
    // The old one goes without the lock: its thread may be asking for the state.
    const std::lock_guard guard(m_end->mutex);
    if (m_end->state != HXNotConnected) return E_UNEXPECTED;
    m_end->scanner.swap(scanner);
    return S_OK;
}

void Cable::SetState(int32_t state, bool tells) {
    const std::lock_guard guard(m_end->mutex);
    m_end->Set(state);
    if (tells) PostThatItIs(state);
}

void Cable::Connect() {
    Post(kPlugged);
}

void Cable::Disconnect() {
    Post(kUnplugged);
}

void Cable::HangUp() {
    const std::lock_guard guard(m_end->mutex);
    ++m_end->cuts;
    m_end->Set(HXNotConnected);
    PostThatItIs(HXNotConnected);
}

void Cable::PostThatItIs(int32_t state) {
    const ConnectionEvent event{state, false};
    m_events.Post({&event, 1});
}

void Cable::Post(std::span<const ConnectionEvent> events) {
    std::vector<ConnectionEvent> steps(events.begin(), events.end());
    {
        const std::lock_guard guard(m_end->mutex);
        for (ConnectionEvent& each : steps) each.cuts = m_end->cuts;
    }
    m_events.Post(steps);
}

void Cable::End::Set(int32_t new_state) {
    state = new_state;
    scanner->SetConnected(new_state == HXConnected);
}

void Cable::End::Tell(const ConnectionEvent& event) {
    if (event.arrives) {
        const std::lock_guard guard(mutex);
        if (event.cuts != cuts) return;
        Set(event.state);
    }
    calls.Log().Enter(L"events", L"Raise", L"[" + std::to_wstring(event.state) + L"]", S_OK);
    for (const ComPtr<IUnknown>& sink : listeners->Sinks()) {
        // Advised as the event interface, which is an IDispatch.
        simulator::Tell(static_cast<IDispatch&>(*sink), event.state);
    }
}

}  // namespace hx::simulator
