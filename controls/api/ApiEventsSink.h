// The listener for events of the scanner API: an object of its own that knows a window and nothing else, so
// that an event that is on its way outlives the page. Events arrive on any thread; all that happens is that a
// message is posted to the window.
#pragma once

#include "hxapi/IHXApiEvents.h"
#include "platform/com/class_table.h"
#include "platform/com/typeinfo.h"
#include "platform/ui/message_window.h"

namespace hx {

// The message for a page's window: the connection state has changed. `first` is the new state.
inline constexpr uint32_t WM_HX_CONNECTION_STATE = 0x857;

// The state that such a message tells of.
inline int32_t ConnectionStateOf(const WindowMessage& message) {
    return static_cast<int32_t>(message.first);
}

// How an event is called.
struct ApiEvent {
    DISPID number = 0;
    CALLCONV calling_convention = CC_STDCALL;
    VARTYPE result = VT_EMPTY;
    UINT parameter_count = 0;
    VARTYPE parameter = VT_EMPTY;
};

// The events that are listened to; null for others, and for those of other interfaces.
const ApiEvent* FindApiEvent(REFIID iid, DISPID number);

class ApiEventsSink final : public Implements<ApiEventsSink, FreeThreaded, IHXApiEvents, IDispatch> {
public:
    explicit ApiEventsSink(WindowHandle window) : m_window(window) {}

    // The members have no names and no description.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    // S_OK for an event that is not listened to, whatever its arguments. The argument is converted as
    // VariantChangeType does; DISP_E_BADPARAMCOUNT, DISP_E_NONAMEDARGS, or what the conversion says.
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags,
                                     DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                     UINT* bad_argument) override;

private:
    const WindowHandle m_window;
    const ModuleLock m_lock;
};

}  // namespace hx
