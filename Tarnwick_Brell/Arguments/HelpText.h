#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace arguments {

/// The help of one command, as records.
struct Help {
    struct Entry {
        std::string name;  ///< "--limit N"
        std::string meaning;
    };
    struct Section {
        std::string title;
        std::vector<Entry> entries{};
    };

    std::string description;
    std::string usage;
    std::vector<Section> sections{};
    std::string footer{};
};

/// Formats the help in lines of at most `width` columns. Footer lines that begin with white space,
/// such as those of a list, are not joined with others.
std::string helpText(const Help& help, std::size_t width);

/// Wraps `text` at `width` columns. Lines after the first begin with `indent` spaces; `used`
/// columns of the first are occupied.
std::string inLines(const std::string& text, std::size_t width, std::size_t indent,
                    std::size_t used);

}  // namespace arguments
