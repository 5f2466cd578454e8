// What a page derives from to be told of connection states: it gives the listener that the session advises on
// the scanner API, and describes the events that are listened to.
//     class Page : public MessageWindow, public cHXApiEventsSinkSimple<Page> { ... };
// T::Handle() is the page's message window; its messages WM_HX_CONNECTION_STATE go to the session.
#pragma once

#include "controls/api/ApiEventsSink.h"

namespace hx {

template <class T>
class cHXApiEventsSinkSimple {
public:
    // How the event of that number is called; E_FAIL, and `event` unchanged, for any other event or
    // interface.
    static HRESULT GetFuncInfoFromId(REFIID iid, DISPID number, LCID, ApiEvent& event) {
        const ApiEvent* const found = FindApiEvent(iid, number);
        if (found == nullptr) return E_FAIL;
        event = *found;
        return S_OK;
    }

    // States that were posted and not dispatched are dropped.
    void ForgetEvents() { DropWindowMessages(static_cast<T*>(this)->Handle(), WM_HX_CONNECTION_STATE); }

    // A new listener for the page's window. Throws std::bad_alloc.
    ComPtr<IUnknown> MakeEventsSink() { return Make<ApiEventsSink>(static_cast<T*>(this)->Handle()); }

protected:
    cHXApiEventsSinkSimple() = default;
    ~cHXApiEventsSinkSimple() = default;
};

}  // namespace hx
