// FullControlObject: a control that is called by name, with all that containers of whole dialogs expect
// beside its window: verbs for their menus, property pages, a stream to store it in, news of the
// surroundings, and a connection point for its events. It has no events and stores nothing but a version.
//     class Page final : public hx::ui::FullControlObject<Page, hx::SingleThreaded, IPage, IDispatch> {
//     public:
//         static const hx::ui::FullControlClass kControlClass;
//         static const hx::DispatchType kDispatchType;
//     private:
//         std::unique_ptr<hx::ui::Window> MakeWindow() override;
//         HRESULT OnVerb(LONG verb, HWND parent) override;
//     };
// On the thread of the user interface, as control_object.h has it.
#pragma once

#include <algorithm>
#include <span>

#include "platform/com/connection_point.h"
#include "platform/com/ole_verbs.h"
#include "platform/com/persist.h"
#include "platform/com/property_page.h"
#include "platform/com/version_stamp.h"
#include "platform/ui/control_object.h"

namespace hx::ui {

// Beside those of showing and hiding: OLEIVERB_PROPERTIES, or a number of the class's own, above 0.
struct ControlVerb {
    LONG number;
    const wchar_t* name;  // VerbName may have another one
    DWORD flags = 0;      // of a menu's entry
    DWORD attributes = OLEVERBATTRIB_ONCONTAINERMENU;
};

// What is listed lives as long as the library.
struct FullControlClass : ControlClass {
    uint32_t version;  // that it is stored with, 0x00010000 for 1.0
    std::span<const ControlVerb> verbs;
    std::span<const CLSID> property_pages;
    IID events;
};

// The class's own interface may have methods that are called as one of these, as Save.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"

template <class Self, class Base>
class FullControlMethods : public Base {
public:
    // IOleObject
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* site, LONG index, HWND parent,
                                     const RECT* at) override {
        if (!IsOwn(verb)) return Base::DoVerb(verb, message, site, index, parent, at);
        return AtBoundary([&] { return OnVerb(verb, parent); });
    }
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) override {
        if (!verbs) return E_POINTER;
        *verbs = nullptr;
        return AtBoundary([&] {
            std::vector<Verb> all;
            for (const ControlVerb& verb : Self::kControlClass.verbs) {
                all.push_back({verb.number, VerbName(verb), verb.flags, verb.attributes});
            }
            return EnumerateVerbs(std::move(all), verbs);
        });
    }

    // IOleControl. Keys are for the control's window alone, and there are no events to be frozen.
    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) override {
        if (!info) return E_POINTER;
        *info = {info->cb, nullptr, 0, 0};
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID property) override {
        return AtBoundary([&] {
            OnAmbientChange(property);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) override { return S_OK; }

    // IPersistStreamInit
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* clsid) override { return this->GetUserClassID(clsid); }
    HRESULT STDMETHODCALLTYPE IsDirty() override { return m_dirty ? S_OK : S_FALSE; }
    HRESULT STDMETHODCALLTYPE Load(IStream* stream) override {
        const HRESULT read = ReadVersionStamp(stream, Self::kControlClass.version);
        if (SUCCEEDED(read)) m_dirty = false;
        return read;
    }
    HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clear_dirty) override {
        const HRESULT written = WriteVersionStamp(stream, Self::kControlClass.version);
        if (SUCCEEDED(written) && clear_dirty) m_dirty = false;
        return written;
    }
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) override {
        if (!size) return E_POINTER;
        size->QuadPart = kVersionStampBytes;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE InitNew() override {
        m_dirty = true;
        return S_OK;
    }

    // ISpecifyPropertyPages
    HRESULT STDMETHODCALLTYPE GetPages(CAUUID* pages) override {
        if (!pages) return E_POINTER;
        *pages = {};
        const std::span<const CLSID> all = Self::kControlClass.property_pages;
        if (all.empty()) return S_OK;
        pages->pElems = static_cast<GUID*>(CoTaskMemAlloc(all.size_bytes()));
        if (!pages->pElems) return E_OUTOFMEMORY;
        pages->cElems = static_cast<ULONG>(all.size());
        std::copy(all.begin(), all.end(), pages->pElems);
        return S_OK;
    }

    // IConnectionPointContainer
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override {
        return EnumerateConnectionPoint(*m_events, points);
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
        if (!point) return E_POINTER;
        *point = nullptr;
        if (!(iid == Self::kControlClass.events)) return CONNECT_E_NOCONNECTION;
        return ComPtr<IConnectionPoint>(m_events.get()).copy_to(point);
    }

protected:
    FullControlMethods() : m_events(Make<ConnectionPoint>(*this, Self::kControlClass.events)) {}
    ~FullControlMethods() override { m_events->Disconnect(); }

    // One of the class's verbs; `parent` is a window of the container's, or null.
    virtual HRESULT OnVerb(LONG, HWND) { return E_NOTIMPL; }
    // For people, in the language of the moment.
    virtual std::wstring VerbName(const ControlVerb& verb) { return verb.name; }
    // DISPID_AMBIENT_..., or DISPID_UNKNOWN for several.
    virtual void OnAmbientChange(DISPID) {}

    bool IsInUserMode() const { return this->Embedded().IsInUserMode(); }
    // Something that the container may want to store it for has changed.
    void SetDirty() { m_dirty = true; }

private:
    static bool IsOwn(LONG verb) {
        return (verb > 0 || verb == OLEIVERB_PROPERTIES) &&
               std::ranges::find(Self::kControlClass.verbs, verb, &ControlVerb::number) !=
                   Self::kControlClass.verbs.end();
    }

    const ComPtr<ConnectionPoint> m_events;
    bool m_dirty = true;  // a new one has never been stored
};

#pragma GCC diagnostic pop

template <class Self, class Threading, class First, class... Others>
using FullControlObject = FullControlMethods<
    Self, DispatchControlObject<Self, Threading, First, Others..., IOleControl, IPersist, IPersistStreamInit,
                                ISpecifyPropertyPages, IConnectionPointContainer>>;

}  // namespace hx::ui
