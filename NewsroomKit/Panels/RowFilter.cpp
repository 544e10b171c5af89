#include "NewsroomKit/Panels/RowFilter.h"

#include <algorithm>

#include "NewsroomKit/Text/Folding.h"

namespace kit {

RowFilter::RowFilter(std::string_view words) {
    const auto folded = fold(words);
    std::string_view rest = folded;
    constexpr std::string_view blanks = " \t\r\n";
    for (;;) {
        rest.remove_prefix(std::min(rest.find_first_not_of(blanks), rest.size()));
        if (rest.empty()) return;
        const auto word = rest.substr(0, rest.find_first_of(blanks));
        words_.emplace_back(word);
        rest.remove_prefix(word.size());
    }
}

bool RowFilter::matches(std::initializer_list<std::string_view> texts) const {
    if (words_.empty()) return true;
    std::string all;
    for (const auto text : texts) {
        appendFolded(text, all);
        all += '\n';
    }
    return std::ranges::all_of(words_,
                               [&](const std::string& word) { return all.find(word) != all.npos; });
}

}  // namespace kit
