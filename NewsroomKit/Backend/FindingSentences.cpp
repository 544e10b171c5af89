#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Backend/ManagedBuild.h"
#include "NewsroomKit/Backend/RecordDiff.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// More records of one kind are told in one sentence.
constexpr std::size_t mostSentences = 40;
constexpr std::size_t longestName = 300;

std::string shortened(std::string_view text) {
    const auto begin = firstCharacters(text, longestName);
    std::string shown(begin);
    std::replace(shown.begin(), shown.end(), '\n', ' ');
    return begin.size() == text.size() ? shown : shown + "…";
}

std::string addedSentence(WatchedSource source, const WatchedRecord& record) {
    if (source == WatchedSource::gdmf) {
        const auto row = managedBuild(record.key);
        return fmt::format("Build {} of {} {} appeared in {}.", row.build, row.platform,
                           row.version, label(source));
    }
    if (source == WatchedSource::robots) {
        return fmt::format("robots.txt now has the line \"{}\".", shortened(record.key));
    }
    return fmt::format("\"{}\" appeared in {}.", shortened(record.key), label(source));
}

std::string removedSentence(WatchedSource source, const WatchedRecord& record) {
    if (source == WatchedSource::gdmf) {
        const auto row = managedBuild(record.key);
        return fmt::format("{} {} ({}) left {}.", row.platform, row.version, row.build,
                           label(source));
    }
    if (source == WatchedSource::robots) {
        return fmt::format("robots.txt no longer has the line \"{}\".", shortened(record.key));
    }
    return fmt::format("\"{}\" is gone from {}.", shortened(record.key), label(source));
}

std::string changedSentence(WatchedSource source, const FieldChange& change) {
    const auto name =
        fmt::format("\"{}\" of \"{}\"", shortened(change.field), shortened(change.key));
    if (!change.before) {
        return fmt::format("{} in {} is now \"{}\".", name, label(source),
                           shortened(*change.after));
    }
    if (!change.after) return fmt::format("{} in {} is gone.", name, label(source));
    return fmt::format("{} in {} changed from \"{}\" to \"{}\".", name, label(source),
                       shortened(*change.before), shortened(*change.after));
}

void addSentence(std::vector<std::string>& sentences, std::string sentence) {
    // The same build stands in several sets.
    if (std::find(sentences.begin(), sentences.end(), sentence) == sentences.end()) {
        sentences.push_back(std::move(sentence));
    }
}

}  // namespace

std::vector<std::string> findingSentences(WatchedSource source, const RecordDiff& diff) {
    if (isRebuilt(source, diff)) {
        return {fmt::format("The site map was rebuilt: {} addresses are new, {} are gone.",
                            diff.added.size(), diff.removed.size())};
    }
    std::vector<std::string> sentences;
    const auto tell = [&](const auto& list, std::string_view what, auto sentence) {
        if (list.size() > mostSentences) {
            return addSentence(sentences,
                               fmt::format("{} {} {}.", list.size(), what, label(source)));
        }
        for (const auto& one : list) addSentence(sentences, sentence(source, one));
    };
    tell(diff.added, "entries appeared in", addedSentence);
    tell(diff.removed, "entries are gone from", removedSentence);
    tell(diff.changed, "fields changed in", changedSentence);
    return sentences;
}

}  // namespace kit
