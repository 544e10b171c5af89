#include "NewsroomKit/Clusters/HeadlineFactReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace kit {

namespace {

using FigureKind = HeadlineFacts::FigureKind;

// "second developer beta of …": how far before the stage its ordinal may stand.
constexpr std::size_t kOrdinalReach = 4;
// "Watch Series 12 Ultra": how many words after a device may tell its model.
constexpr std::size_t kModelReach = 4;
constexpr std::uint64_t kSpread = 0x9E3779B97F4A7C15U;  // mixes the parts of a key
constexpr std::size_t kNowhere = std::numeric_limits<std::size_t>::max();

std::uint64_t nameKey(std::string_view name) { return textKey("=" + std::string(name)); }

std::uint32_t modelBit(const KnownWord& word) {
    static constexpr std::array<std::string_view, 10> names{"pro",  "max", "air", "mini",   "ultra",
                                                            "plus", "se",  "neo", "studio", "fold"};
    const auto found = std::find(names.begin(), names.end(), word.name);
    return 1U << (found - names.begin());
}

template <class List>
void sortDistinct(List& list) {
    std::sort(list.begin(), list.end());
    list.erase(std::unique(list.begin(), list.end()), list.end());
}

bool isParty(const HeadlinePart& part) {
    static const auto apple = nameKey("apple");
    if (part.is(WordRole::company)) return part.key != apple;
    return part.is(WordRole::service) || part.is(WordRole::person) || part.is(WordRole::place);
}

/// Chips and the like are named by a letter and a number.
bool isNamePrefix(std::string_view prefix) { return prefix.size() == 1; }

}  // namespace

HeadlineFacts HeadlineFactReader::read() {
    for (std::size_t at = 0; at < title_.parts().size(); ++at) {
        if (title_.parts()[at].known) {
            readNamed(at);
        } else if (title_.parts()[at].number) {
            readNumber(at);
        }
    }
    addAudiences();
    addReleaseItself();
    sortDistinct(facts_.figures);
    sortDistinct(facts_.products);
    sortDistinct(facts_.systems);
    sortDistinct(facts_.stages);
    sortDistinct(facts_.places);
    sortDistinct(facts_.services);
    static const auto pull = nameKey("pull");
    facts_.isWithdrawn =
        std::find(facts_.events.begin(), facts_.events.end(), pull) != facts_.events.end();
    sortDistinct(facts_.events);
    addProductsAsParties();
    sortDistinct(facts_.parties);
    return std::move(facts_);
}

const HeadlinePart* HeadlineFactReader::partAt(std::size_t at) const {
    return at < title_.parts().size() ? &title_.parts()[at] : nullptr;
}

std::string_view HeadlineFactReader::textAt(std::size_t at) const {
    const auto* part = partAt(at);
    return part ? std::string_view(title_.firstToken(*part).text) : std::string_view();
}

void HeadlineFactReader::readNamed(std::size_t at) {
    const auto& part = title_.parts()[at];
    if (part.is(WordRole::system)) addSystem(at);
    if (part.is(WordRole::device)) addProduct(at);
    if (part.is(WordRole::stage)) addStage(at);
    if (part.is(WordRole::place)) facts_.places.push_back(part.key);
    if (part.is(WordRole::service)) facts_.services.push_back(part.key);
    if (part.is(WordRole::event)) facts_.events.push_back(part.key);
    if (isParty(part)) facts_.parties.push_back(part.key);
}

void HeadlineFactReader::addProductsAsParties() {
    for (const auto& product : facts_.products) {
        if (const auto key = productKey(product); key != 0) facts_.parties.push_back(key);
    }
}

void HeadlineFactReader::addSystem(std::size_t at) {
    const auto key = title_.parts()[at].key;
    facts_.systems.push_back(key);
    const auto* next = partAt(at + 1);
    if (!next || !next->number || !next->unit.empty() || next->currency != 0) return;
    // "iOS 27" goes with every version that begins so.
    addFigure(FigureKind::version, key, std::floor(next->number->value),
              next->number->isVersion ? textKey(next->number->text) : 0);
    hasVersion_ = hasVersion_ || next->number->isVersion;
}

void HeadlineFactReader::addProduct(std::size_t at) {
    HeadlineFacts::Product product{.device = title_.parts()[at].key};
    for (std::size_t next = at + 1; next <= at + kModelReach; ++next) {
        if (!addModel(next, product)) break;
    }
    const auto* before = at > 0 ? partAt(at - 1) : nullptr;
    if (before && before->is(WordRole::model)) product.models |= modelBit(*before->known);
    // "Mac" by itself may be any of them, a MacBook too.
    const bool isAnyMac = product.device == nameKey("mac") && product.models == 0;
    if (!isAnyMac) facts_.products.push_back(product);
}

bool HeadlineFactReader::addModel(std::size_t at, HeadlineFacts::Product& product) const {
    const auto* part = partAt(at);
    if (!part) return false;
    if (part->is(WordRole::model)) {
        product.models |= modelBit(*part->known);
        return true;
    }
    const bool isPlain = part->number && part->unit.empty() && part->currency == 0 &&
                         !part->hasMagnitude && part->number->prefix.empty() && !part->isBuild &&
                         !part->number->isYear;
    if (isPlain && product.number == 0) {
        product.number = textKey(part->number->text);
        return true;
    }
    return textAt(at) == "series";
}

void HeadlineFactReader::addStage(std::size_t at) {
    const auto key = title_.parts()[at].key;
    facts_.stages.push_back(key);
    const auto* next = partAt(at + 1);
    if (next && next->number && !next->isBuild && !next->number->isVersion) {
        return addFigure(FigureKind::count, key, next->number->value);
    }
    for (std::size_t back = 1; back <= std::min(at, kOrdinalReach); ++back) {
        const auto text = textAt(at - back);
        std::optional<unsigned> ordinal = spelledOrdinal(text);
        const auto* part = partAt(at - back);
        if (!ordinal && part->number && title_.firstToken(*part).text != part->number->text) {
            ordinal = static_cast<unsigned>(part->number->value);  // "2nd"
        }
        if (ordinal && *ordinal > 0) return addFigure(FigureKind::count, key, *ordinal);
    }
    // Apple names the first beta by its build alone: "iOS 27.2 beta (24C5031e)".
    if (next && next->isBuild) addFigure(FigureKind::count, key, 1);
}

void HeadlineFactReader::readNumber(std::size_t at) {
    const auto& part = title_.parts()[at];
    const auto& number = *part.number;
    if (part.isBuild) return;
    const auto* before = at > 0 ? partAt(at - 1) : nullptr;
    const auto beforeText = textAt(at > 0 ? at - 1 : kNowhere);
    if (part.currency != 0 || part.hasMagnitude) {
        return addFigure(FigureKind::money, part.currency, part.amount);
    }
    if (part.unit == "percent") return addFigure(FigureKind::percent, 0, part.amount);
    if (!part.unit.empty()) {
        return addFigure(FigureKind::count, textKey(part.unit), part.amount);
    }
    if (number.isYear) return addFigure(FigureKind::year, 0, number.value);
    if (isNamePrefix(number.prefix)) {
        return addFigure(FigureKind::count, textKey(number.prefix), number.value);
    }
    if (isMonth(beforeText)) return addFigure(FigureKind::day, textKey(beforeText), number.value);
    if (isMonth(textAt(at + 1)) && !number.isVersion) {
        return addFigure(FigureKind::day, textKey(textAt(at + 1)), number.value);
    }
    if (isNumberedNoun(beforeText)) {
        return addFigure(FigureKind::count, textKey(beforeText), number.value);
    }
    if (number.isVersion && before && !before->is(WordRole::system)) {
        hasVersion_ = true;
        const bool isOpen = beforeText == "version" || beforeText == "update";
        addFigure(FigureKind::version, isOpen ? 0 : before->key, std::floor(number.value),
                  textKey(number.text));
    }
}

void HeadlineFactReader::addAudiences() {
    const auto add = [&](const HeadlineParts& text) {
        for (const auto& part : text.parts()) {
            if (part.is(WordRole::audience)) facts_.audiences.push_back(part.key);
        }
    };
    // "Public" and "developer" say something else where no beta is meant.
    const bool isBeta = std::find(facts_.stages.begin(), facts_.stages.end(), nameKey("beta")) !=
                        facts_.stages.end();
    if (!isBeta) return;
    add(title_);
    if (facts_.audiences.empty()) add(excerpt_);
    sortDistinct(facts_.audiences);
    // "now out for public testers after developers" names both, so neither tells anything.
    if (facts_.audiences.size() > 1) facts_.audiences.clear();
}

void HeadlineFactReader::addReleaseItself() {
    if (!hasVersion_ || !facts_.stages.empty()) return;
    constexpr std::size_t kNameOnly = 3;  // "iOS 27.1.1 (24B91)"
    const bool isReleased =
        title_.parts().size() <= kNameOnly ||
        std::any_of(title_.parts().begin(), title_.parts().end(), [](const HeadlinePart& part) {
            static const auto release = nameKey("release");
            return part.known && part.key == release;
        });
    if (isReleased) facts_.stages.push_back(nameKey("final release"));
}

void HeadlineFactReader::addFigure(HeadlineFacts::FigureKind kind, std::uint64_t subject,
                                   double value, std::uint64_t text) {
    facts_.figures.push_back({.kind = kind, .subject = subject, .value = value, .text = text});
}

std::uint64_t stageKey(const HeadlineFacts::Figure& figure, const HeadlineFacts& facts) {
    const bool isOfStage =
        figure.kind == FigureKind::count &&
        std::find(facts.stages.begin(), facts.stages.end(), figure.subject) != facts.stages.end();
    return isOfStage ? figure.subject * kSpread + static_cast<std::uint64_t>(figure.value) : 0;
}

std::uint64_t productKey(const HeadlineFacts::Product& product) {
    if (product.models == 0 && product.number == 0) return 0;
    return (product.device * kSpread + product.models) * kSpread + product.number;
}

}  // namespace kit
