#include "platform/ui/window.h"

#include <algorithm>
#include <mutex>
#include <thread>
#include <unordered_map>

#include "platform/system/never_destroyed.h"
#include "platform/ui/dialog.h"
#include "platform/ui/renderer.h"

namespace hx::ui {
namespace {

struct Entry {
    Window* window;
    std::thread::id thread;
};

struct Table {
    std::mutex mutex;
    std::unordered_map<WindowHandle, Entry> entries;
};

Table& AllWindows() {
    static NeverDestroyed<Table> table;
    return *table;
}

}  // namespace

Window::Window() {
    Table& table = AllWindows();
    const std::lock_guard lock(table.mutex);
    table.entries.emplace(Handle(), Entry{this, std::this_thread::get_id()});
}

Window::~Window() {
    Remove();
    Table& table = AllWindows();
    const std::lock_guard lock(table.mutex);
    table.entries.erase(Handle());
}

Window* Window::FromHandle(WindowHandle handle) {
    Table& table = AllWindows();
    const std::lock_guard lock(table.mutex);
    const auto found = table.entries.find(handle);
    if (found == table.entries.end() || found->second.thread != std::this_thread::get_id()) return nullptr;
    return found->second.window;
}

Window* Window::Top() {
    Window* window = this;
    while (window->Container()) window = window->Container();
    return window;
}

void Window::Create(WindowKind kind, Window* parent, const Rectangle& bounds) {
    IRenderer* const renderer = CurrentRenderer();
    if (m_view || !renderer) return;
    if (kind == WindowKind::child && !(parent && parent->IsCreated())) return;
    m_kind = kind;
    m_bounds = bounds;
    m_visible = false;
    m_parent = parent;
    if (m_parent) m_parent->m_children.push_back(this);
    try {
        m_view = renderer->MakeView(*this);
    } catch (...) {
        Remove();
        throw;
    }
}

void Window::Destroy() {
    if (!m_view || m_destroying) return;
    m_destroying = true;
    const WindowHandle handle = Handle();
    OnDestroy();
    if (FromHandle(handle) == this) Remove();
}

void Window::Remove() {
    m_destroying = true;
    while (!m_children.empty()) {
        Window* const child = m_children.back();
        child->Destroy();
        if (m_children.empty() || m_children.back() != child) continue;
        // It is being destroyed further down the stack.
        child->m_parent = nullptr;
        m_children.pop_back();
    }
    m_view.reset();
    m_visible = false;
    if (m_parent) std::erase(m_parent->m_children, this);
    m_parent = nullptr;
    m_focus_within = false;
    m_destroying = false;
}

void Window::Move(const Rectangle& bounds) {
    if (bounds == m_bounds) return;
    const Size before = m_bounds.Size();
    m_bounds = bounds;
    if (!m_view) return;
    m_view->OnMoved();
    if (before != m_bounds.Size()) OnSize(m_bounds.Size());
}

void Window::UserMoved(const Rectangle& bounds) {
    const Size before = m_bounds.Size();
    m_bounds = bounds;
    if (m_view && before != m_bounds.Size()) OnSize(m_bounds.Size());
}

void Window::Show(bool visible) {
    if (!m_view || visible == m_visible) return;
    const bool behind_hidden = m_kind == WindowKind::child && !(m_parent && m_parent->IsShown());
    m_visible = visible;
    m_view->OnShown();
    if (!behind_hidden) TellShown(visible);
}

bool Window::IsShown() const {
    for (const Window* window = this; window; window = window->m_parent) {
        if (!window->m_view || !window->m_visible) return false;
        if (window->m_kind == WindowKind::frame) return true;
    }
    return false;
}

// Whoever is told may destroy windows of this tree.
void Window::TellShown(bool shown) {
    std::vector<WindowHandle> children;
    for (const Window* const child : m_children) {
        if (child->m_kind == WindowKind::child && child->m_visible) children.push_back(child->Handle());
    }
    // What is not to be seen cannot have the focus.
    const WindowHandle own_handle = Handle();
    if (Dialog* const dialog = shown ? nullptr : AsDialog()) dialog->SetFocus(nullptr);
    if (FromHandle(own_handle) != this) return;
    OnShown(shown);
    for (const WindowHandle handle : children) {
        Window* const child = FromHandle(handle);
        if (child && child->m_visible) child->TellShown(shown);
    }
}

void Window::SetCaption(std::wstring caption) {
    m_caption = std::move(caption);
    if (m_view) m_view->OnCaption();
}

void Window::SetAccessibleName(std::wstring name) {
    m_accessible_name = std::move(name);
    if (m_view) m_view->OnAccessibleName();
}

void Window::Invalidate(bool now) {
    if (m_view) m_view->Invalidate(now);
}

}  // namespace hx::ui
