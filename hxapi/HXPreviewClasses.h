// The class of the field-of-view preview, a component of its own: a control that is activated in place. Its
// object is an ITrackingCycleObserver too, which the scanner API calls on any thread, and an IDispatch.
#pragma once

#include "platform/com/dispatch.h"
#include "platform/com/guid.h"

inline constexpr CLSID CLSID_HXPreview = hx::MakeGuid("A41C7E52-0D93-4F68-9B27-5EC813F06AD4");
inline constexpr wchar_t kProgIdHXPreview[] = L"Orvel.HXPreview.FieldOfView.1";

// Its method without arguments and result that drops what is shown, until the next areas or cycle arrive.
inline constexpr DISPID DISPID_HXPREVIEW_RESET = 22;
