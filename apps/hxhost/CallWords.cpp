#include "apps/hxhost/CallWords.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <nlohmann/json.hpp>

#include "apps/hxhost/ids.h"
#include "platform/system/utf8.h"

namespace hxhost {
namespace {

using Json = nlohmann::json;

struct WordsRow {
    std::string_view operation;
    uint32_t text;
};
constexpr WordsRow kWords[] = {
    {"Raise", IDS_LOG_RAISE},
    {"AcquireHandle", IDS_LOG_ACQUIRE},
    {"ReleaseHandle", IDS_LOG_RELEASE},
    {"CloseHandle", IDS_LOG_CLOSE},
    {"InitialiseScanner", IDS_LOG_INITIALISE},
    {"DisableScanner", IDS_LOG_DISABLE},
    {"ActivateDynamicSettings", IDS_LOG_ACTIVATE},
    {"ActivateGlobalScanningSettings", IDS_LOG_GLOBAL},
    {"SetExposureTime", IDS_LOG_EXPOSURE},
    {"SetLaserPower", IDS_LOG_LASER_POWER},
    {"SetAnalogImagerGain", IDS_LOG_GAIN},
    {"SetDLPCEnabled", IDS_LOG_AUTOMATIC},
    {"Set3DEdgeFilterEnabled", IDS_LOG_EDGE_FILTER_3D},
    {"SetSignalThreshold", IDS_LOG_THRESHOLD},
    {"SetEdgeFilterValue", IDS_LOG_EDGE_FILTER},
    {"SetMaxInclination", IDS_LOG_INCLINATION},
    {"SetRFEnabled", IDS_LOG_REFLECTION_FILTER},
    {"DetectExposureTime", IDS_LOG_DETECT_EXPOSURE},
    {"DetectLaserPower", IDS_LOG_DETECT_LASER_POWER},
    {"SaveDynamicSettingsPresets", IDS_LOG_PROFILES_STORED},
    {"StartTrackingDataRecording", IDS_LOG_RECORDING},
    {"StopTrackingDataRecording", IDS_LOG_RECORDING_ENDS},
    {"lost", IDS_LOG_LOST},
};

// The beginnings of what only asks, or makes and names objects without a word to the scanner.
constexpr std::string_view kQuestions[] = {"Get",    "Is",       "Enumerate", "Advise",
                                           "Create", "Unadvise", "SetName"};

std::wstring Wide(const std::string& text) {
    return hx::FromUtf8(text).value_or(std::wstring());
}

const Json& ArgumentsOf(const Json& call) {
    static const Json none = Json::array();
    const auto found = call.find("args");
    return found != call.end() && found->is_array() ? *found : none;
}

// A text without its quotation marks, a switch in words, numbers as they are; several parted by commas.
std::wstring ValuesOf(const Json& arguments, const HostTexts& texts) {
    std::wstring values;
    for (const Json& argument : arguments) {
        if (!values.empty()) values += L", ";
        if (argument.is_string()) {
            values += Wide(argument.get<std::string>());
        } else if (argument.is_boolean()) {
            values += texts.Text(argument.get<bool>() ? IDS_ON : IDS_OFF);
        } else {
            values += Wide(argument.dump());
        }
    }
    return values;
}

std::wstring Literal(const Json& call) {
    std::string text = call.value("on", "") + "." + call.value("op", "") + "(";
    const char* separator = "";
    for (const Json& argument : ArgumentsOf(call)) {
        text += separator + argument.dump();
        separator = ", ";
    }
    return Wide(text + ")");
}

bool HasFailed(const Json& call) {
    const auto result = call.find("result");
    return result != call.end() && result->is_number_integer() && *result != 0;
}

// Every line reads as what the scanner is told to do, so that it may be followed by how it failed.
std::wstring Words(const Json& call, const HostTexts& texts, const NameOfProfile& name_of_profile) {
    if (const auto state = StateTold(call)) {
        return texts.Text(IDS_LOG_RAISE, {{L"value", NameOfState(*state, texts)}});
    }
    if (const auto shown = PreviewTold(call)) {
        if (HasFailed(call)) return texts.Text(*shown ? IDS_LOG_SHOW : IDS_LOG_SHOW_NO_MORE);
        return texts.Text(*shown ? IDS_LOG_PREVIEW_ON : IDS_LOG_PREVIEW_OFF);
    }
    const auto* const row = std::ranges::find(kWords, call.value("op", ""), &WordsRow::operation);
    if (row == std::end(kWords)) return Literal(call);
    const std::wstring values = ValuesOf(ArgumentsOf(call), texts);
    const bool is_profile = row->text == IDS_LOG_ACTIVATE && name_of_profile;
    return texts.Text(row->text, {{L"value", is_profile ? name_of_profile(values) : values}});
}

}  // namespace

std::optional<int32_t> StateTold(const Json& call) {
    const Json& arguments = ArgumentsOf(call);
    const bool told = call.value("on", "") == "events" && call.value("op", "") == "Raise" &&
                      arguments.size() == 1 && arguments[0].is_number_integer();
    return told ? std::optional(arguments[0].get<int32_t>()) : std::nullopt;
}

std::optional<bool> PreviewTold(const Json& call) {
    const Json& arguments = ArgumentsOf(call);
    if (call.value("op", "") != "RegisterTrackingCycleObserver" || arguments.empty()) return std::nullopt;
    return !arguments[0].is_null();
}

std::wstring NameOfState(int32_t state, const HostTexts& texts) {
    constexpr std::array kNames{IDS_DISCONNECTED, IDS_CONNECTED, IDS_SUSPENDED};
    if (state < 0 || state >= static_cast<int32_t>(kNames.size())) return std::to_wstring(state);
    return texts.Text(kNames[static_cast<size_t>(state)]);
}

CallInWords InWords(const Json& call, const HostTexts& texts, const NameOfProfile& name_of_profile) {
    const std::wstring words = Words(call, texts, name_of_profile);
    if (HasFailed(call)) {
        const std::wstring reason = NameOf(call.at("result").get<HRESULT>());
        return {texts.Text(IDS_FAILED, {{L"call", words}, {L"reason", reason}}), false};
    }
    const std::string operation = call.value("op", "");
    const bool asks = std::ranges::any_of(
        kQuestions, [&](std::string_view beginning) { return operation.starts_with(beginning); });
    return {words, asks};
}

}  // namespace hxhost
