#include "apps/hxctl/page/script_line.h"

#include "platform/system/utf8.h"

namespace hxctl {
namespace {

bool IsBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r';
}

// From behind the opening quote to behind the closing one.
void TakeQuoted(std::string_view line, size_t& place, Word& word) {
    word.quoted = true;
    while (place < line.size() && line[place] != '"') {
        if (line[place] == '\\') {
            ++place;
            if (place == line.size() || (line[place] != '\\' && line[place] != '"')) {
                throw WrongLine(place, "in quotes \\ stands before \\ or \" only");
            }
        }
        word.text += line[place++];
    }
    if (place == line.size()) throw WrongLine(word.column, "a quote that is not closed");
    ++place;
    if (place < line.size() && !IsBlank(line[place])) {
        throw WrongLine(place + 1, "no blank behind the closing quote");
    }
}

void TakePlain(std::string_view line, size_t& place, Word& word) {
    for (; place < line.size() && !IsBlank(line[place]); ++place) {
        if (line[place] == '"') throw WrongLine(place + 1, "a quote in the middle of a word");
        word.text += line[place];
    }
}

}  // namespace

WrongLine::WrongLine(size_t column, const std::string& reason)
    : std::runtime_error("column " + std::to_string(column) + ": " + reason) {}

std::vector<Word> WordsOf(std::string_view line) {
    if (!hx::FromUtf8(line)) throw WrongLine(1, "the line is no UTF-8");
    std::vector<Word> words;
    size_t place = 0;
    for (;;) {
        while (place < line.size() && IsBlank(line[place])) ++place;
        if (place == line.size() || line[place] == '#') return words;
        Word word{{}, place + 1, false};
        if (line[place] == '"') {
            TakeQuoted(line, ++place, word);
        } else {
            TakePlain(line, place, word);
        }
        words.push_back(std::move(word));
    }
}

}  // namespace hxctl
