#include "Tarnwick_Brell/Storage/Tables/StoryMerge.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>

#include "NewsroomKit/Ingestion/CreditExtraction.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/StoryNumber.h"
#include "Tarnwick_Brell/Storage/Tables/StoryTable.h"

namespace app {

using kit::Story;

namespace {

constexpr std::int64_t kMostWordings = 20;
// So many different headlines must come back for a feed to count as one with rotating links.
constexpr std::size_t kFewestRepeats = 3;
constexpr std::chrono::hours kSamePublication{1};

constexpr std::string_view kFind =
    "SELECT number, link, sourceID, title, summary, author FROM stories WHERE id = ?";
constexpr std::string_view kDeparted = "UPDATE departed SET lastSeen = ?2 WHERE id = ?1";
constexpr std::string_view kSameTitle =
    "SELECT id, publishedAt FROM stories WHERE titleKey = ? AND sourceID = ? "
    "ORDER BY number DESC LIMIT 20";
constexpr std::string_view kHighest =
    "SELECT max(number) FROM stories WHERE number >= ?1 AND number < ?2";
constexpr std::string_view kTaken = "SELECT 1 FROM stories WHERE number = ?";

// Parameters 1 to 16 as bindStory gives them; the others where the statements are used.
constexpr std::string_view kInsert =
    "INSERT INTO stories (id, link, title, summary, author, publishedAt, imageURL, sourceID, "
    "sourceName, destinationName, isAppleSource, kind, sourcing, wordpressID, articleLink, "
    "credits, titleKey, stamp, number, firstSeen, arrival) "
    "VALUES (?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12,?13,?14,?15,?16,?17,?18,?19,?20,?21)";

// The identity and the times stay; a row that is the same already is not written again.
constexpr std::string_view kRevise =
    "UPDATE stories SET title=?3, summary=?4, author=?5, imageURL=?7, sourceName=?9, "
    "destinationName=?10, isAppleSource=?11, kind=?12, sourcing=?13, wordpressID=?14, "
    "articleLink=coalesce(?15, articleLink), credits=?16, titleKey=?17, stamp=?18 "
    "WHERE number=?19 AND (title, summary, author, imageURL, sourceName, destinationName, "
    "isAppleSource, kind, sourcing, wordpressID, credits) "
    "IS NOT (?3,?4,?5,?7,?9,?10,?11,?12,?13,?14,?16)";

constexpr std::string_view kAddWording =
    "INSERT INTO wordings (number, title, replacedAt) VALUES (?, ?, ?) "
    "ON CONFLICT (number, title) DO NOTHING";
// Of too many the first stays, because it is what was published.
constexpr std::string_view kTrimWordings =
    "DELETE FROM wordings WHERE number = ?1 AND title IN (SELECT title FROM wordings "
    "WHERE number = ?1 ORDER BY replacedAt LIMIT 1 OFFSET 1) "
    "AND (SELECT count(*) FROM wordings WHERE number = ?1) > ?2";

void bindStory(Statement& statement, const Story& story, const std::string& credits) {
    statement.bind(0, story.id).bind(1, story.link).bind(2, story.title).bind(3, story.summary);
    statement.bind(4, story.author)
        .bind(5, microseconds(story.publishedAt))
        .bind(6, story.imageURL);
    statement.bind(7, story.sourceID).bind(8, story.sourceName).bind(9, story.destinationName);
    statement.bind(10, std::int64_t{story.isAppleSource}).bind(11, rawValue(story.kind));
    statement.bind(12, rawValue(story.sourcing))
        .bind(13, story.wordpressID)
        .bind(14, story.articleLink);
    statement.bind(15, credits).bind(16, titleKey(story.title));
}

}  // namespace

MergeCount& MergeCount::operator+=(const MergeCount& other) {
    added += other.added;
    revised += other.revised;
    collapsed += other.collapsed;
    moved += other.moved;
    collided += other.collided;
    bulk = bulk || other.bulk;
    return *this;
}

/// A story of the library, as far as a merge needs it.
struct StoryMerge::Known {
    std::int64_t number = 0;
    std::string link{};
    std::string sourceID{};
    SearchIndex::Text text{};
};

/// A fetch sorted into what is new and what is known.
struct StoryMerge::Plan {
    struct Step {
        const Story* story;
        std::int64_t place;          ///< in the wire, roughly
        std::optional<Known> known;  ///< absent: to be added
    };
    std::vector<Step> steps{};
    std::set<std::string_view> ids{};  ///< of the whole fetch
    std::size_t knownOnes = 0;
};

StoryMerge::StoryMerge(Database& database, SearchIndex& index)
    : database_(database),
      index_(index),
      find_(database, kFind),
      departed_(database, kDeparted),
      sameTitle_(database, kSameTitle),
      highest_(database, kHighest),
      taken_(database, kTaken),
      insert_(database, kInsert),
      revise_(database, kRevise),
      addWording_(database, kAddWording),
      trimWordings_(database, kTrimWordings),
      pendingMarks_(database),
      articleCredits_(database) {}

Merged StoryMerge::merge(std::span<const Story> stories, const Fetch& fetch, std::int64_t stamp) {
    Merged merged;
    Plan planned = plan(stories, fetch.seen, merged.count);
    // A source that was never fetched has nothing that could have moved.
    if (!fetch.isFirst) dropMoved(planned, merged.count);
    const auto fresh =
        static_cast<std::size_t>(std::count_if(planned.steps.begin(), planned.steps.end(),
                                               [](const Plan::Step& step) { return !step.known; }));
    merged.count.bulk = !fetch.isFirst && fresh > fetch.mostFresh;
    const auto arrivalOf = [&](const Story& story) {
        if (fetch.isFirst) return Arrival::seeded;
        if (merged.count.bulk) return Arrival::bulk;
        return fetch.seen - story.publishedAt > kNews ? Arrival::late : Arrival::fresh;
    };
    // By number: the full-text index writes a piece of its own whenever numbers fall. Of
    // stories of one moment the later ids come first, so that the earlier ones lie higher.
    std::sort(planned.steps.begin(), planned.steps.end(), [](const auto& a, const auto& b) {
        return a.place != b.place ? a.place < b.place : a.story->id > b.story->id;
    });
    for (const auto& [story, place, known] : planned.steps) {
        if (!known) {
            merged.added.push_back(insert(*story, fetch, arrivalOf(*story), stamp));
        } else if (auto revised = revise(*story, *known, fetch, stamp)) {
            merged.revised.push_back(std::move(*revised));
        }
    }
    merged.count.added = merged.added.size();
    merged.count.revised = merged.revised.size();
    return merged;
}

StoryMerge::Plan StoryMerge::plan(std::span<const Story> stories, kit::Instant seen,
                                  MergeCount& count) {
    Plan plan;
    std::map<std::string_view, std::string_view> links;
    for (const Story& story : stories) {
        const auto [entry, isFirst] = links.emplace(story.id, story.link);
        if (!isFirst) {
            ++(entry->second == story.link ? count.collapsed : count.collided);
            continue;
        }
        plan.ids.insert(story.id);
        auto known = find(story);
        if (!known && hasDeparted(story, seen)) continue;
        if (!known) {
            plan.steps.push_back({&story, firstStoryNumber(story.publishedAt), std::nullopt});
            continue;
        }
        ++plan.knownOnes;
        if (known->link != story.link) {
            ++count.collided;
        } else if (known->sourceID == story.sourceID) {
            const auto place = known->number;
            plan.steps.push_back({&story, place, std::move(known)});
        }
    }
    return plan;
}

bool StoryMerge::hasDeparted(const Story& story, kit::Instant seen) {
    if (!isUndated(story.publishedAt, seen)) return false;
    departed_.bind(0, story.id).bind(1, microseconds(seen));
    departed_.run();
    return database_.changes() > 0;
}

std::optional<StoryMerge::Known> StoryMerge::find(const Story& story) {
    find_.bind(0, story.id);
    std::optional<Known> known;
    if (find_.step()) {
        known = Known{
            .number = find_.number(0),
            .link = find_.text(1),
            .sourceID = find_.text(2),
            .text = {
                .title = find_.text(3), .summary = find_.text(4), .author = find_.optionalText(5)}};
    }
    find_.reset();
    return known;
}

void StoryMerge::dropMoved(Plan& plan, MergeCount& count) {
    std::set<std::int64_t> repeated;
    std::size_t unknown = 0;
    for (const auto& step : plan.steps) {
        if (step.known) continue;
        ++unknown;
        if (hasMoved(*step.story, plan, true)) repeated.insert(titleKey(step.story->title));
    }
    // Not one link of the feed is known, but most of its headlines are.
    const bool linksRotate =
        plan.knownOnes == 0 && repeated.size() >= kFewestRepeats && repeated.size() * 2 >= unknown;
    count.moved = std::erase_if(plan.steps, [&](const Plan::Step& step) {
        return !step.known && hasMoved(*step.story, plan, linksRotate);
    });
}

bool StoryMerge::hasMoved(const Story& story, const Plan& plan, bool linksRotate) {
    sameTitle_.bind(0, titleKey(story.title)).bind(1, story.sourceID);
    bool moved = false;
    while (!moved && sameTitle_.step()) {
        const auto apart = abs(story.publishedAt - instantOf(sameTitle_.number(1)));
        const bool gone = !plan.ids.contains(sameTitle_.text(0));
        moved = gone && (linksRotate || apart <= kSamePublication);
    }
    sameTitle_.reset();
    return moved;
}

std::int64_t StoryMerge::freeNumber(const Story& story) {
    const auto first = firstStoryNumber(story.publishedAt);
    highest_.bind(0, first).bind(1, first + kStoriesPerMicrosecond);
    highest_.step();
    auto number = highest_.isNull(0) ? first : highest_.number(0) + 1;
    highest_.reset();
    // More stories of one moment than it has room for spill into the next ones.
    for (bool taken = number - first >= kStoriesPerMicrosecond; taken;) {
        taken_.bind(0, number);
        taken = taken_.step();
        taken_.reset();
        if (taken) ++number;
    }
    return number;
}

StoredStory StoryMerge::insert(const Story& story, const Fetch& fetch, Arrival arrival,
                               std::int64_t stamp) {
    const auto credits = StoryTable::creditsText(story.credits);
    const auto number = freeNumber(story);
    bindStory(insert_, story, credits);
    insert_.bind(17, stamp).bind(18, number).bind(19, microseconds(fetch.seen));
    insert_.bind(20, kit::rawValue(arrival));
    insert_.run();
    index_.add(number);
    StoredStory added{
        .story = story, .number = number, .firstSeen = fetch.seen, .arrival = arrival};
    if (const auto marks = pendingMarks_.apply(story.id, number, stamp)) {
        added.readAt = marks->readAt;
        added.savedAt = marks->savedAt;
    }
    return added;
}

std::optional<StoredStory> StoryMerge::revise(const Story& story, const Known& known,
                                              const Fetch& fetch, std::int64_t stamp) {
    const auto ofPage = articleCredits_.find(story.id);
    const auto credits = StoryTable::creditsText(
        ofPage.empty() ? story.credits : kit::joinedCredits(story.credits, ofPage));
    bindStory(revise_, story, credits);
    revise_.bind(17, stamp).bind(18, known.number);
    revise_.run();
    if (database_.changes() == 0) return std::nullopt;
    if (known.text.title != story.title) storeWording(known.number, known.text.title, fetch.seen);
    if (known.text != SearchIndex::Text{story.title, story.summary, story.author}) {
        index_.replace(known.number, known.text);
    }
    return StoryTable::uncorrectedIn(database_, known.number);
}

void StoryMerge::storeWording(std::int64_t number, const std::string& title,
                              kit::Instant replacedAt) {
    addWording_.bind(0, number).bind(1, title).bind(2, microseconds(replacedAt));
    addWording_.run();
    trimWordings_.bind(0, number).bind(1, kMostWordings);
    trimWordings_.run();
}

}  // namespace app
