// How a failure on demand is written on the command line.
#pragma once

#include <string>

#include "platform/com/hresult.h"

namespace hxctl {

struct FaultText {
    std::string operation;
    HRESULT result;
    int times;  // -1: always
};

// "AcquireHandle=E_FAIL", "AcquireHandle=0x80004005:3", "StopTrackingDataRecording=5:*". Throws a WrongUsage
// for any other text.
FaultText ParseFault(const std::string& text);

}  // namespace hxctl
