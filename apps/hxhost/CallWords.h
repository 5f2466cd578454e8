// A call to the simulated scanner in words that somebody understands who has never seen one.
#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>

#include "apps/hxhost/HostTexts.h"

namespace hxhost {

struct CallInWords {
    std::wstring text;
    bool is_question = false;  // nothing changes by it, and it was done
};
// Of an internal name, what a person calls the profile.
using NameOfProfile = std::function<std::wstring(const std::wstring& internal_name)>;
// `call` is an entry of IHXSimulator::TakeCalls. Without the last, profiles are called by their internal
// names.
CallInWords InWords(const nlohmann::json& call, const HostTexts& texts,
                    const NameOfProfile& name_of_profile = {});

// The connection state that the listeners were told; nothing for any other call.
std::optional<int32_t> StateTold(const nlohmann::json& call);
// Whether from now on the preview is shown what the scanner sees; nothing for any other call.
std::optional<bool> PreviewTold(const nlohmann::json& call);

// "Connected (1)"; the number alone for one that has no name.
std::wstring NameOfState(int32_t state, const HostTexts& texts);

}  // namespace hxhost
