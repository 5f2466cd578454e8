// What the controls of all pages have in common and what does not depend on the page. Called by ConfigCtrl,
// on the thread of the user interface.
#pragma once

#include <string>

#include "core/errors/MException.h"
#include "core/locale/MLocalisationHelperApi.h"
#include "platform/com/bstr.h"
#include "platform/com/ole_object.h"
#include "platform/ui/window.h"

namespace hx {

// Puts the language of the host's scanner API into use, if the host's installation leads to one. Whatever of
// it fails leaves the language as it is.
void FollowLanguageOfHost(MLocalisationHelperApi& localisation) noexcept;

// The exception becomes the thread's error information: its source is where it was raised, "Class.Method",
// its description the error codes. Gives the result code for it.
HRESULT LeaveErrorInformation(const MException& exception) noexcept;

// Shows the properties of `control`: in the container's frame for property pages if it has one, else in a
// frame of our own, in front of `owner`, which may be null. Returns when that was closed.
HRESULT ShowProperties(IOleObject& control, ui::Window* owner);

inline constexpr uint32_t kStringProperties = 201;

// Whether the host may close, as a boolean of 16 bits: the upper half of the caller's variable stays.
void WriteAnswer(bool may_close, BOOL* answer) noexcept;

// Null is no text.
std::wstring TextOf(BSTR text);

}  // namespace hx
