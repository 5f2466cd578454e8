// The behaviour of dialogs is tested without a screen.
#include "platform/ui/headless/headless_renderer.h"
#include "tests/platform/ui/behaviour_fixture.h"

namespace hx_test {

std::shared_ptr<hx::ui::IRenderer> MakeTestRenderer() {
    return hx::ui::HeadlessRenderer::Make();
}

}  // namespace hx_test
