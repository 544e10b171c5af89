#include "NewsroomKit/Queries/TermList.h"

#include <algorithm>

#include "NewsroomKit/Text/Unicode.h"

namespace kit {

std::vector<std::string> separatedTerms(std::string_view list) {
    std::vector<std::string> terms;
    for (std::size_t begin = 0; begin <= list.size();) {
        const auto comma = std::min(list.find(',', begin), list.size());
        const auto term = trimWhitespaceAndNewlines(list.substr(begin, comma - begin));
        if (!term.empty()) terms.emplace_back(term);
        begin = comma + 1;
    }
    return terms;
}

}  // namespace kit
