#include "NewsroomKit/Feeds/AuthorAddress.h"

#include <algorithm>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {
namespace {

constexpr auto none = std::string_view::npos;

bool isWebAddress(std::string_view word) {
    return standsAt(word, 0, "http://") || standsAt(word, 0, "https://") ||
           standsAt(word, 0, "www.");
}

bool isMailAddress(std::string_view word) {
    constexpr std::string_view scheme = "mailto:";
    if (standsAt(word, 0, scheme)) word.remove_prefix(scheme.size());
    const auto at = word.find('@');
    return at != none && at > 0 && word.find('.', at) != none && word.find('@', at + 1) == none;
}

}  // namespace

bool isOnlyAddresses(std::string_view author) {
    constexpr std::string_view between = " \t\r\n,;<>()[]\"";
    bool found = false;
    for (auto begin = author.find_first_not_of(between); begin != none;) {
        const auto end = std::min(author.find_first_of(between, begin), author.size());
        const auto word = author.substr(begin, end - begin);
        if (!isWebAddress(word) && !isMailAddress(word)) return false;
        found = true;
        begin = author.find_first_not_of(between, end);
    }
    return found;
}

}  // namespace kit
