#include "preview/PreviewObject.h"

#include "hxapi/HXPreviewClasses.h"
#include "hxapi/IHXPreviewWatcher.h"
#include "platform/ui/hwnd.h"
#include "preview/ColorBlendKey.h"
#include "preview/PreviewWindow.h"

namespace hx::preview {
namespace {

constexpr ui::Size kFirstSize{320, 320};

constexpr DispatchMember kMembers[] = {
    DispatchMembersOf<IHXPreview>::Method<&IHXPreview::Reset>(DISPID_HXPREVIEW_RESET, L"Reset"),
};

}  // namespace

const ui::ControlClass PreviewObject::kControlClass{CLSID_HXPreview, L"Field-of-view preview",
                                                    OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE |
                                                        OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE |
                                                        OLEMISC_SETCLIENTSITEFIRST,
                                                    ui::ToHimetric(kFirstSize)};

const DispatchType PreviewObject::kDispatchType{L"IHXPreview", uuid_of<IHXPreview>(), kMembers};

PreviewObject::PreviewObject() : m_watchers(Make<ConnectionPoint>(*this, uuid_of<IHXPreviewWatcher>())) {}

PreviewObject::~PreviewObject() {
    m_watchers->Disconnect();
}

HRESULT PreviewObject::Reset() {
    return AtBoundary([&] {
        m_cycles->Clear();
        for (const ComPtr<IUnknown>& each : m_watchers->Sinks()) {
            static_cast<IHXPreviewWatcher&>(*each).OnReset();
        }
        return S_OK;
    });
}

HRESULT PreviewObject::OnTrackingAreas(const TrackingArea* areas, uint32_t area_count) {
    if (areas == nullptr && area_count != 0) return E_POINTER;
    return AtBoundary([&] {
        m_cycles->PutAreas(areas, area_count);
        return S_OK;
    });
}

HRESULT PreviewObject::OnTrackingCycle(const TrackingCycle* cycle) {
    if (cycle == nullptr || (cycle->points == nullptr && cycle->point_count != 0)) return E_POINTER;
    return AtBoundary([&] {
        m_cycles->PutCycle(*cycle);
        return S_OK;
    });
}

HRESULT PreviewObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    return EnumerateConnectionPoint(*m_watchers, points);
}

HRESULT PreviewObject::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
    if (point == nullptr) return E_POINTER;
    *point = nullptr;
    if (!(iid == uuid_of<IHXPreviewWatcher>())) return CONNECT_E_NOCONNECTION;
    return ComPtr<IConnectionPoint>(m_watchers).copy_to(point);
}

// A container that says nothing of its language gets the module's own.
std::unique_ptr<ui::Window> PreviewObject::MakeWindow() {
    return std::make_unique<PreviewWindow>(
        m_cycles, LoadTexts(Embedded().ContainerLanguage().value_or(std::string())), IsColorBlendWanted());
}

}  // namespace hx::preview
