#include "bench/report.h"

#include <algorithm>
#include <charconv>
#include <iostream>
#include <utility>

namespace hx::bench {

Table::Table(std::string title, std::string note, std::vector<std::string> columns)
    : m_title(std::move(title)), m_note(std::move(note)), m_rows{std::move(columns)} {}

std::string Table::Markdown() const {
    std::vector<size_t> widths(m_rows.front().size(), 3);
    for (const auto& row : m_rows) {
        for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    std::string out = "## " + m_title + "\n\n" + m_note + "\n\n";
    const auto append_row = [&](const std::vector<std::string>& row) {
        for (size_t i = 0; i < row.size(); ++i) {
            out.append("| ").append(row[i]).append(widths[i] - row[i].size() + 1, ' ');
        }
        out += "|\n";
    };
    append_row(m_rows.front());
    for (const size_t width : widths) out.append("|").append(width + 2, '-');
    out += "|\n";
    for (size_t i = 1; i < m_rows.size(); ++i) append_row(m_rows[i]);
    return out + "\n";
}

Table PeerTable(std::string title, std::string note) {
    return {std::move(title),
            std::move(note),
            {"Input", "Peer", "HX takes", "Peer takes", "Peer / HX", "Target", "Met"}};
}

void AddContest(Table& table, const std::string& input, const std::vector<Contender>& contenders,
                const Effort& effort) {
    const std::vector<double> medians = Compete(contenders, effort);
    for (size_t i = 1; i < contenders.size(); ++i) {
        const double ratio = medians[i] / medians[0];
        const double target = contenders[i].target;
        table.Add({input, contenders[i].name, FormatTime(medians[0]), FormatTime(medians[i]),
                   FormatNumber(ratio, 2), target > 0 ? FormatNumber(target, 1) : "-",
                   target > 0 ? (ratio >= target ? "yes" : "no") : "-"});
    }
}

std::string FormatNumber(double value, int decimals) {
    char text[64];
    return {text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, decimals).ptr};
}

std::string FormatTime(double seconds) {
    if (seconds < 1e-6) return FormatNumber(seconds * 1e9, 0) + " ns";
    if (seconds < 1e-3) return FormatNumber(seconds * 1e6, 2) + " us";
    if (seconds < 1) return FormatNumber(seconds * 1e3, 2) + " ms";
    return FormatNumber(seconds, 2) + " s";
}

void Report::Add(const std::string& markdown) {
    std::cout << markdown << std::flush;
    m_markdown += markdown;
}

}  // namespace hx::bench
