#include "Tarnwick_Brell/CommandLine/TextTable.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "Tarnwick_Brell/CommandLine/TerminalText.h"

namespace brell {

namespace {

constexpr std::string_view kGap = "  ";
constexpr std::string_view kNoteIndent = "    ";
constexpr std::size_t kNarrowestFirst = 12;
constexpr std::size_t kWidestNote = 100;

}  // namespace

TextTable::TextTable(std::vector<std::string> headings) { add(std::move(headings)); }

void TextTable::add(std::vector<std::string> cells) {
    rows_.push_back({.cells = std::move(cells), .notes = {}});
}

void TextTable::begin(const std::string& title) {
    rows_.push_back({.cells = {title}, .notes = {}, .isTitle = true});
}

void TextTable::addNote(const std::string& note) { rows_.back().notes.push_back(note); }

std::vector<std::size_t> TextTable::widths(std::size_t available) const {
    std::vector<std::size_t> widths(rows_.front().cells.size());
    for (const auto& row : rows_) {
        if (row.isTitle) continue;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            widths[i] = std::max(widths[i], columnsOf(row.cells[i]));
        }
    }
    const auto others =
        std::accumulate(widths.begin() + 1, widths.end(), kGap.size() * (widths.size() - 1));
    const auto left = available > others ? available - others : 0;
    widths[0] = std::min(widths[0], std::max(left, kNarrowestFirst));
    return widths;
}

void TextTable::print(Output& out) const {
    const auto columns = widths(out.width());
    for (const auto& row : rows_) {
        if (row.isTitle) {
            out.line();
            out.line(out.bold(row.cells.front()));
            continue;
        }
        std::string line;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            if (i > 0) line += kGap;
            line += padTo(row.cells[i], columns[i]);
        }
        line.erase(line.find_last_not_of(' ') + 1);
        out.line(&row == &rows_.front() ? out.bold(line) : line);
        for (const auto& note : row.notes) {
            out.line(wrapped(note, std::min(out.width(), kWidestNote), kNoteIndent));
        }
    }
}

}  // namespace brell
