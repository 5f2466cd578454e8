// The scanner API's events. Implemented by whoever listens, as a plain IDispatch; called by the API through
// IDispatch::Invoke, on any thread, while no call of the listener's waits for it. Advised and unadvised
// through the API's connection point for this interface.
#pragma once

#include "platform/com/dispatch.h"

// The connection state has changed. One argument, a VT_I4 that is an HXConnectionState; the result is a VT_I4
// that nobody reads. Number 3 of the interface; the others are not for pages.
inline constexpr DISPID DISPID_HXCONNECTIONSTATECHANGED = 3;

HX_IID(IHXApiEvents, "E1740B3D-8F26-4C95-B07A-5D29A8C613F4")
struct IHXApiEvents : IDispatch {};
