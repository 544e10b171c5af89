#include "Tarnwick_Brell/CommandLine/NameLookup.h"

#include <fmt/format.h>

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Arguments/Suggestion.h"
#include "Tarnwick_Brell/CommandLine/Failure.h"
#include "Tarnwick_Brell/CommandLine/Terminal/TerminalText.h"
#include "Tarnwick_Brell/Desk/SourceRegistry.h"

namespace cli {

namespace {

// The greatest number of similar stories to list.
constexpr std::size_t kMostCandidates = 10;

std::string candidateLines(const std::vector<app::StoredStory>& stories) {
    constexpr std::size_t widestTitle = 60;
    std::string lines;
    for (const auto& stored : stories) {
        lines += fmt::format("\n  {}  {}", stored.story.id,
                             cutTo(printable(stored.story.title), widestTitle));
    }
    return lines;
}

/// The stories whose ids share the longest beginning with `id`, if that is long enough.
std::vector<app::StoredStory> similarStories(app::LocalStore& store, std::string id) {
    constexpr std::size_t shortestBeginning = 4;
    constexpr std::size_t most = 3;
    while (id.size() > shortestBeginning) {
        id.pop_back();
        auto found = store.stories().findByID(id, most + 1);
        if (!found.empty()) return found.size() > most ? std::vector<app::StoredStory>() : found;
    }
    return {};
}

}  // namespace

app::StoredStory storyNamed(app::LocalStore& store, const std::string& id) {
    const auto wanted = kit::lowercasedASCII(id);
    auto found = store.stories().findByID(wanted, kMostCandidates + 1);
    if (found.size() == 1 || (!found.empty() && found.back().story.id == wanted)) {
        return std::move(found.back());
    }
    if (found.empty()) {
        const auto similar = similarStories(store, wanted);
        throw WrongUsage(
            fmt::format("There is no story with the id {}. brell wire shows the ids.{}", id,
                        similar.empty() ? "" : " These are similar:" + candidateLines(similar)));
    }
    const bool hasMore = found.size() > kMostCandidates;
    if (hasMore) found.pop_back();
    throw WrongUsage(fmt::format("Several stories have ids that begin with {}. Add more of it:{}{}",
                                 id, candidateLines(found), hasMore ? "\n  and more" : ""));
}

const kit::NewsSource& sourceNamed(const app::SourceRegistry& registry, const std::string& id) {
    if (const auto* source = registry.find(id)) return *source;
    std::vector<std::string> known;
    for (const auto& source : registry.sources()) known.push_back(source.id);
    throw WrongUsage(fmt::format("There is no source with the id {}.{} brell sources lists them.",
                                 id, arguments::didYouMean(id, known)));
}

void requireKnownSources(app::LocalStore& store, const std::vector<std::string>& ids) {
    if (ids.empty()) return;
    const app::SourceRegistry registry(store.sources());
    for (const auto& id : ids) sourceNamed(registry, id);
}

}  // namespace cli
