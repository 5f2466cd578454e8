// The one function of the library with the screen's renderer, by which the platform's library finds it: the
// renderer's library exports it, LoadScreenRenderer calls it, once per process. On the thread of the user
// interface.
#pragma once

#include <memory>
#include <string>

#include "platform/ui/load_renderer.h"

namespace hx::ui {

// The library's file, beside that of the platform, and the name under which it exports the function.
inline constexpr char kScreenRendererLibrary[] = "libhxplatform_qt.so";
inline constexpr char kScreenRendererEntry[] = "HxMakeScreenRenderer";

// Sets `renderer`; leaves it null and says why in English in `reason` if there is no screen. Throws nothing.
using MakeScreenRendererFunction = void(const ScreenOptions& options, std::shared_ptr<IRenderer>& renderer,
                                        std::wstring& reason) noexcept;

}  // namespace hx::ui

extern "C" HX_PLATFORM_API void HxMakeScreenRenderer(const hx::ui::ScreenOptions& options,
                                                     std::shared_ptr<hx::ui::IRenderer>& renderer,
                                                     std::wstring& reason) noexcept;
