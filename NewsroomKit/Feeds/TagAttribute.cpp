#include "NewsroomKit/Feeds/TagAttribute.h"

#include <algorithm>

#include "NewsroomKit/Text/ASCII.h"

namespace kit {
namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";
constexpr std::string_view betweenAttributes = " \t\n\v\f\r/\"'";
constexpr std::string_view behindName = " \t\n\v\f\r/=";

/// Splits off the text before the first of the characters, or everything.
std::string_view splitAt(std::string_view& rest, std::string_view characters) {
    const auto part = rest.substr(0, rest.find_first_of(characters));
    rest.remove_prefix(part.size());
    return part;
}

void skip(std::string_view& rest, std::string_view characters) {
    rest.remove_prefix(std::min(rest.find_first_not_of(characters), rest.size()));
}

std::string_view readValue(std::string_view& rest) {
    skip(rest, whiteSpace);
    if (rest.starts_with('"') || rest.starts_with('\'')) {
        const auto quote = rest.substr(0, 1);
        rest.remove_prefix(1);
        return splitAt(rest, quote);
    }
    return splitAt(rest, whiteSpace);
}

}  // namespace

std::string_view tagAttribute(std::string_view tag, std::string_view name) {
    for (skip(tag, betweenAttributes); !tag.empty(); skip(tag, betweenAttributes)) {
        const bool isWanted = equalsLowercase(splitAt(tag, behindName), name);
        skip(tag, whiteSpace);
        if (!tag.starts_with('=')) continue;
        tag.remove_prefix(1);
        const auto value = readValue(tag);
        if (isWanted) return value;
    }
    return {};
}

}  // namespace kit
