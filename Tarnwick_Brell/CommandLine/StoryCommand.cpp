#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Addresses/URLRedaction.h"
#include "NewsroomKit/Editorial/LabelReasons.h"
#include "NewsroomKit/Panels/RecentClusters.h"
#include "NewsroomKit/Stories/StoryJSON.h"
#include "Tarnwick_Brell/CommandLine/Command.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/NameLookup.h"
#include "Tarnwick_Brell/CommandLine/PanelHoldings.h"
#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/ValueText.h"

namespace cli {

namespace {

using kit::Story;
using Wordings = std::vector<app::EarlierWording>;

constexpr std::size_t kWidestText = 88;
constexpr std::size_t kNameColumns = 12;

std::size_t textWidth(const Output& out) { return std::min(out.width(), kWidestText); }

/// Wraps long values; an address or id is one word and stays whole.
void printField(Output& out, std::string_view name, std::string_view value) {
    if (value.empty()) return;
    const auto lines =
        out.isTerminal() ? wrapped(printable(value), textWidth(out), std::string(kNameColumns, ' '))
                               .substr(kNameColumns)
                         : printable(value);
    out.line(padTo(name, kNameColumns) + lines);
}

void printCredits(Output& out, const Story& story) {
    for (const auto& credit : story.credits) {
        std::string line = credit.name;
        if (credit.platform) line += " on " + *credit.platform;
        if (credit.postedAt) line += ", " + momentText(*credit.postedAt);
        if (credit.detail) line += " (“" + *credit.detail + "”)";
        if (credit.url) line += "  " + kit::maskedLogins(*credit.url);
        printField(out, "Credits", line);
    }
}

std::string arrivalNote(app::Arrival arrival) {
    switch (arrival) {
        case app::Arrival::fresh: return "";
        case app::Arrival::seeded: return " (with the first fetch of its source)";
        case app::Arrival::bulk: return " (with many others, as when an archive is republished)";
        case app::Arrival::late: return " (more than three days after it was published)";
    }
    return "";
}

/// The cluster that panels and the window show the story in.
struct OwnCluster {
    kit::StoryCluster cluster{};  ///< without stories when there is none
    std::string why{};            ///< empty for the leader

    bool exists() const { return !cluster.storyIDs.empty(); }
};

OwnCluster clusterHolding(Session& session, const Story& story) {
    PanelHoldings holdings(session, session.now());
    if (story.publishedAt < holdings.now() - kit::RecentClusters::kSpan) return {};
    for (const auto& cluster : holdings.clusters()) {
        const auto& ids = cluster.storyIDs;
        const auto own = std::find(ids.begin(), ids.end(), story.id);
        if (own == ids.end()) continue;
        return {cluster, cluster.whys[static_cast<std::size_t>(own - ids.begin())]};
    }
    return {};
}

std::string clusterText(const OwnCluster& own) {
    if (!own.exists()) return "";
    const auto count = own.cluster.storyIDs.size();
    return own.why.empty() ? fmt::format("The first of {} stories of the same news.", count)
                           : fmt::format("One of {} stories of the same news. {}", count, own.why);
}

/// What the rules say, and what the user says instead.
struct LabelAnswers {
    bool isCorrected = false;  // the others set it
    std::string kind;
    std::string sourcing;

    LabelAnswers(const Story& rules, const Story& shown)
        : kind(corrected(kindReason(rules), rules.kind, shown.kind)),
          sourcing(corrected(sourcingReason(rules), rules.sourcing, shown.sourcing)) {}

private:
    template <class E>
    std::string corrected(std::string reason, E rules, E shown) {
        if (rules == shown) return reason;
        isCorrected = true;
        const auto name = [](E value) {
            return kit::label(value).empty() ? "Unlabeled" : kit::label(value);
        };
        return fmt::format("{} → {}, corrected by you. {}", name(rules), name(shown), reason);
    }
};

void print(Session& session, const app::StoredStory& stored, const LabelAnswers& why,
           const Wordings& wordings) {
    const Story& story = stored.story;
    Output& out = session.out();
    out.line(out.bold(out.link(story.link, wrapped(printable(story.title), textWidth(out), ""))));
    for (const auto& wording : wordings) {
        out.line(out.dim(wrapped(
            "Until " + momentText(wording.replacedAt) + ": “" + printable(wording.title) + "”",
            textWidth(out), "")));
    }
    if (!story.summary.empty()) {
        out.line();
        out.line(wrapped(printable(story.summary), textWidth(out), ""));
    }
    out.line();
    printField(out, "Outlet", outletLine(story));
    printField(out, "Author", story.author.value_or(""));
    printField(
        out, "Published",
        momentText(story.publishedAt) + " (" + agoText(story.publishedAt, session.now()) + ")");
    printField(out, "First seen", momentText(stored.firstSeen) + arrivalNote(stored.arrival));
    printField(out, "Read", stored.readAt ? momentText(*stored.readAt) : "no");
    printField(out, "Saved", stored.savedAt ? momentText(*stored.savedAt) : "no");
    printField(out, "Kind", why.kind);
    printField(out, "Sourcing", why.sourcing);
    printField(out, "Cluster", clusterText(clusterHolding(session, story)));
    printCredits(out, story);
    printField(out, "Link", kit::maskedLogins(story.link));
    printField(out, "Article", kit::maskedLogins(story.articleLink.value_or("")));
    printField(out, "Picture", kit::maskedLogins(story.imageURL.value_or("")));
    if (story.wordpressID) printField(out, "Post number", std::to_string(*story.wordpressID));
    printField(out, "Source id", story.sourceID);
    printField(out, "Story id", story.id);
}

void printJSON(Session& session, const app::StoredStory& stored, const LabelAnswers& why,
               const Wordings& wordings) {
    auto object = storyRecord(stored);
    object["arrival"] = kit::encode(stored.arrival);
    if (stored.readAt) object["readAt"] = kit::encode(*stored.readAt);
    if (stored.savedAt) object["savedAt"] = kit::encode(*stored.savedAt);
    auto& earlier = object["earlierTitles"].emplace_array();
    for (const auto& wording : wordings) {
        earlier.push_back(
            {{"title", wording.title}, {"replacedAt", kit::encode(wording.replacedAt)}});
    }
    object["why"] = {{"kind", why.kind}, {"sourcing", why.sourcing}};
    object["corrected"] = why.isCorrected;
    if (const auto own = clusterHolding(session, stored.story); own.exists()) {
        auto& cluster = object["cluster"].emplace_object();
        cluster["id"] = own.cluster.id;
        cluster["stories"] = kit::encode(own.cluster.storyIDs);
        if (!own.why.empty()) cluster["why"] = own.why;
    }
    session.out().line(boost::json::serialize(object));
}

int runStory(Session& session, const std::string& id) {
    auto& store = session.storeForReading();
    const auto stored = storyNamed(store, id);
    const auto wordings = store.stories().earlierWordings(stored.number);
    const auto rules = store.stories().uncorrected(stored.number).value_or(stored);
    const LabelAnswers why(rules.story, stored.story);
    session.options().json ? printJSON(session, stored, why, wordings)
                           : print(session, stored, why, wordings);
    return kDone;
}

}  // namespace

void addStoryCommand(arguments::Command& app, Command& chosen) {
    auto id = std::make_shared<std::string>();
    auto command = app.subcommand("story", "Show one story, and why it is labelled as it is");
    command.option("ID", *id, "The story's id or its beginning, as brell wire shows it").required();
    command.whenChosen(
        [id, &chosen] { chosen = [id](Session& session) { return runStory(session, *id); }; });
}

}  // namespace cli
