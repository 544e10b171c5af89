#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace kit {

/// The words of a table's filter field. A row matches when each word is in one of its texts,
/// whatever its letter case; without words every row does.
class RowFilter {
public:
    RowFilter() = default;
    explicit RowFilter(std::string_view words);

    bool matches(std::initializer_list<std::string_view> texts) const;
    bool isEmpty() const { return words_.empty(); }

private:
    std::vector<std::string> words_;  ///< folded
};

}  // namespace kit
