#include "NewsroomKit/Filings/FilingForms.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>

#include <fmt/format.h>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::string_view archiveFolder = "https://www.sec.gov/Archives/edgar/data";

std::optional<int> wholeNumber(std::string_view digits) {
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return number;
}

std::optional<std::string> dayText(std::string_view year, std::string_view month,
                                   std::string_view day) {
    const auto y = wholeNumber(year);
    const auto m = wholeNumber(month);
    const auto d = wholeNumber(day);
    // Instants begin with the year 1.
    if (!y || !m || !d || *y < 1 || *m < 1 || *d < 1) return std::nullopt;
    const std::chrono::year_month_day date{std::chrono::year(*y),
                                           std::chrono::month(static_cast<unsigned>(*m)),
                                           std::chrono::day(static_cast<unsigned>(*d))};
    if (!date.ok()) return std::nullopt;
    return fmt::format("{:04}-{:02}-{:02}", *y, *m, *d);
}

bool containsIgnoringCase(std::string_view text, std::string_view lower) {
    for (std::size_t at = 0; at + lower.size() <= text.size(); ++at) {
        if (standsAt(text, at, lower)) return true;
    }
    return false;
}

std::string folder(std::int64_t cik, std::string_view accession) {
    std::string digits(accession);
    std::erase(digits, '-');
    return fmt::format("{}/{}/{}", archiveFolder, cik, digits);
}

}  // namespace

bool isAccessionNumber(std::string_view text) {
    constexpr std::string_view shape = "0000000000-00-000000";
    return std::ranges::equal(text, shape, [](char c, char expected) {
        return expected == '-' ? c == '-' : isASCIIDigit(c);
    });
}

std::string indexAddress(std::int64_t cik, std::string_view accession) {
    return fmt::format("{}/{}-index.htm", folder(cik, accession), accession);
}

std::string documentAddress(std::int64_t cik, std::string_view accession,
                            std::string_view document) {
    return fmt::format("{}/{}", folder(cik, accession), document);
}

std::optional<std::int64_t> cikFrom(std::string_view text) {
    text = trimWhitespaceAndNewlines(text);
    std::int64_t cik = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), cik);
    if (error != std::errc() || end != text.data() + text.size() || cik <= 0) return std::nullopt;
    return cik;
}

std::optional<std::string> formDay(std::string_view text) {
    text = trimWhitespaceAndNewlines(text).substr(0, 10);
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return std::nullopt;
    return dayText(text.substr(0, 4), text.substr(5, 2), text.substr(8, 2));
}

std::optional<std::string> noticeDay(std::string_view text) {
    text = trimWhitespaceAndNewlines(text);
    if (text.size() != 10 || text[2] != '/' || text[5] != '/') return std::nullopt;
    return dayText(text.substr(6, 4), text.substr(0, 2), text.substr(3, 2));
}

std::optional<double> formNumber(std::string_view text) {
    text = trimWhitespaceAndNewlines(text);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

std::optional<FilingsError> refusalInPage(std::string_view bytes) {
    constexpr std::size_t head = 4096;  // scripts may stand before the root's first words
    const auto start = bytes.substr(0, head);
    if (!containsIgnoringCase(start, "<html") && !containsIgnoringCase(start, "<!doctype html")) {
        return std::nullopt;
    }
    // The words stand in the title or the first heading, far before this length.
    const auto words = bytes.substr(0, 64 * 1024);
    if (containsIgnoringCase(words, "undeclared automated tool")) return FilingsError::undeclared;
    if (containsIgnoringCase(words, "rate threshold exceeded")) return FilingsError::threshold;
    if (containsIgnoringCase(words, "no matching")) return FilingsError::noCompany;
    return FilingsError::notFilings;
}

boost::outcome_v2::unchecked<XMLElement, FilingsError> formDocument(std::string_view bytes,
                                                                    std::string_view root) {
    constexpr std::string_view begin = "<XML>";
    auto at = bytes.find(begin);
    if (at == std::string_view::npos) {
        if (const auto refusal = refusalInPage(bytes)) return *refusal;
        auto tree = parseXMLTree(bytes);
        if (!tree) {
            const bool isMeant = bytes.find(root) != std::string_view::npos;
            return isMeant ? FilingsError::malformed : FilingsError::notFilings;
        }
        if (tree->name != root) return FilingsError::notFilings;
        return std::move(*tree);
    }
    bool sawUnsound = false;
    while (at != std::string_view::npos) {
        at += begin.size();
        const auto end = bytes.find("</XML>", at);
        const auto document = bytes.substr(at, end == std::string_view::npos ? end : end - at);
        auto tree = parseXMLTree(document);
        if (tree && tree->name == root) return std::move(*tree);
        if (!tree) sawUnsound = true;
        at = end == std::string_view::npos ? end : bytes.find(begin, end);
    }
    return sawUnsound ? FilingsError::malformed : FilingsError::notFilings;
}

}  // namespace kit
