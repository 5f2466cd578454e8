// Enters in the log of a simulator that a preview was reset, which the simulator does not see by itself.
#pragma once

#include "hxapi/IHXPreviewWatcher.h"
#include "hxapi/IHXSimulator.h"
#include "platform/com/implements.h"

namespace hxctl {

class ResetWatcher final : public hx::Implements<ResetWatcher, hx::FreeThreaded, IHXPreviewWatcher> {
public:
    explicit ResetWatcher(hx::ComPtr<IHXSimulator> log) : m_log(std::move(log)) {}

    // As long as the component lives, if it is one that tells of it.
    static void Watch(const hx::ComPtr<IUnknown>& component, const hx::ComPtr<IHXSimulator>& log);

    HRESULT STDMETHODCALLTYPE OnReset() override;

private:
    const hx::ComPtr<IHXSimulator> m_log;
};

}  // namespace hxctl
