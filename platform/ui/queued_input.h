// What the mouse did that the machine has noticed and no window has been told of: kept by renderers for their
// users. On the thread of the user interface.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <utility>

#include "platform/ui/attachment.h"
#include "platform/ui/user.h"

namespace hx::ui {

class QueuedInput {
public:
    void AddClick(Control& control) { m_inputs.push_back({&control, Attachment(control), std::nullopt}); }
    // One that waits at the end for the same track bar is forgotten.
    void AddDrag(TrackBar& track_bar, int32_t position) {
        const bool merged =
            !m_inputs.empty() && m_inputs.back().control == &track_bar && m_inputs.back().position;
        if (merged) m_inputs.pop_back();
        m_inputs.push_back({&track_bar, Attachment(track_bar), position});
    }
    // By `user`, what comes meanwhile included; controls that have gone are passed over. How many there were.
    size_t Do(IUser& user) {
        size_t count = 0;
        for (; !m_inputs.empty(); ++count) {
            const Input input = m_inputs.front();
            m_inputs.pop_front();
            if (!input.attachment.Get()) continue;
            if (input.position) {
                user.Drag(static_cast<TrackBar&>(*input.control), *input.position);
            } else {
                user.Click(*input.control);
            }
        }
        return count;
    }
    // Forgotten; how many there were.
    size_t Drop() { return std::exchange(m_inputs, {}).size(); }

private:
    struct Input {
        Control* control;
        Attachment attachment;
        std::optional<int32_t> position;  // where a track bar's thumb is dragged; else it is a click
    };
    std::deque<Input> m_inputs;
};

}  // namespace hx::ui
