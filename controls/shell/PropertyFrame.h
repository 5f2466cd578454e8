// The property page of the pages in a frame by itself, for containers that have none: there is one page only,
// and nothing to apply. Made for one showing; on the thread of the user interface.
#pragma once

#include "platform/ui/dialog.h"

namespace hx {

class PropertyFrame final : public ui::Dialog {
public:
    static constexpr uint32_t kTemplate = 201;
    static constexpr uint32_t kCaption = 200;  // a string resource

    // Returns when it was closed; false if it could not be shown.
    bool Run(ui::Window* owner);

private:
    bool OnInitDialog() override;
};

}  // namespace hx
