#pragma once

#include <cstdint>
#include <vector>

namespace kit {

/// What a headline says that another one about the same news cannot contradict.
struct HeadlineFacts {
    enum class FigureKind : std::uint8_t { version, count, percent, money, day, year };

    /// A number, and what it belongs to: a product, a system, a stage, a currency, a month.
    struct Figure {
        FigureKind kind = FigureKind::count;
        std::uint64_t subject = 0;  ///< 0 for a version that stands alone
        double value = 0;
        std::uint64_t text = 0;  ///< hash of a version as it is written; 0 for "iOS 27"
        auto operator<=>(const Figure&) const = default;
    };

    /// A device with what tells its models apart.
    struct Product {
        std::uint64_t device = 0;
        std::uint32_t models = 0;  ///< a bit for each of "pro", "max", "air" …
        std::uint64_t number = 0;  ///< hash of "18" or "18e"; 0 without one
        auto operator<=>(const Product&) const = default;
    };

    std::vector<Figure> figures{};  ///< distinct, sorted; so are all lists
    std::vector<Product> products{};
    std::vector<std::uint64_t> systems{};
    std::vector<std::uint64_t> stages{};     ///< beta, release candidate, or the release itself
    std::vector<std::uint64_t> audiences{};  ///< developers, the public
    std::vector<std::uint64_t> places{};     ///< countries and unions
    std::vector<std::uint64_t> services{};   ///< of Apple
    std::vector<std::uint64_t> events{};     ///< an outage, a fine, a departure …
    bool isWithdrawn = false;                ///< of a release: it is offered no longer
    std::vector<std::uint64_t> parties{};    ///< to whom or what that may have happened, but Apple

    bool operator==(const HeadlineFacts&) const = default;
};

/// True when the headlines cannot report the same news, however similar they are: they give
/// different numbers for the same thing ("beta 2", "beta 3"), or name different systems, devices,
/// models, stages or audiences.
bool contradict(const HeadlineFacts& left, const HeadlineFacts& right);

/// True when both name places, or services, but not one in common.
bool differInNames(const HeadlineFacts& left, const HeadlineFacts& right);

/// True when both tell of an event of one kind, and name a party in common.
bool tellOfSameEvent(const HeadlineFacts& left, const HeadlineFacts& right);

}  // namespace kit
