#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace cli {

/// A column of a TextTable, and what becomes of it where the terminal is narrow.
struct Column {
    std::string heading;
    bool isCut = false;     ///< its cells may be shortened; others, such as ids, never are
    int dropRank = 0;       ///< the highest goes first; 0 stays
    std::size_t least = 0;  ///< columns below which other columns go instead

    /// Stays whole: what one has to type, and what means nothing in part.
    static Column whole(std::string heading) { return {.heading = std::move(heading)}; }
    /// Prose and names.
    static Column cut(std::string heading, std::size_t least = 16) {
        return {.heading = std::move(heading), .isCut = true, .least = least};
    }
    Column dropped(int rank) && {
        dropRank = rank;
        return std::move(*this);
    }
};

/// Rows of text in columns as wide as their widest cell. Where the terminal is narrower, columns
/// are cut or left out as each of them says.
class TextTable {
public:
    explicit TextTable(std::vector<Column> columns);

    /// Begins a group of rows under a title of its own.
    void begin(const std::string& title);
    void add(std::vector<std::string> cells);
    /// A line of its own below the row that was added last.
    void addNote(const std::string& note);

    void print(Output& out) const;

private:
    struct Row {
        std::vector<std::string> cells;
        std::vector<std::string> notes;
        bool isTitle = false;
    };

    /// The width of each column in a terminal of `available` columns; 0 for one that is left out.
    std::vector<std::size_t> widths(std::size_t available) const;
    std::string line(const Row& row, const std::vector<std::size_t>& widths) const;

    std::vector<Column> columns_;
    std::vector<Row> rows_;  ///< the headings first
};

}  // namespace cli
