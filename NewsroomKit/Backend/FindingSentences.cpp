#include <algorithm>
#include <string_view>

#include <fmt/format.h>

#include "NewsroomKit/Backend/RecordDiff.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

/// More records of one kind are told in one sentence.
constexpr std::size_t mostSentences = 40;
/// A site map from which so many addresses come or go was made anew.
constexpr std::size_t rebuiltSiteMap = 200;
constexpr std::size_t longestName = 300;

std::string shortened(std::string_view text) {
    const auto begin = firstCharacters(text, longestName);
    std::string shown(begin);
    std::replace(shown.begin(), shown.end(), '\n', ' ');
    return begin.size() == text.size() ? shown : shown + "…";
}

/// "AssetSets macOS 26.6.2 25G83" in parts.
struct ManagedVersion {
    std::string_view platform;
    std::string_view version;
    std::string_view build;
};

ManagedVersion managedVersion(std::string_view key) {
    const auto platform = std::min(key.find(' '), key.size() - 1) + 1;
    const auto version = std::min(key.find(' ', platform), key.size() - 1) + 1;
    const auto build = key.rfind(' ');
    if (build == std::string_view::npos || build < version) return {key, {}, {}};
    return {key.substr(platform, version - platform - 1), key.substr(version, build - version),
            key.substr(build + 1)};
}

std::string addedSentence(WatchedSource source, const WatchedRecord& record) {
    if (source == WatchedSource::gdmf) {
        const auto row = managedVersion(record.key);
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
        const auto row = managedVersion(record.key);
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
    if (source == WatchedSource::sitemap &&
        diff.added.size() + diff.removed.size() > rebuiltSiteMap) {
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
