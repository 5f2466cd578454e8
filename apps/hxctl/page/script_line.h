// A line of a page script as words: parted by blanks; one with blanks in it, an empty one, or one that begins
// with # or -- and means just that, in double quotes, with \\ and \" inside.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace hxctl {

struct Word {
    std::string text;
    size_t column = 0;  // from 1, in bytes
    bool quoted = false;

    bool IsOption() const { return !quoted && text.starts_with("--"); }
};

// What is wrong with a line, and where.
struct WrongLine : std::runtime_error {
    WrongLine(const Word& at, const std::string& reason) : WrongLine(at.column, reason) {}
    WrongLine(size_t column, const std::string& reason);
};

// Without what is behind a # at the beginning of a word; empty for a line that says nothing. Throws a
// WrongLine.
std::vector<Word> WordsOf(std::string_view line);

}  // namespace hxctl
