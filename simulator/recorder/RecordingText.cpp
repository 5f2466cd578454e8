#include "simulator/recorder/RecordingText.h"

#include <charconv>

#include "platform/system/utf8.h"

namespace hx::simulator {
namespace {

template <class Number>
void AppendNumber(std::string& text, Number number) {
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, end);
}

template <class... Numbers>
void AppendLine(std::string& text, std::string_view word, Numbers... numbers) {
    text += word;
    ((text += ' ', AppendNumber(text, numbers)), ...);
    text += '\n';
}

}  // namespace

const std::string& RecordingText::Add(const RecordedCycle& recorded) {
    m_text.clear();
    if (recorded.device != m_device || recorded.areas != m_areas) {
        m_device = recorded.device;
        m_areas = recorded.areas;
        m_text += "device " + ToUtf8(m_device) + "\n";
        for (const RecordedCycle::Area& area : m_areas) {
            m_text += "area ";
            AppendNumber(m_text, area.plane_number);
            for (const double value : area.corners_mm) {
                m_text += ' ';
                AppendNumber(m_text, value);
            }
            m_text += '\n';
        }
    }
    const TrackingCycle& cycle = recorded.cycle;
    AppendLine(m_text, "cycle", cycle.number, cycle.time_us, cycle.plane_number, cycle.column_count,
               cycle.saturated_count, cycle.point_count);
    for (const TrackingPoint& point : recorded.points) {
        AppendNumber(m_text, point.x_mm);
        AppendLine(m_text, "", point.y_mm, point.signal, point.column);
    }
    return m_text;
}

std::string RecordingText::End(uint64_t cycles, uint64_t dropped) {
    std::string text;
    AppendLine(text, "end", cycles, dropped);
    return text;
}

}  // namespace hx::simulator
