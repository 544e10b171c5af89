#include "Tarnwick_Brell/CommandLine/Terminal/TextTable.h"

#include <algorithm>
#include <utility>

#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"

namespace cli {

namespace {

constexpr std::string_view kGap = "  ";
constexpr std::string_view kNoteIndent = "    ";
constexpr std::size_t kNarrowest = 4;
constexpr std::size_t kWidestNote = 100;

/// The width of a row with its gaps.
std::size_t total(const std::vector<std::size_t>& widths) {
    std::size_t sum = 0;
    for (const auto width : widths) {
        if (width > 0) sum += width + kGap.size();
    }
    return sum > 0 ? sum - kGap.size() : 0;
}

}  // namespace

TextTable::TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {
    std::vector<std::string> headings;
    for (const auto& column : columns_) headings.push_back(column.heading);
    add(std::move(headings));
}

void TextTable::add(std::vector<std::string> cells) {
    rows_.push_back({.cells = std::move(cells), .notes = {}});
}

void TextTable::begin(const std::string& title) {
    rows_.push_back({.cells = {title}, .notes = {}, .isTitle = true});
}

void TextTable::addNote(const std::string& note) { rows_.back().notes.push_back(note); }

std::vector<std::size_t> TextTable::widths(std::size_t available) const {
    std::vector<std::size_t> natural(columns_.size());
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.cells.size() && !row.isTitle; ++i) {
            natural[i] = std::max(natural[i], columnsOf(row.cells[i]));
        }
    }
    // 1. Reduce every column that may be cut to its least width.
    auto widths = natural;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (columns_[i].isCut) widths[i] = std::min(widths[i], columns_[i].least);
    }
    // 2. Drop columns until the rest fits.
    const auto goesLater = [](const Column& a, const Column& b) { return a.dropRank < b.dropRank; };
    auto left = columns_;
    while (total(widths) > available) {
        const auto first = std::ranges::max_element(left, goesLater);
        if (first->dropRank == 0) break;
        first->dropRank = 0;
        widths[static_cast<std::size_t>(first - left.begin())] = 0;
    }
    // 3. If that is not enough, narrow the widest cut column further.
    const auto isCut = [&](std::size_t i) { return columns_[i].isCut && widths[i] > 0; };
    while (total(widths) > available) {
        std::size_t widest = widths.size();
        for (std::size_t i = 0; i < widths.size(); ++i) {
            if (isCut(i) && (widest == widths.size() || widths[i] > widths[widest])) widest = i;
        }
        if (widest == widths.size() || widths[widest] <= kNarrowest) break;
        --widths[widest];
    }
    // 4. Give the remaining space to cut columns, from the left.
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const auto used = total(widths);
        if (isCut(i) && used < available) {
            widths[i] = std::min(natural[i], widths[i] + (available - used));
        }
    }
    return widths;
}

std::string TextTable::line(const Row& row, const std::vector<std::size_t>& widths) const {
    std::string line;
    bool isFirst = true;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        if (widths[i] == 0) continue;
        if (!isFirst) line += kGap;
        isFirst = false;
        line += padTo(row.cells[i], widths[i]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

void TextTable::print(Output& out) const {
    const auto columns = widths(out.width());
    for (const auto& row : rows_) {
        if (row.isTitle) {
            out.line();
            out.line(out.bold(cutTo(row.cells.front(), out.width())));
            continue;
        }
        const auto text = line(row, columns);
        out.line(&row == &rows_.front() ? out.bold(text) : text);
        for (const auto& note : row.notes) {
            out.line(wrapped(note, std::min(out.width(), kWidestNote), kNoteIndent));
        }
    }
}

}  // namespace cli
