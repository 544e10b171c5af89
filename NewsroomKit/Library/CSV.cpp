#include "NewsroomKit/Library/CSV.h"

#include <algorithm>

namespace kit {

namespace {

constexpr auto kNowhere = std::string_view::npos;
constexpr std::string_view kFormulaStarts = "=+-@\t\r";

bool beginsFormula(std::string_view cell) {
    return !cell.empty() && kFormulaStarts.find(cell.front()) != kNowhere;
}

char separatorOf(std::string_view firstLine) {
    char best = ',';
    std::ptrdiff_t most = 0;
    for (const char separator : {',', ';', '\t'}) {
        const auto count = std::ranges::count(firstLine, separator);
        if (count > most) best = separator;
        most = std::max(most, count);
    }
    return best;
}

}  // namespace

void appendCSVRow(const std::vector<std::string>& cells, std::string& csv) {
    for (const auto& cell : cells) {
        if (&cell != &cells.front()) csv += ',';
        const bool isGuarded = beginsFormula(cell);
        // A row of one empty cell would be an empty line.
        const bool isQuoted =
            cell.find_first_of(",;\"\r\n\t") != kNowhere || (cell.empty() && cells.size() == 1);
        if (isQuoted) csv += '"';
        if (isGuarded) csv += '\'';
        for (const char c : cell) {
            if (c == '"') csv += '"';
            csv += c;
        }
        if (isQuoted) csv += '"';
    }
    csv += "\r\n";
}

CSVReader::CSVReader(std::string_view utf8) : text_(utf8) {
    if (text_.starts_with("\xEF\xBB\xBF")) text_.remove_prefix(3);
    separator_ = separatorOf(text_.substr(0, text_.find_first_of("\r\n")));
}

bool CSVReader::next(std::vector<std::string>& cells) {
    cells.clear();
    isUnclosed_ = false;
    while (at_ < text_.size() && (text_[at_] == '\n' || text_[at_] == '\r')) passLineBreak();
    if (at_ >= text_.size()) return false;
    line_ = nextLine_;
    const auto begin = at_;
    while (readCell(cells.emplace_back())) {
    }
    if (!isUnclosed_) return true;
    // No quote closes from here on: the rows below are read as if there were none, once and for
    // all, so that a table is not searched again for each of them.
    quotesCount_ = false;
    at_ = begin;
    nextLine_ = line_;
    cells.clear();
    while (readCell(cells.emplace_back())) {
    }
    return true;
}

void CSVReader::passLineBreak() {
    at_ += text_.substr(at_).starts_with("\r\n") ? 2 : 1;
    ++nextLine_;
}

/// False when the cell was the row's last.
bool CSVReader::readCell(std::string& cell) {
    if (quotesCount_ && at_ < text_.size() && text_[at_] == '"') readQuoted(cell);
    // Behind a closing quote, or without any, quotes are characters.
    const char ends[] = {separator_, '\r', '\n'};
    const auto end = std::min(text_.find_first_of({ends, 3}, at_), text_.size());
    cell.append(text_, at_, end - at_);
    at_ = end;
    if (cell.size() > 1 && cell.front() == '\'' && beginsFormula({cell.data() + 1, 1}))
        cell.erase(0, 1);
    if (at_ >= text_.size()) return false;
    if (text_[at_] == separator_) {
        ++at_;
        return true;
    }
    passLineBreak();
    return false;
}

void CSVReader::readQuoted(std::string& cell) {
    for (++at_;;) {
        const auto quote = std::min(text_.find('"', at_), text_.size());
        cell.append(text_, at_, quote - at_);
        nextLine_ += static_cast<std::size_t>(
            std::count(text_.begin() + static_cast<std::ptrdiff_t>(at_),
                       text_.begin() + static_cast<std::ptrdiff_t>(quote), '\n'));
        at_ = quote + 1;
        if (quote == text_.size()) {
            at_ = text_.size();
            isUnclosed_ = true;
            return;
        }
        if (at_ >= text_.size() || text_[at_] != '"') return;
        cell += '"';
        ++at_;
    }
}

}  // namespace kit
