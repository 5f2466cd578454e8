// Marks an object as scanner connection settings. No methods: the state travels through IXmlBstrSerializable.
#pragma once

#include "platform/com/unknown.h"

HX_IID(ICoMHXConnSettings, "B1F3D8A4-0C6E-4F2B-8A57-2E9C64D07B13")
struct ICoMHXConnSettings : IUnknown {};
