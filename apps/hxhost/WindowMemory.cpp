#include "apps/hxhost/WindowMemory.h"

#include <algorithm>

#include "platform/registry/registry.h"
#include "platform/ui/renderer.h"

namespace hxhost {
namespace {

using hx::ui::Rectangle;

constexpr hx::RegistryRoot kRoot = hx::RegistryRoot::kCurrentUser;
constexpr wchar_t kKey[] = L"Software\\Orvel\\HXHost";

struct EdgeRow {
    const wchar_t* name;
    int32_t Rectangle::*edge;
};
constexpr EdgeRow kEdges[] = {
    {L"WindowLeft", &Rectangle::left},
    {L"WindowTop", &Rectangle::top},
    {L"WindowRight", &Rectangle::right},
    {L"WindowBottom", &Rectangle::bottom},
};

struct ChoiceRow {
    const wchar_t* name;
    std::wstring WindowMemory::*choice;
};
constexpr ChoiceRow kChoices[] = {
    {L"Model", &WindowMemory::model},
    {L"Surface", &WindowMemory::surface},
};

// No desktop is wider, so differences of edges never overflow.
constexpr int32_t kFarthest = 100000;

std::optional<Rectangle> LoadWindow(hx::IRegistry& registry) {
    Rectangle window;
    for (const EdgeRow& row : kEdges) {
        hx::RegistryValue value;
        if (registry.QueryValue(kRoot, kKey, row.name, value) != hx::RegistryResult::kDone)
            return std::nullopt;
        const auto* const number = std::get_if<uint32_t>(&value);
        if (!number) return std::nullopt;
        const auto edge = static_cast<int32_t>(*number);
        if (edge < -kFarthest || edge > kFarthest) return std::nullopt;
        window.*row.edge = edge;
    }
    return window.IsEmpty() ? std::nullopt : std::optional(window);
}

// A part of that length, inside; at the beginning if it is too long.
int32_t Inside(int32_t start, int32_t length, int32_t first, int32_t last) {
    return std::max(std::min(start, last - length), first);
}

}  // namespace

WindowMemory LoadMemory() {
    const auto registry = hx::Registry();
    WindowMemory memory;
    memory.window = LoadWindow(*registry);
    for (const ChoiceRow& row : kChoices) {
        hx::RegistryValue value;
        if (registry->QueryValue(kRoot, kKey, row.name, value) != hx::RegistryResult::kDone) continue;
        if (const auto* const text = std::get_if<std::wstring>(&value)) memory.*row.choice = *text;
    }
    return memory;
}

bool SaveMemory(const WindowMemory& memory) {
    const auto registry = hx::Registry();
    bool done = registry->CreateKey(kRoot, kKey) == hx::RegistryResult::kDone;
    const auto set = [&](const wchar_t* name, const hx::RegistryValue& value) {
        done = done && registry->SetValue(kRoot, kKey, name, value) == hx::RegistryResult::kDone;
    };
    for (const ChoiceRow& row : kChoices) set(row.name, memory.*row.choice);
    if (!memory.window) return done;
    for (const EdgeRow& row : kEdges) set(row.name, static_cast<uint32_t>((*memory.window).*row.edge));
    return done;
}

Rectangle FittedToScreen(const std::optional<Rectangle>& window, const hx::ui::Size& smallest) {
    constexpr int32_t kCaptionHeight = 32;
    const Rectangle wanted = window.value_or(Rectangle{0, 0, smallest.width, smallest.height});
    Rectangle area = hx::ui::CurrentRenderer()->WorkArea(wanted);
    area.top += kCaptionHeight;
    const int32_t width = std::min(std::max(wanted.Width(), smallest.width), area.Width());
    const int32_t height = std::min(std::max(wanted.Height(), smallest.height), area.Height());
    const int32_t left = window ? wanted.left : area.left + (area.Width() - width) / 2;
    const int32_t top = window ? wanted.top : area.top + (area.Height() - height) / 2;
    const Rectangle size{0, 0, width, height};
    return size.Moved(Inside(left, width, area.left, area.right), Inside(top, height, area.top, area.bottom));
}

}  // namespace hxhost
