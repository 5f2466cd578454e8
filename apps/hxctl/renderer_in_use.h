// The renderer that a command shows its windows with: the current one until the end of this.
#pragma once

#include <memory>

#include "platform/ui/renderer.h"

namespace hxctl {

class RendererInUse {
public:
    explicit RendererInUse(std::shared_ptr<hx::ui::IRenderer> renderer)
        : m_before(hx::ui::SetRenderer(std::move(renderer))) {}
    ~RendererInUse() { hx::ui::SetRenderer(m_before); }
    RendererInUse(const RendererInUse&) = delete;
    RendererInUse& operator=(const RendererInUse&) = delete;

private:
    const std::shared_ptr<hx::ui::IRenderer> m_before;
};

}  // namespace hxctl
