#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "Tarnwick_Brell/CommandLine/Output.h"

namespace brell {

/// Rows of text in columns as wide as their widest cell. Where the terminal is narrower, the
/// first column gives way.
class TextTable {
public:
    explicit TextTable(std::vector<std::string> headings);

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

    std::vector<std::size_t> widths(std::size_t available) const;

    std::vector<Row> rows_;  ///< the headings first
};

}  // namespace brell
