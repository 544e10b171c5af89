#include "NewsroomKit/Panels/ActivityContent.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <set>

#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Trackers/Signing/SigningNews.h"
#include "NewsroomKit/Trackers/Signing/SigningSignals.h"

namespace kit {

namespace {

using WordSet = std::set<std::string, std::less<>>;

// Words of the desk's own titles that tell nothing of their subject, folded.
constexpr std::string_view kEmptyWords[]{
    "after",  "again",  "and",   "app",    "apple", "apps",    "are",     "build",  "catalogue",
    "enters", "for",    "free",  "from",   "had",   "has",     "is",      "its",    "leads",
    "longer", "min",    "new",   "no",     "not",   "now",     "of",      "offers", "one",
    "other",  "others", "out",   "over",   "paid",  "problem", "several", "signed", "that",
    "the",    "top",    "under", "update", "was",   "with",    "works",   "outage"};

bool isWordByte(char c) {
    // Bytes above ASCII are parts of letters.
    return isASCIIAlphanumeric(c) || static_cast<unsigned char>(c) >= 0x80;
}

/// The folded words of a text; a version such as "27.1.1" is one. The possessive's "s" is left out.
WordSet tellingWords(std::string_view text) {
    const auto folded = fold(text);
    WordSet words;
    std::string word;
    const auto finish = [&] {
        while (word.ends_with('.')) word.pop_back();
        const bool isShort = word.size() < 2;
        if (!isShort && std::ranges::find(kEmptyWords, word) == std::end(kEmptyWords))
            words.insert(word);
        word.clear();
    };
    for (const char c : folded) {
        if (isWordByte(c) || (c == '.' && !word.empty())) {
            word += c;
        } else {
            finish();
        }
    }
    finish();
    return words;
}

/// One word in common says little where there are several.
bool sharesWords(const WordSet& wanted, const Story& story) {
    constexpr std::size_t kMany = 3;
    if (wanted.empty()) return false;
    const auto words = tellingWords(story.title);
    const auto common = std::ranges::count_if(
        wanted, [&](const std::string& word) { return words.contains(word); });
    return common >= (wanted.size() >= kMany ? 2 : 1);
}

/// The signing signals that were seen together, in rows of one build.
bool joinSigning(std::vector<ActivityRow>& rows, std::vector<std::vector<SigningChange>>& changes,
                 const LoggedSignal& logged) {
    const auto change = signingChangeOf(logged.signal);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (changes[i].empty()) continue;
        auto joined = changes[i];
        joined.push_back(change);
        const auto news = signingNews(joined);
        if (news.size() != 1) continue;
        rows[i].title = news.front().title();
        rows[i].devices = news.front().devices;
        changes[i] = std::move(joined);
        return true;
    }
    return false;
}

}  // namespace

std::vector<ActivityRow> activityRows(std::span<const LoggedSignal> log, std::int64_t lookedAt) {
    std::vector<ActivityRow> rows;
    std::vector<std::vector<SigningChange>> changes;  // of each row
    for (const auto& logged : log) {
        const auto& signal = logged.signal;
        const bool isSigning = signal.kind == SignalKind::signing;
        if (isSigning && joinSigning(rows, changes, logged)) continue;
        rows.push_back(
            {.logged = logged, .title = signal.title, .isNew = logged.number > lookedAt});
        changes.emplace_back();
        if (isSigning) changes.back().push_back(signingChangeOf(signal));
    }
    return rows;
}

ActivityWire wireAround(const Signal& signal, std::span<const PanelStory> stories) {
    ActivityWire wire{.from = signal.seenAt - kWireAround, .to = signal.seenAt + kWireAround};
    const auto words = tellingWords(signal.title);
    for (const auto& story : stories) {
        const auto at = story.story->publishedAt;
        if (at < wire.from || at > wire.to) continue;
        auto& part = sharesWords(words, *story.story) ? wire.shared : wire.others;
        part.push_back(StoryMention::of(story));
    }
    for (auto* part : {&wire.shared, &wire.others})
        std::ranges::stable_sort(*part, {}, &StoryMention::publishedAt);
    if (!wire.shared.empty()) wire.lead = wire.shared.front().publishedAt - signal.seenAt;
    return wire;
}

}  // namespace kit
