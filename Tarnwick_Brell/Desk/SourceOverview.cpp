#include "Tarnwick_Brell/Desk/SourceOverview.h"

#include <algorithm>
#include <tuple>

#include "NewsroomKit/Text/Folding.h"

namespace app {

namespace {

/// A line's value in an order: text, or a number that may be unknown.
struct SortKey {
    int rank = 0;
    std::optional<std::int64_t> number{};
    std::string text{};
};

std::optional<std::int64_t> ticksOf(const std::optional<kit::Instant>& moment) {
    if (!moment) return std::nullopt;
    return moment->time_since_epoch().count();
}

SortKey keyOf(const SourceLine& line, SourceOrder order) {
    const auto group = static_cast<int>(line.source.category);
    switch (order) {
        case SourceOrder::attention: return {line.isFailing() ? -1 : group, 0, {}};
        case SourceOrder::name: return {0, 0, kit::fold(line.source.name)};
        case SourceOrder::group: return {group, 0, {}};
        case SourceOrder::lastSuccess: return {0, ticksOf(line.status.lastSuccess), {}};
        // Without a moment of its own the source is tried with the next pass.
        case SourceOrder::nextTry:
            return {line.isOn ? 0 : 1, ticksOf(line.nextTry).value_or(0), {}};
        case SourceOrder::stories: return {0, line.recentStories, {}};
        case SourceOrder::latency: return {0, line.health.latency, {}};
        case SourceOrder::size: return {0, line.health.bytes, {}};
    }
    return {};
}

TrySpan::Kind kindOf(SourceTry::Outcome outcome) {
    switch (outcome) {
        case SourceTry::Outcome::unchanged: return TrySpan::Kind::unchanged;
        case SourceTry::Outcome::full: return TrySpan::Kind::full;
        case SourceTry::Outcome::news: return TrySpan::Kind::news;
        case SourceTry::Outcome::failed: return TrySpan::Kind::failed;
    }
    return TrySpan::Kind::none;
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    const auto folded = kit::fold(text);
    std::size_t from = 0;
    while (from < folded.size()) {
        const auto end = std::min(folded.find(' ', from), folded.size());
        if (end > from) words.push_back(folded.substr(from, end - from));
        from = end + 1;
    }
    return words;
}

bool hasWords(const SourceLine& line, const std::vector<std::string>& words) {
    if (words.empty()) return true;
    const auto& source = line.source;
    const auto text = kit::fold(source.name + '\n' + std::string(label(source.category)) + '\n' +
                                source.feedURL + '\n' + source.siteURL);
    return std::all_of(words.begin(), words.end(),
                       [&](const auto& word) { return text.find(word) != std::string::npos; });
}

}  // namespace

SourceState stateOf(const SourceStatus& status, const SourceHealth& health) {
    if (status.lastError) return SourceState::failing;
    if (!status.lastSuccess) return SourceState::never;
    const auto& full = health.lastFullFetch;
    return full && *full >= *status.lastSuccess ? SourceState::fresh : SourceState::unchanged;
}

std::set<std::string, std::less<>> sourcesNotInAll(const SourceTable::Options& options) {
    std::set<std::string, std::less<>> ids;
    for (const auto& [id, option] : options) {
        if (option.notInAll) ids.insert(id);
    }
    return ids;
}

bool isIn(SourceSubset subset, const SourceLine& line) {
    switch (subset) {
        case SourceSubset::all: return true;
        case SourceSubset::on: return line.isOn;
        case SourceSubset::failing: return line.isFailing();
        case SourceSubset::own: return line.isOwn();
    }
    return true;
}

std::vector<std::size_t> chosenSources(const std::vector<SourceLine>& lines,
                                       const SourceChoice& choice) {
    const auto words = wordsOf(choice.words);
    std::vector<std::pair<SortKey, std::size_t>> keyed;
    for (std::size_t place = 0; place < lines.size(); ++place) {
        const auto& line = lines[place];
        if (choice.group && line.source.category != *choice.group) continue;
        if (!isIn(choice.subset, line) || !hasWords(line, words)) continue;
        keyed.emplace_back(keyOf(line, choice.order), place);
    }
    std::stable_sort(keyed.begin(), keyed.end(), [&](const auto& left, const auto& right) {
        const auto& [a, b] = std::tie(left.first, right.first);
        if (a.number.has_value() != b.number.has_value()) return a.number.has_value();
        const auto rising = std::tie(a.rank, a.number, a.text);
        const auto other = std::tie(b.rank, b.number, b.text);
        return choice.isReversed ? other < rising : rising < other;
    });
    std::vector<std::size_t> places;
    for (const auto& [key, place] : keyed) places.push_back(place);
    return places;
}

TryHistory tryHistory(const std::vector<SourceTry>& tries, kit::Instant now) {
    TryHistory history;
    const auto begin = now - kTriesKept;
    for (auto from = begin; from < now; from += kTrySpan) history.spans.push_back({.from = from});
    bool isRun = false;
    for (const auto& attempt : tries) {
        // After the clock was set back, a try may lie in the future.
        if (attempt.at < begin || attempt.at >= now + kTrySpan) continue;
        const auto place = static_cast<std::size_t>((attempt.at - begin) / kTrySpan);
        auto& span = history.spans[std::min(place, history.spans.size() - 1)];
        ++history.tries;
        ++span.tries;
        span.added += attempt.added;
        span.kind = std::max(span.kind, kindOf(attempt.outcome));
        const bool isFailure = attempt.outcome == SourceTry::Outcome::failed;
        if (isFailure) {
            ++history.failed;
            ++span.failed;
            auto& runs = history.failures;
            if (!isRun || runs.back().reason != attempt.reason)
                runs.push_back({.from = attempt.at, .reason = attempt.reason});
            runs.back().to = attempt.at;
            ++runs.back().tries;
        }
        isRun = isFailure;
    }
    std::ranges::reverse(history.failures);
    return history;
}

}  // namespace app
