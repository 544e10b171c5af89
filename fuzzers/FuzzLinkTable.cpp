#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "NewsroomKit/Library/CSV.h"
#include "NewsroomKit/Library/ImportPreview.h"

// Any bytes below a line of names: no crash, lines only rise, and rows are written and read back
// the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string table(reinterpret_cast<const char*>(data), size);
    static_cast<void>(
        kit::previewImport("url,title,time_added,tags,status\n" + table, {}, kit::Instant()));
    kit::CSVReader reader(table);
    std::vector<std::vector<std::string>> rows;
    std::string written = "a,b\r\n";
    std::size_t line = 0;
    for (std::vector<std::string> row; reader.next(row); rows.push_back(row)) {
        if (reader.line() <= line) std::abort();
        line = reader.line();
        kit::appendCSVRow(row, written);
    }
    kit::CSVReader again(written);
    std::vector<std::string> row;
    again.next(row);
    for (const auto& expected : rows) {
        if (!again.next(row)) std::abort();
        if (row != expected) std::abort();
    }
    return 0;
}
