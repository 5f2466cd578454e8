// How a failure on demand is written by people.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/com/hresult.h"

namespace hosting {

// "E_FAIL", "HX_E_NOTCONNECTED", "0x80004005", "5"; false for anything else.
bool ParseResult(std::string_view text, HRESULT& result);

struct FaultText {
    std::string operation;
    HRESULT result;
    int times;  // -1: always
};

// "AcquireHandle=E_FAIL", "AcquireHandle=0x80004005:3", "StopTrackingDataRecording=5:*"; nothing for any
// other text.
std::optional<FaultText> ParseFault(const std::string& text);

}  // namespace hosting
