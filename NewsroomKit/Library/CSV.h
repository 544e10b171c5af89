#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// Appends a row by RFC 4180, closed by CR LF. A cell that a spreadsheet would take for a formula
/// gets a leading apostrophe, which CSVReader takes away again.
void appendCSVRow(const std::vector<std::string>& cells, std::string& csv);

/// Reads the rows of a table one after the other: cells with line breaks and doubled quotes inside
/// quotes, any line ending, a byte-order mark. The first line tells whether commas, semicolons or
/// tabs are between the cells.
class CSVReader {
public:
    explicit CSVReader(std::string_view utf8);

    /// False at the end. Empty lines are passed over.
    bool next(std::vector<std::string>& cells);

    std::size_t line() const { return line_; }  ///< where the last row began, from 1
    /// A quote of the last row is never closed: the row is its line alone.
    bool isUnclosed() const { return isUnclosed_; }

private:
    bool readCell(std::string& cell);
    void readQuoted(std::string& cell);
    void passLineBreak();

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t line_ = 0;
    std::size_t nextLine_ = 1;
    char separator_ = ',';
    bool isUnclosed_ = false;
    bool quotesCount_ = true;
};

}  // namespace kit
