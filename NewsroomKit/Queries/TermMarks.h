#pragma once

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "NewsroomKit/Editorial/PhraseMatcher.h"

namespace kit {

/// Bytes of a text from `begin` to before `end`; always whole user-perceived characters.
struct TextRange {
    std::size_t begin = 0;
    std::size_t end = 0;

    bool operator==(const TextRange&) const = default;
};

/// Where terms occur in a story's texts, as they are published. In order, none touching another.
struct TermMarks {
    std::vector<TextRange> title{};
    std::vector<TextRange> summary{};

    bool isEmpty() const { return title.empty() && summary.empty(); }
    bool operator==(const TermMarks&) const = default;
};

/// Finds the terms by PhraseMatcher in the same normalised text that queries are tested on. So a
/// story has marks exactly when one of the terms matches it.
TermMarks termMarks(std::span<const PhraseMatcher> terms, std::string_view title,
                    std::string_view summary);

}  // namespace kit
