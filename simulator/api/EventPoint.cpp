#include "simulator/api/EventPoint.h"

namespace hx::simulator {
namespace {

consteval const Operation& Op(std::wstring_view name) {
    return OperationNamed(L"IConnectionPoint", name);
}

}  // namespace

EventPoint::EventPoint(ComPtr<ConnectionPoint> point, std::shared_ptr<Line> line)
    : m_point(std::move(point)), m_gate(std::move(line), IID_IConnectionPoint) {}

HRESULT EventPoint::GetConnectionInterface(IID* iid) {
    return m_point->GetConnectionInterface(iid);
}

HRESULT EventPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    return m_point->GetConnectionPointContainer(container);
}

HRESULT EventPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (cookie) *cookie = 0;
    return m_gate.Perform(Op(L"Advise"), {Argument::Observer(sink)},
                          [&] { return m_point->Advise(sink, cookie); });
}

HRESULT EventPoint::Unadvise(DWORD cookie) {
    return m_gate.Perform(Op(L"Unadvise"), {cookie}, [&] { return m_point->Unadvise(cookie); });
}

HRESULT EventPoint::EnumConnections(IEnumConnections** connections) {
    return m_point->EnumConnections(connections);
}

}  // namespace hx::simulator
