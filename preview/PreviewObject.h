// The field-of-view preview as a component: a control for a container, and an observer for the scanner. The
// scanner calls on a thread of its own and may be the one that drops the last reference; everybody else calls
// on the thread of the user interface.
#pragma once

#include <memory>

#include "hxapi/ITrackingCycleObserver.h"
#include "platform/com/connection_point.h"
#include "platform/ui/control_object.h"
#include "preview/IHXPreview.h"
#include "preview/NewestCycles.h"

namespace hx::preview {

class PreviewObject final
    : public ui::DispatchControlObject<PreviewObject, FreeThreaded, IHXPreview, IDispatch,
                                       ITrackingCycleObserver, IConnectionPointContainer> {
public:
    static const ui::ControlClass kControlClass;
    static const DispatchType kDispatchType;

    PreviewObject();
    ~PreviewObject() override;

    HRESULT STDMETHODCALLTYPE Reset() override;

    HRESULT STDMETHODCALLTYPE OnTrackingAreas(const TrackingArea* areas, uint32_t area_count) override;
    HRESULT STDMETHODCALLTYPE OnTrackingCycle(const TrackingCycle* cycle) override;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

private:
    std::unique_ptr<ui::Window> MakeWindow() override;

    // The window's too, which may be there for longer.
    const std::shared_ptr<NewestCycles> m_cycles = std::make_shared<NewestCycles>();
    const ComPtr<ConnectionPoint> m_watchers;
};

}  // namespace hx::preview
