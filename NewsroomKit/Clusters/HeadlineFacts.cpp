#include "NewsroomKit/Clusters/HeadlineFacts.h"

#include <algorithm>
#include <cmath>

namespace kit {

namespace {

using Figure = HeadlineFacts::Figure;
using FigureKind = HeadlineFacts::FigureKind;
using Product = HeadlineFacts::Product;

// Sums that differ by less are one sum, rounded ("€98 million", "€98.6 million").
constexpr double kRounding = 0.02;
// Sums that differ by more are about different things: a price and its increase.
constexpr double kComparable = 2;
constexpr double kExact = 1e-9;

/// True when neither list is empty and they share nothing.
bool haveCommon(const std::vector<std::uint64_t>& left, const std::vector<std::uint64_t>& right) {
    return std::any_of(left.begin(), left.end(), [&](std::uint64_t value) {
        return std::binary_search(right.begin(), right.end(), value);
    });
}

bool disjoint(const std::vector<std::uint64_t>& left, const std::vector<std::uint64_t>& right) {
    return !left.empty() && !right.empty() && !haveCommon(left, right);
}

bool haveOneSubject(const Figure& left, const Figure& right) {
    if (left.kind != right.kind) return false;
    // "Version 27.1.1" is of any system.
    const bool isOpen =
        left.kind == FigureKind::version && (left.subject == 0 || right.subject == 0);
    return isOpen || left.subject == right.subject;
}

bool areEqualFigures(const Figure& left, const Figure& right) {
    if (left.kind == FigureKind::version) {
        const bool isWhole = left.text == 0 || right.text == 0;
        return isWhole ? left.value == right.value : left.text == right.text;
    }
    const double larger = std::max(std::abs(left.value), std::abs(right.value));
    const double leeway = left.kind == FigureKind::money ? kRounding : kExact;
    return std::abs(left.value - right.value) <= leeway * larger;
}

bool areComparable(const Figure& left, const Figure& right) {
    if (left.kind != FigureKind::money) return true;
    return std::max(left.value, right.value) <= kComparable * std::min(left.value, right.value);
}

/// True when some subject has figures in both headlines but shares none of them.
bool figuresDisagree(const std::vector<Figure>& left, const std::vector<Figure>& right) {
    for (const auto& figure : left) {
        bool isComparable = false;
        for (const auto& other : right) {
            isComparable |= haveOneSubject(figure, other) && areComparable(figure, other);
        }
        if (!isComparable) continue;
        const bool agrees = std::any_of(left.begin(), left.end(), [&](const Figure& own) {
            return haveOneSubject(own, figure) &&
                   std::any_of(right.begin(), right.end(), [&](const Figure& other) {
                       return haveOneSubject(own, other) && areEqualFigures(own, other);
                   });
        });
        if (!agrees) return true;
    }
    return false;
}

/// "iPhone 18 Pro" and "iPhone 18" are two products; "the new iPhone" may be either.
bool mayBeOneProduct(const Product& left, const Product& right) {
    if (left.device != right.device) return false;
    if (left.number != 0 && right.number != 0 && left.number != right.number) return false;
    if (left.models == right.models || (left.models & right.models) != 0) return true;
    const auto& plainer = left.models == 0 ? left : right;
    return plainer.models == 0 && plainer.number == 0;
}

bool productsDisagree(const std::vector<Product>& left, const std::vector<Product>& right) {
    if (left.empty() || right.empty()) return false;
    return std::none_of(left.begin(), left.end(), [&](const Product& own) {
        return std::any_of(right.begin(), right.end(),
                           [&](const Product& other) { return mayBeOneProduct(own, other); });
    });
}

}  // namespace

bool contradict(const HeadlineFacts& left, const HeadlineFacts& right) {
    const bool areOfSystems = !left.systems.empty() && !right.systems.empty();
    if (areOfSystems && left.isWithdrawn != right.isWithdrawn) return true;
    return disjoint(left.systems, right.systems) || disjoint(left.stages, right.stages) ||
           disjoint(left.audiences, right.audiences) ||
           productsDisagree(left.products, right.products) ||
           figuresDisagree(left.figures, right.figures);
}

bool tellOfSameEvent(const HeadlineFacts& left, const HeadlineFacts& right) {
    return haveCommon(left.events, right.events) && haveCommon(left.parties, right.parties);
}

bool differInNames(const HeadlineFacts& left, const HeadlineFacts& right) {
    return disjoint(left.places, right.places) || disjoint(left.services, right.services);
}

}  // namespace kit
