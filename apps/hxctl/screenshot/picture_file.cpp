#include "apps/hxctl/screenshot/picture_file.h"

#include <filesystem>

#include "apps/hxctl/scanner/failed_call.h"
#include "platform/system/utf8.h"
#include "platform/ui/renderer.h"

namespace hxctl {

void SavePicture(hx::ui::Window& window, const std::string& file) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(file, error);
    const auto name = hx::FromUtf8(path.string());
    if (!error && !path.empty() && name && hx::ui::CurrentRenderer()->SavePicture(window, *name)) return;
    throw FailedCall("the picture cannot be written to \"" + file + "\"");
}

}  // namespace hxctl
