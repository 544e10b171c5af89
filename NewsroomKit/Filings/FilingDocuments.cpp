#include "NewsroomKit/Filings/FilingDocuments.h"

#include <algorithm>
#include <array>
#include <optional>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Pages/PageTree.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

constexpr std::string_view archiveOrigin = "https://www.sec.gov";
// Inline XBRL is shown by a viewer; the document itself stands behind it.
constexpr std::string_view viewerPath = "/ix?doc=";

bool isWebPage(std::string_view bytes) { return refusalInPage(bytes).has_value(); }

/// The cells of a row, in order.
std::vector<PageTree::Index> cellsOf(const PageTree& page, PageTree::Index row) {
    std::vector<PageTree::Index> cells;
    for (auto at = row + 1; at < page.nodes[row].end; ++at) {
        if (page.nodes[at].tag == PageTag::cell) cells.push_back(at);
    }
    return cells;
}

std::string cellText(const PageTree& page, PageTree::Index cell) {
    return std::string(trimWhitespaceAndNewlines(page.textInside(cell)));
}

/// The address of the document that a cell links to; only the SEC's own.
std::optional<std::string> documentLink(const PageTree& page, PageTree::Index cell) {
    for (auto at = cell + 1; at < page.nodes[cell].end; ++at) {
        auto href = page.attribute(page.nodes[at], PageAttribute::href);
        if (href.starts_with(archiveOrigin)) href.remove_prefix(archiveOrigin.size());
        if (href.starts_with(viewerPath)) href.remove_prefix(viewerPath.size());
        if (href.starts_with("/Archives/")) return std::string(archiveOrigin) + std::string(href);
    }
    return std::nullopt;
}

/// Whether the document is text: a page, or plain.
bool isText(const FilingDocument& document) {
    constexpr std::array endings{".htm", ".html", ".txt"};
    const auto lower = lowercasedASCII(document.url);
    return std::ranges::any_of(endings,
                               [&](std::string_view ending) { return lower.ends_with(ending); });
}

/// Columns: number, description, document, type, size. The whole submission has no type.
std::optional<FilingDocument> documentInRow(const PageTree& page, PageTree::Index row) {
    constexpr std::size_t columns = 5;
    const auto cells = cellsOf(page, row);
    if (cells.size() != columns) return std::nullopt;
    const auto link = documentLink(page, cells[2]);
    FilingDocument document{.type = cellText(page, cells[3]), .title = cellText(page, cells[1])};
    if (!link || document.type.empty() || document.type == "\u00A0") return std::nullopt;
    document.url = *link;
    return isText(document) ? std::optional(document) : std::nullopt;
}

/// Whether a line can't be what a document is headed with: the name of its type, an address, a
/// date, who can be asked.
bool isFormality(std::string_view line) {
    constexpr std::size_t fewestWords = 4;
    constexpr std::size_t longest = 240;
    constexpr std::array starts{
        "exhibit", "ex-",    "document",         "for immediate",       "contact",
        "phone",   "p.o. b", "united states se", "securities and exch", "form ",
        "item "};
    const auto words = static_cast<std::size_t>(std::ranges::count(line, ' ')) + 1;
    if (words < fewestWords || line.size() > longest || isASCIIDigit(line.front())) return true;
    const auto lower = lowercasedASCII(line);
    return std::ranges::any_of(starts,
                               [&](std::string_view start) { return lower.starts_with(start); });
}

std::string headingOf(const std::vector<std::string>& lines) {
    constexpr std::size_t head = 25;
    for (std::size_t at = 0; at < std::min(head, lines.size()); ++at) {
        if (!isFormality(lines[at])) return lines[at];
    }
    return {};
}

std::vector<std::string> linesOfText(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        if (const auto line = trimWhitespaceAndNewlines(text.substr(0, end)); !line.empty())
            lines.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

}  // namespace

bool isPressExhibit(const FilingDocument& document) { return document.type.starts_with("EX-99"); }

FilingDocumentsResult parseFilingDocuments(std::string_view bytes) {
    if (!isWebPage(bytes)) return FilingsError::notFilings;
    const auto page = parsePage(bytes);
    std::vector<FilingDocument> documents;
    for (PageTree::Index at = 1; at < page.nodes.size(); ++at) {
        if (page.nodes[at].tag != PageTag::row) continue;
        if (auto document = documentInRow(page, at)) documents.push_back(std::move(*document));
    }
    if (documents.empty()) return FilingsError::notFilings;
    std::ranges::stable_partition(documents, isPressExhibit);
    return documents;
}

FilingText readFilingText(std::string_view document, std::string_view url) {
    FilingText text{.url = std::string(url)};
    if (isWebPage(document)) {
        for (const auto& block :
             readPageText({.bytes = document, .url = url, .contentType = {}}).blocks) {
            if (!block.text.empty()) text.lines.push_back(block.text);
        }
    } else {
        text.lines = linesOfText(document);
    }
    text.title = headingOf(text.lines);
    return text;
}

}  // namespace kit
