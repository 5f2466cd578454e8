// The results as Markdown, which reads well on a terminal too.
#pragma once

#include <string>
#include <vector>

#include "bench/contest.h"

namespace hx::bench {

class Table {
public:
    Table(std::string title, std::string note, std::vector<std::string> columns);

    void Add(std::vector<std::string> row) { m_rows.push_back(std::move(row)); }

    // With a heading, the note, and the columns aligned.
    std::string Markdown() const;

private:
    const std::string m_title;
    const std::string m_note;
    std::vector<std::vector<std::string>> m_rows;  // the first one holds the columns' names
};

// A table with one row for each peer of a contest.
Table PeerTable(std::string title, std::string note);

// Lets the contenders, of which the first is ours, compete, and adds the rows.
void AddContest(Table& table, const std::string& input, const std::vector<Contender>& contenders,
                const Effort& effort);

std::string FormatTime(double seconds);
std::string FormatNumber(double value, int decimals);

// Prints each table when it is there, and keeps all.
class Report {
public:
    void Add(const std::string& markdown);
    const std::string& Markdown() const { return m_markdown; }

private:
    std::string m_markdown;
};

}  // namespace hx::bench
