#include "apps/hxctl/page/reset_watcher.h"

#include "platform/com/connection_point.h"

namespace hxctl {

void ResetWatcher::Watch(const hx::ComPtr<IUnknown>& component, const hx::ComPtr<IHXSimulator>& log) {
    const auto container = component.as<IConnectionPointContainer>();
    hx::ComPtr<IConnectionPoint> point;
    if (!container || FAILED(container->FindConnectionPoint(hx::uuid_of<IHXPreviewWatcher>(), point.put()))) {
        return;
    }
    DWORD cookie = 0;
    const auto watcher = hx::Make<ResetWatcher>(log);
    point->Advise(watcher.get(), &cookie);
}

HRESULT ResetWatcher::OnReset() {
    return m_log->LogCall(hx::Bstr(L"preview").get(), hx::Bstr(L"Reset").get(), nullptr);
}

}  // namespace hxctl
