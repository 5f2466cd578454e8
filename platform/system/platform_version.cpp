#include "platform/system/platform_version.h"

namespace hx {

std::wstring PlatformVersion() {
    return L"" HX_PLATFORM_VERSION;
}

}  // namespace hx
