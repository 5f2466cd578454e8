#include "platform/ui/renderer.h"

#include <utility>

#include "platform/system/never_destroyed.h"

namespace hx::ui {
namespace {

// Not destroyed: a toolkit may be gone when the process's own objects are.
std::shared_ptr<IRenderer>& TheRenderer() {
    static NeverDestroyed<std::shared_ptr<IRenderer>> renderer;
    return *renderer;
}

}  // namespace

IRenderer* CurrentRenderer() {
    return TheRenderer().get();
}

std::shared_ptr<IRenderer> SetRenderer(std::shared_ptr<IRenderer> renderer) {
    return std::exchange(TheRenderer(), std::move(renderer));
}

}  // namespace hx::ui
