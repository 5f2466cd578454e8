// Pages of hosts without a screen.
#include "platform/ui/headless/headless_renderer.h"
#include "tests/controls/shell/hosted_page.h"

std::shared_ptr<hx::ui::IRenderer> hosted::TestRenderer() {
    return hx::ui::HeadlessRenderer::Make();
}
