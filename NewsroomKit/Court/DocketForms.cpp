#include "NewsroomKit/Court/DocketForms.h"

#include <array>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Court/EntryKinds.h"
#include "NewsroomKit/Feeds/HTMLEntities.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

std::string_view lettersAfter(std::string_view text, std::string_view mark) {
    const auto at = text.find(mark);
    if (at == std::string_view::npos) return {};
    text.remove_prefix(at + mark.size());
    std::size_t length = 0;
    while (length < text.size() && isASCIIAlphanumeric(text[length])) ++length;
    return text.substr(0, length);
}

/// White space of all kinds as single spaces: texts of filings hold line and page ends.
std::string oneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        const bool isSpace = c == ' ' || (c >= '\t' && c <= '\r');
        if (!isSpace) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    if (line.ends_with(' ')) line.pop_back();
    return line;
}

}  // namespace

std::optional<std::string> courtName(std::string_view text) {
    auto name = oneLine(decodedEntities(text));
    if (name.empty()) return std::nullopt;
    return name;
}

std::optional<std::string> webLink(std::string_view text) {
    const auto trimmed = trimWhitespaceAndNewlines(text);
    const auto address = WebAddress::parse(trimmed);
    if (!address || !address->isHTTP()) return std::nullopt;
    return std::string(trimmed);
}

std::optional<std::string> courtOfDocument(std::string_view address) {
    for (const std::string_view mark : {"://ecf.", "gov.uscourts."}) {
        const auto court = lettersAfter(address, mark);
        if (!court.empty()) return lowercasedASCII(court);
    }
    return std::nullopt;
}

std::string pacerLink(std::string_view court, std::string_view document) {
    const bool isAppellate = court.starts_with("ca") && court.size() <= 4 &&
                             (isASCIIDigit(court[2]) || court == "cadc" || court == "cafc");
    return fmt::format("https://ecf.{}.uscourts.gov/{}/{}", court, isAppellate ? "docs1" : "doc1",
                       document);
}

std::optional<Instant> docketDay(std::string_view text) {
    if (text.size() != 10) return std::nullopt;
    return parseISO8601(fmt::format("{}T00:00:00Z", text));
}

void setWords(DocketEntry& entry, std::string_view text, std::string_view heading) {
    entry.text = oneLine(text.empty() ? heading : text);
    entry.kind = heading.empty() ? docketKind(entry.text) : docketKind(oneLine(heading));
    entry.weight = docketWeight(entry.kind);
}

}  // namespace kit
