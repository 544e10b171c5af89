#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Pages/PageBlock.h"
#include "NewsroomKit/Pages/PageTree.h"
#include "NewsroomKit/Records/EnumTable.h"

namespace kit {

/// Why an answer is no page whose text can be read. It is never a change of the page.
enum class PageProblem { blocked, notHTML, tooShort, tooLarge };

template <>
inline constexpr std::array<EnumRow<PageProblem>, 4> enumTable<PageProblem>{{
    {PageProblem::blocked, "blocked", "The server sent a page for robots instead of the page."},
    {PageProblem::notHTML, "notHTML", "The address didn't return a web page."},
    {PageProblem::tooShort, "tooShort", "The page has too little text to be read."},
    {PageProblem::tooLarge, "tooLarge", "The page is larger than 8 MB."},
}};

constexpr std::string_view description(PageProblem problem) { return label(problem); }

/// A page as it came from its server.
struct PageAnswer {
    std::string_view bytes;
    std::string_view url;          ///< where it came from in the end; empty when unknown
    std::string_view contentType;  ///< the header; empty when unknown
    int status = 200;
};

using PageResult = boost::outcome_v2::unchecked<Page, PageProblem>;

inline constexpr std::size_t longestPage = 8'000'000;

/// With which version of the rules pages are read. Blocks that were read with an earlier one must
/// be read again before they are compared.
inline constexpr int pageRulesVersion = 1;

/// The text of a whole page for watching it: without navigation, headers, footers, asides and
/// what is hidden, and only its main part when it names one that holds most of the text. Never
/// loads anything; time and memory grow with the size of the page.
PageResult readPage(const PageAnswer& answer);

/// The same for bytes that are known to be a page, however short.
Page readPageText(const PageAnswer& answer);

/// The page's head and the address by which its links are completed, without its blocks.
struct PageHead {
    Page page;
    std::string base;
};

PageHead readPageHead(const PageTree& tree, std::string_view url);

/// Why the bytes of an answer cannot be a page, before they are parsed.
std::optional<PageProblem> problemOf(const PageAnswer& answer);

}  // namespace kit
