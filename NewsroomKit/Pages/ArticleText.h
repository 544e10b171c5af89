#pragma once

#include <string>
#include <vector>

#include <boost/outcome/result.hpp>

#include "NewsroomKit/Pages/PageBlock.h"
#include "NewsroomKit/Pages/PageReader.h"

namespace kit {

/// The text of an article as its readers want it.
struct Article {
    std::string title;
    std::vector<PageBlock> blocks;
    std::vector<PageLink> links;  ///< those in the text, each address once
    bool isPaywalled = false;     ///< the publisher says that the text is for subscribers

    bool operator==(const Article&) const = default;
};

template <>
struct JSONFields<Article> {
    static constexpr auto fields =
        std::tuple{field("title", &Article::title), field("blocks", &Article::blocks),
                   field("links", &Article::links), field("paywalled", &Article::isPaywalled)};
};

using ArticleResult = boost::outcome_v2::unchecked<Article, PageProblem>;

/// Reads the article of a page from its structure and from where its prose stands; there are no
/// rules for single sites. Never loads anything; time and memory grow with the size of the page.
ArticleResult readArticle(const PageAnswer& answer);

/// The text as simple HTML with its links, for readers of HTML.
std::string articleHTML(const Article& article);

}  // namespace kit
