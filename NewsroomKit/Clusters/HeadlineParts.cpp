#include "NewsroomKit/Clusters/HeadlineParts.h"

#include <algorithm>

#include <fmt/format.h>

namespace kit {

namespace {

// Bare numbers say little because model numbers and counts recur. Full versions and sums don't.
constexpr double kNumberShare = 0.03;
constexpr double kMeasureShare = 0.002;

}  // namespace

bool HeadlinePart::isTopic() const {
    if (!known) return false;
    switch (known->role) {
        case WordRole::system:
        case WordRole::device:
        case WordRole::model:
        case WordRole::service:
        case WordRole::reporter: return true;
        case WordRole::function:
        case WordRole::common:
        case WordRole::sense:
        case WordRole::event:
        case WordRole::company:
        case WordRole::stage:
        case WordRole::audience:
        case WordRole::place:
        case WordRole::person: return false;
    }
    return false;
}

HeadlineParts::HeadlineParts(std::string_view text)
    : vocabulary_(ClusterVocabulary::shared()), tokens_(headlineTokens(text)) {
    parts_.reserve(tokens_.size());
    for (std::size_t at = 0; at < tokens_.size(); at += parts_.back().count) addNext(at);
}

void HeadlineParts::addNext(std::size_t at) {
    if (const Alias* alias = aliasAt(at)) {
        const KnownWord& word = vocabulary_.words()[alias->word];
        parts_.push_back({.token = at,
                          .count = alias->rest.size() + 1,
                          .key = word.key,
                          .share = word.share,
                          .known = &word});
        return;
    }
    const bool isNumber = tokens_[at].isNumber || spelledNumber(tokens_[at].text).has_value();
    parts_.push_back(isNumber ? numberAt(at) : HeadlinePart{.token = at, .key = tokens_[at].key});
}

const HeadlineParts::Alias* HeadlineParts::aliasAt(std::size_t at) const {
    for (const Alias& alias : vocabulary_.beginningWith(tokens_[at].key)) {
        if (at + alias.rest.size() >= tokens_.size()) continue;
        bool fits = true;
        for (std::size_t next = 0; next < alias.rest.size() && fits; ++next) {
            fits = tokens_[at + 1 + next].key == alias.rest[next];
        }
        if (fits && (!alias.needsContext() || isBeside(alias, at))) return &alias;
    }
    return nullptr;
}

bool HeadlineParts::isBeside(const Alias& alias, std::size_t at) const {
    for (std::size_t other = 0; other < tokens_.size(); ++other) {
        if (other >= at && other <= at + alias.rest.size()) continue;
        const auto key = tokens_[other].key;
        if (std::find(alias.besides.begin(), alias.besides.end(), key) != alias.besides.end()) {
            return true;
        }
        for (const WordRole role : alias.besidesRoles) {
            for (const Alias& named : vocabulary_.beginningWith(key)) {
                const bool isFull = std::equal(
                    named.rest.begin(), named.rest.end(),
                    tokens_.begin() + static_cast<std::ptrdiff_t>(other) + 1,
                    tokens_.begin() + static_cast<std::ptrdiff_t>(
                                          std::min(other + 1 + named.rest.size(), tokens_.size())),
                    [](std::uint64_t wanted, const HeadlineToken& token) {
                        return wanted == token.key;
                    });
                if (isFull && vocabulary_.words()[named.word].role == role) return true;
            }
        }
    }
    return false;
}

const std::string& HeadlineParts::textAt(std::size_t at) const {
    static const std::string none;
    return at < tokens_.size() ? tokens_[at].text : none;
}

HeadlinePart HeadlineParts::numberAt(std::size_t at) const {
    const std::string& text = tokens_[at].text;
    HeadlinePart part{.token = at, .key = tokens_[at].key};
    if (const auto spelled = spelledNumber(text)) {
        part.number = HeadlineNumber{.text = text, .value = static_cast<double>(*spelled)};
    } else {
        part.isBuild = isBuildNumber(text);
        part.number = headlineNumber(text);
    }
    if (!part.number || part.isBuild) return part;
    addAmount(part);
    if (part.unit.empty() && part.currency == 0 && !part.hasMagnitude) {
        const auto& number = *part.number;
        part.share = number.isVersion ? 0 : kNumberShare;
        part.key = number.isVersion || !number.prefix.empty() || !number.suffix.empty()
                       ? textKey(text)
                       : textKey(fmt::format("={}", number.value));
    } else {
        part.share = kMeasureShare;
        part.key = textKey(fmt::format("={:.3g} {}", part.amount, part.unit));
    }
    return part;
}

void HeadlineParts::addAmount(HeadlinePart& part) const {
    const auto& number = *part.number;
    part.amount = number.value;
    part.currency = tokens_[part.token].currency;
    double magnitude = number.suffix.empty() ? 0 : magnitudeOf(number.suffix);
    // "8k" and "4m" are sums only where a currency says so; "mn" and "bn" always are.
    if (magnitude > 0 && number.suffix.size() == 1 && part.currency == 0) {
        magnitude = number.suffix == "m" || number.suffix == "b" ? magnitude : 0;
    }
    const auto next = [&] { return std::string_view(textAt(part.token + part.count)); };
    if (magnitude == 0 && number.suffix.empty()) {
        magnitude = next().size() > 1 ? magnitudeOf(next()) : 0;
        if (magnitude > 0) ++part.count;
    }
    if (magnitude > 0) part.amount *= magnitude;
    part.hasMagnitude = magnitude > 0;
    if (part.currency == 0) {
        part.currency = currencyNamed(next());
        if (part.currency != 0) ++part.count;
    }
    if (part.currency == 0 && part.token > 0) part.currency = currencyNamed(textAt(part.token - 1));
    if (part.currency != 0) return;
    if (next() == "percent") {
        part.unit = "percent";
        ++part.count;
        return;
    }
    part.unit = number.suffix.empty() ? unitOf(next()) : unitOf(number.suffix);
    if (!part.unit.empty() && number.suffix.empty()) ++part.count;
}

bool HeadlineParts::hasRole(WordRole role) const {
    return std::any_of(parts_.begin(), parts_.end(),
                       [&](const HeadlinePart& part) { return part.is(role); });
}

std::string HeadlineParts::shownText(const HeadlinePart& part) const {
    std::string text = tokens_[part.token].text;
    for (std::size_t next = 1; next < part.count; ++next) {
        text += ' ';
        text += tokens_[part.token + next].text;
    }
    return text;
}

}  // namespace kit
