// Marks an object as scanner measurement settings. No methods of its own: the state travels through
// IXmlBstrSerializable. Called directly or through IDispatch, on the thread that made the object.
#pragma once

#include "hxapi/ITriggerSource.h"

HX_IID(ICoMHXMeasSettings, "D2758B1E-46C9-4F3A-8E10-B79C5A2FD086")
struct ICoMHXMeasSettings : ITriggerSource {};
