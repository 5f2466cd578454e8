// Clicks that the machine has noticed and no window has been told of: kept by renderers for their users. On
// the thread of the user interface.
#pragma once

#include <cstddef>
#include <deque>
#include <utility>

#include "platform/ui/attachment.h"
#include "platform/ui/user.h"

namespace hx::ui {

class QueuedClicks {
public:
    void Add(Control& control) { m_clicks.push_back({&control, Attachment(control)}); }
    // By `user`, those that come meanwhile included; controls that have gone are passed over. How many there
    // were.
    size_t Do(IUser& user) {
        size_t count = 0;
        for (; !m_clicks.empty(); ++count) {
            const Click click = m_clicks.front();
            m_clicks.pop_front();
            if (click.attachment.Get()) user.Click(*click.control);
        }
        return count;
    }
    // Forgotten; how many there were.
    size_t Drop() { return std::exchange(m_clicks, {}).size(); }

private:
    struct Click {
        Control* control;
        Attachment attachment;
    };
    std::deque<Click> m_clicks;
};

}  // namespace hx::ui
