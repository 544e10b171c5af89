#pragma once

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "NewsroomKit/Filings/Filing.h"

namespace kit {

/// One document of a filing, at the SEC's archive.
struct FilingDocument {
    std::string type{};   ///< "8-K", "EX-99.1"
    std::string title{};  ///< as its filer describes it; may be empty
    std::string url{};

    bool operator==(const FilingDocument&) const = default;
};

template <>
struct JSONFields<FilingDocument> {
    static constexpr auto fields =
        std::tuple{field("type", &FilingDocument::type), field("title", &FilingDocument::title),
                   field("url", &FilingDocument::url)};
};

using FilingDocumentsResult =
    boost::outcome_v2::unchecked<std::vector<FilingDocument>, FilingsError>;

/// The documents on a filing's page: exhibits 99 first, because the news of an 8-K is in them, then
/// the others in the page's order. Pictures, data and the submission as a whole are left out.
FilingDocumentsResult parseFilingDocuments(std::string_view page);

/// A press release, as exhibits 99 are.
bool isPressExhibit(const FilingDocument& document);

/// The text of a document, a line a block.
struct FilingText {
    std::string url{};
    std::string title{};  ///< what it is headed with; may be empty
    std::vector<std::string> lines{};

    bool operator==(const FilingText&) const = default;
};

template <>
struct JSONFields<FilingText> {
    static constexpr auto fields =
        std::tuple{field("url", &FilingText::url), field("title", &FilingText::title),
                   field("lines", &FilingText::lines)};
};

/// Reads a document of the archive, a page or plain text.
FilingText readFilingText(std::string_view document, std::string_view url);

}  // namespace kit
