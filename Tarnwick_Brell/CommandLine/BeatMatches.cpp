#include "Tarnwick_Brell/CommandLine/BeatMatches.h"

#include <fmt/format.h>

#include "Tarnwick_Brell/CommandLine/StoryText.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/CommandLine/StoryRow.h"

namespace cli {

std::vector<std::vector<app::StoredStory>> matchedLately(
    Session& session, const std::vector<kit::StoryQuery>& queries, int days) {
    std::vector<kit::CompiledStoryQuery> compiled;
    for (const auto& query : queries) compiled.push_back(query.compiled());
    std::vector<std::vector<app::StoredStory>> matched(queries.size());
    const auto since = session.now() - std::chrono::days(days);
    session.storeForReading().stories().eachInWireOrder(since, [&](const app::StoredStory& stored) {
        for (std::size_t i = 0; i < compiled.size(); ++i) {
            if (compiled[i].matches(stored.story)) matched[i].push_back(stored);
        }
        return true;
    });
    return matched;
}

void printMatches(Session& session, const kit::StoryQuery& query,
                  const std::vector<app::StoredStory>& matched, int days) {
    const auto compiled = query.compiled();
    auto& out = session.out();
    if (session.options().json) {
        boost::json::array stories;
        for (const auto& stored : matched) {
            boost::json::object entry{{"story", storyRecord(stored)}};
            if (const auto term = compiled.matchedTerm(stored.story)) entry["term"] = *term;
            stories.push_back(std::move(entry));
        }
        out.line(boost::json::serialize(
            boost::json::object{{"days", days}, {"matches", std::move(stories)}}));
        return;
    }
    out.line(fmt::format("Would have matched {} {} of the last {} days{}", matched.size(),
                         matched.size() == 1 ? "story" : "stories", days,
                         matched.empty() ? "." : ":"));
    for (const auto& stored : matched) {
        out.line(wireLine(out, stored, session.now()));
        if (const auto term = compiled.matchedTerm(stored.story))
            out.line(out.dim("    mentions " + printable(*term)));
    }
}

}  // namespace cli
