// The simulator's presets among themselves: read without a call that the log would show or a fault could hit.
// Answered by this library's preset objects alone. Any thread.
#pragma once

#include "platform/com/unknown.h"
#include "settings/profile/MLaserProfileSettings.h"

HX_IID(IStoredPreset, "A7E3609C-42D1-4FB8-9B15-6C0D84F7231E")
struct IStoredPreset : IUnknown {
    // Both throw std::bad_alloc.
    virtual std::wstring StoredName() = 0;
    virtual hx::MLaserProfileSettings StoredProfile() = 0;
};
