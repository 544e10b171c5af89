#include "NewsroomKit/Clusters/ClusterEntry.h"

#include <algorithm>
#include <chrono>
#include <cmath>

#include "NewsroomKit/Clusters/ClusterVocabulary.h"
#include "NewsroomKit/Clusters/HeadlineFacts.h"
#include "NewsroomKit/Stories/CanonicalLink.h"

namespace kit {

namespace {

// Two stories with the news from one article tell the same news if their headlines are a little
// alike: a newsletter with five pieces of news is one article.
constexpr double kSharedOriginBonus = 0.25;
constexpr double kLeastWithSharedOrigin = 0.08;
constexpr double kSameEventBonus = 0.12;
constexpr double kOtherNameShare = 0.3;
constexpr double kCompanionShare = 0.75;
// How much likeness two stories lose that are as far apart as the window is wide.
constexpr double kLossOverWindow = 0.2;
constexpr std::chrono::hours kWindow{48};

/// An outlet's front page is not an article: every credit of the outlet would share it.
bool isArticle(std::string_view canonical) {
    const auto host = canonical.find("://");
    if (host == std::string_view::npos) return false;
    const auto path = canonical.find('/', host + 3);
    return path != std::string_view::npos && path + 1 < canonical.size();
}

void addArticle(std::vector<std::uint64_t>& articles, std::string_view canonical) {
    if (!isArticle(canonical)) return;
    const std::uint64_t article = textKey(canonical);
    if (std::find(articles.begin(), articles.end(), article) == articles.end()) {
        articles.push_back(article);
    }
}

bool shareAny(const std::vector<std::uint64_t>& left, const std::vector<std::uint64_t>& right) {
    return std::any_of(left.begin(), left.end(), [&](std::uint64_t address) {
        return std::find(right.begin(), right.end(), address) != right.end();
    });
}

/// Whether `teller` says that it has the news from `origin`. A roundup says so of several articles.
bool citesArticle(const ClusterEntry& teller, const ClusterEntry& origin) {
    const bool isOfOneArticle = teller.genre == HeadlineGenre::news || teller.cited.size() == 1;
    return isOfOneArticle && shareAny(teller.cited, origin.articles);
}

bool standsAlone(const ClusterEntry& entry) {
    return entry.genre == HeadlineGenre::opinion || entry.genre == HeadlineGenre::guide;
}

/// How much of their likeness two stories keep that name other things or are far apart.
double keptShare(const ClusterEntry& left, const ClusterEntry& right) {
    double share = 1;
    if (differInNames(left.headline.facts, right.headline.facts)) share *= kOtherNameShare;
    if (left.genre != HeadlineGenre::news || right.genre != HeadlineGenre::news) {
        share *= kCompanionShare;
    }
    const auto apart = std::chrono::abs(left.publishedAt - right.publishedAt);
    const double windows = std::min(1.0, std::chrono::duration<double>(apart) / kWindow);
    return share * (1 - kLossOverWindow * windows);
}

/// By the words alone, before it is reduced.
EntryTie wordTie(const ClusterEntry& left, const ClusterEntry& right) {
    const auto shared = sharedWords(left.vector, right.vector);
    EntryTie tie{.likeness = likeness(shared)};
    if (tellOfSameEvent(left.headline.facts, right.headline.facts)) {
        tie.likeness = std::min(1.0, tie.likeness + kSameEventBonus);
        tie.strength = tie.likeness;
    } else if (isTelling(shared)) {
        tie.strength = tie.likeness;
    }
    return tie;
}

}  // namespace

ClusterEntry ClusterEntry::of(const Story& story) {
    const bool isBehindRedirect = story.articleLink || story.needsArticleLink();
    ClusterEntry entry{.storyID = story.id,
                       .outlet = isBehindRedirect ? story.id : story.sourceID,
                       .sourceName = story.shownDestinationName().value_or(story.sourceName),
                       .title = story.title,
                       .publishedAt = story.publishedAt,
                       .genre = headlineGenre(story.title, story.kind),
                       .headline = readHeadline(story.title, story.summary)};
    addArticle(entry.articles, story.link);
    if (story.articleLink) addArticle(entry.articles, canonicalLink(*story.articleLink));
    for (const SourceCredit& credit : story.credits) {
        // A link without words that carry the credit is background.
        if (credit.url && credit.detail) addArticle(entry.cited, canonicalLink(*credit.url));
    }
    return entry;
}

double wordStrength(const ClusterEntry& left, const ClusterEntry& right) {
    return wordTie(left, right).strength;
}

EntryTie tieBetween(const ClusterEntry& left, const ClusterEntry& right) {
    using Kind = EntryTie::Kind;
    constexpr double kSure = 1;
    if (shareAny(left.articles, right.articles))
        return {.kind = Kind::sameArticle, .strength = kSure, .likeness = kSure};
    if (standsAlone(left) || standsAlone(right) ||
        contradict(left.headline.facts, right.headline.facts)) {
        return {.isExcluded = true};
    }
    if (citesArticle(left, right) || citesArticle(right, left))
        return {.kind = Kind::cites, .strength = kSure, .likeness = kSure};
    auto tie = wordTie(left, right);
    const double kept = keptShare(left, right);
    tie.strength *= kept;
    tie.likeness *= kept;
    if (tie.likeness >= kLeastWithSharedOrigin && shareAny(left.cited, right.cited)) {
        tie.kind = Kind::sharedOrigin;
        tie.strength = tie.likeness = std::min(1.0, tie.likeness + kSharedOriginBonus);
    } else if (tie.strength > 0) {
        tie.kind = Kind::words;
    }
    return tie;
}

}  // namespace kit
