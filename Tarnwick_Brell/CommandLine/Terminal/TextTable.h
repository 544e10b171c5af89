#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Terminal/Output.h"

namespace cli {

/// A column of a TextTable and its behaviour in a narrow terminal.
struct Column {
    std::string heading;
    bool isCut = false;     ///< its cells may be shortened, unlike those of ids
    int dropRank = 0;       ///< the highest is dropped first; 0 is never dropped
    std::size_t least = 0;  ///< width below which other columns are dropped instead

    /// Never cut: for text that the user has to type or that means nothing in part.
    static Column whole(std::string heading) { return {.heading = std::move(heading)}; }
    /// For prose and names.
    static Column cut(std::string heading, std::size_t least = 16) {
        return {.heading = std::move(heading), .isCut = true, .least = least};
    }
    Column dropped(int rank) && {
        dropRank = rank;
        return std::move(*this);
    }
};

/// Rows of text in columns as wide as their widest cell. In a narrower terminal, columns are cut or
/// dropped as each specifies.
class TextTable {
public:
    explicit TextTable(std::vector<Column> columns);

    /// Begins a group of rows with a title.
    void begin(const std::string& title);
    void add(std::vector<std::string> cells);
    /// Adds a separate line below the last row.
    void addNote(const std::string& note);

    void print(Output& out) const;

private:
    struct Row {
        std::vector<std::string> cells;
        std::vector<std::string> notes;
        bool isTitle = false;
    };

    /// The width of each column in a terminal of `available` columns; 0 for a dropped one.
    std::vector<std::size_t> widths(std::size_t available) const;
    std::string line(const Row& row, const std::vector<std::size_t>& widths) const;

    std::vector<Column> columns_;
    std::vector<Row> rows_;  ///< the headings first
};

}  // namespace cli
