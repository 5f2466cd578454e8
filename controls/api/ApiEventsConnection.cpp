#include "controls/api/ApiEventsConnection.h"

#include <utility>

#include "hxapi/IHXApiEvents.h"
#include "platform/com/connection_point.h"
#include "platform/com/fatal_error.h"

namespace hx {
namespace {

ComPtr<IConnectionPoint> EventsOf(IUnknown* source) {
    ComPtr<IConnectionPoint> point;
    if (const auto container = ComPtr<IUnknown>(source).as<IConnectionPointContainer>()) {
        container->FindConnectionPoint(uuid_of<IHXApiEvents>(), point.put());
    }
    return point;
}

}  // namespace

void ApiEventsConnection::Advise(IUnknown* source, IUnknown* sink) {
    if (m_cookie != kNotAdvised) throw FatalComError{E_FAIL};
    const ComPtr<IConnectionPoint> point = EventsOf(source);
    DWORD cookie = 0;
    if (point && SUCCEEDED(point->Advise(sink, &cookie))) m_cookie = cookie;
}

std::optional<int32_t> ApiEventsConnection::Follow(IHXApi& api, IUnknown* sink) {
    Advise(&api, sink);
    m_following = std::make_shared<const bool>(true);
    const std::weak_ptr<const bool> following = m_following;
    int32_t state = HXNotConnected;
    ComPtr<IErrorInfo> detail;
    if (FAILED(api.GetConnectionState(&state, detail.put())) || following.expired()) return std::nullopt;
    return state;
}

void ApiEventsConnection::Unadvise(IUnknown* source) {
    m_following.reset();
    const DWORD cookie = std::exchange(m_cookie, kNotAdvised);
    if (cookie == kNotAdvised) return;
    if (const ComPtr<IConnectionPoint> point = EventsOf(source)) point->Unadvise(cookie);
}

}  // namespace hx
