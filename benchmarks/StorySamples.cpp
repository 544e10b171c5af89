#include "benchmarks/StorySamples.h"

#include <array>
#include <random>
#include <string_view>

namespace benchmarks {

namespace {

constexpr std::array<std::string_view, 80> kWords{
    "the",      "of",       "and",      "to",      "Apple",    "for",      "new",     "with",
    "that",     "its",      "from",     "after",   "update",   "iPhone",   "Mac",     "iPad",
    "screen",   "battery",  "maker",    "people",  "company",  "month",    "before",  "small",
    "window",   "second",   "system",   "photos",  "camera",   "charging", "price",   "market",
    "launch",   "version",  "feature",  "users",   "develop",  "support",  "watch",   "music",
    "shipping", "release",  "quiet",    "lighter", "cheaper",  "display",  "desk",    "according",
    "supplier", "week",     "phone",    "still",   "tablet",   "utility",  "menu",    "found",
    "outside",  "payments", "rules",    "mean",    "year",     "next",     "spring",  "change",
    "longer",   "dropped",  "calls",    "privacy", "search",   "engine",   "browser", "network",
    "security", "keyboard", "language", "between", "question", "answer",   "storage", "account"};

constexpr std::array<std::string_view, 8> kTypographic{"company’s", "“quiet”", "it’s",  "–",
                                                       "café",      "year’s",  "Malmö", "won’t"};

constexpr std::array<std::string_view, 20> kTerms{
    "AirPods", "Vision Pro", "foldable",   "AI",        "App Store", "CarPlay",     "Siri",
    "AT&T",    "Café Royal", "visionOS 4", "satellite", "$AAPL",     "Swift 7",     "HomePod",
    "tariffs", "iPhone 18",  "M6 Ultra",   "antitrust", "chargers",  "supply chain"};

class Writer {
public:
    explicit Writer(unsigned seed) : random_(seed) {}

    std::string text(std::size_t length, bool isTypographic) {
        std::string text;
        while (text.size() < length) {
            if (!text.empty()) text += ' ';
            if (isTypographic && random_() % 10 == 0) {
                text += kTypographic[random_() % kTypographic.size()];
            } else if (random_() % 600 == 0) {
                text += kTerms[random_() % kTerms.size()];
            } else {
                text += kWords[random_() % kWords.size()];
            }
        }
        return text;
    }

private:
    std::mt19937 random_;
};

}  // namespace

std::vector<kit::Story> storySamples(std::size_t count, unsigned seed) {
    Writer writer(seed);
    std::vector<kit::Story> stories(count);
    for (std::size_t i = 0; i < count; ++i) {
        const bool isTypographic = i % 3 == 0;
        auto& story = stories[i];
        story.id = "id" + std::to_string(seed) + "-" + std::to_string(i);
        story.link = "https://outlet.example/" + story.id;
        story.title = writer.text(76, isTypographic);
        story.summary = writer.text(246, isTypographic);
        story.sourceID = "outlet-" + std::to_string(i % 60);
    }
    return stories;
}

kit::StoryQuery twentyTerms() { return {.anyTerms = {kTerms.begin(), kTerms.end()}}; }

kit::StoryQuery beat(std::size_t which) {
    const auto term = [&](std::size_t step) {
        return std::string(kTerms[(which + step) % kTerms.size()]);
    };
    return {.anyTerms = {term(0), term(7)}, .excludedTerms = {term(13)}};
}

}  // namespace benchmarks
