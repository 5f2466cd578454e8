// What containers and controls, which are components for dialogs, say to each other: the interfaces of
// embedding, and the properties of its surroundings that a control may ask its site's IDispatch for.
#pragma once

#include "platform/com/dispatch.h"
#include "platform/com/ole_in_place.h"
#include "platform/com/ole_object.h"

inline constexpr DISPID DISPID_AMBIENT_LOCALEID = -705;  // VT_I4, an LCID
inline constexpr DISPID DISPID_AMBIENT_USERMODE = -709;  // VT_BOOL, false while somebody designs the dialog
