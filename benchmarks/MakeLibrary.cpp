// Creates a library of invented stories, as large as after some years of use, for benchmarks.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "NewsroomKit/Sources/SourceCatalog.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"
#include "Tarnwick_Brell/Storage/Settings/Paths.h"

namespace {

using kit::NewsSource;
using kit::Story;

constexpr std::size_t kStoriesPerTransaction = 5'000;
constexpr std::size_t kOwnSources = 15;
constexpr std::chrono::days kSpan{3 * 365};
constexpr std::size_t kTitleLength = 68;
constexpr std::size_t kExcerptLength = 215;
constexpr std::size_t kLinkLength = 90;

/// The same sequence for the same seed, with every compiler.
class Chance {
public:
    explicit Chance(std::uint64_t seed) : engine_(seed) {}

    double share() { return static_cast<double>(engine_() >> 11) * 0x1p-53; }
    std::size_t below(std::size_t count) { return engine_() % count; }
    bool oneIn(std::size_t count) { return below(count) == 0; }

private:
    std::mt19937_64 engine_;
};

/// Invented words; the word of rank n is used about 1/n as often as the first.
class Vocabulary {
public:
    explicit Vocabulary(Chance& chance) : chance_(chance) {
        for (const char* word : {"the", "Apple", "of", "a", "new", "iPhone", "in", "Mac", "and",
                                 "iPad", "says", "Siri", "with", "update", "for", "Watch"}) {
            words_.emplace_back(word);
        }
        while (words_.size() < kSize) words_.push_back(invented());
    }

    const std::string& word() {
        const auto rank = std::pow(static_cast<double>(kSize), chance_.share()) - 1;
        return words_[std::min(static_cast<std::size_t>(rank), kSize - 1)];
    }

    std::string text(std::size_t length) {
        std::string text = word();
        while (text.size() < length) text += " " + word();
        if (text[0] >= 'a') text[0] = static_cast<char>(text[0] - 'a' + 'A');
        return text;
    }

private:
    static constexpr std::size_t kSize = 30'000;

    std::string invented() {
        constexpr std::array syllables{"bra", "den", "fol", "gri", "hul", "jor", "kem", "lin",
                                       "mos", "nar", "pel", "qua", "rud", "sti", "tor", "ulm",
                                       "vek", "wen", "yar", "zil", "ost", "ira", "eb",  "and"};
        std::string word;
        for (std::size_t left = 2 + chance_.below(3); left > 0; --left) {
            word += syllables[chance_.below(syllables.size())];
        }
        return word;
    }

    Chance& chance_;
    std::vector<std::string> words_{};
};

std::string hostOf(const NewsSource& source) {
    const auto begin = source.siteURL.find("//") + 2;
    return source.siteURL.substr(begin, source.siteURL.find('/', begin) - begin);
}

std::string slugOf(std::string text, std::size_t length) {
    for (char& c : text) {
        if (c == ' ') c = '-';
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    text.resize(std::min(text.size(), length));
    return text;
}

class Writer {
public:
    explicit Writer(std::uint64_t seed) : chance_(seed), words_(chance_) {}

    Story story(const NewsSource& source, std::size_t number, kit::Instant published) {
        Story story{.title = words_.text(kTitleLength),
                    .summary = words_.text(kExcerptLength) + ".",
                    .publishedAt = published,
                    .sourceID = source.id,
                    .sourceName = source.name,
                    .isAppleSource = source.kind == NewsSource::Kind::apple};
        const auto beginning =
            fmt::format("https://{}/{:%Y/%m}/{}-", hostOf(source),
                        std::chrono::floor<std::chrono::seconds>(published), number);
        story.link = beginning +
                     slugOf(story.title, kLinkLength - std::min(kLinkLength - 1, beginning.size()));
        while (story.link.ends_with('-')) story.link.pop_back();
        story.id = kit::storyID(story.link);
        if (!chance_.oneIn(3)) story.author = words_.word() + " " + words_.word();
        if (chance_.oneIn(2)) {
            story.imageURL = fmt::format("https://{}/pictures/{}.jpg", hostOf(source), number);
        }
        story.kind = kind();
        story.sourcing = sourcing();
        return story;
    }

    /// Chooses a source; some have many more stories than others.
    std::size_t source(std::size_t count) {
        return static_cast<std::size_t>(static_cast<double>(count) * std::pow(chance_.share(), 2));
    }

    /// A share of the time between two stories.
    double moment() { return chance_.share(); }

private:
    kit::StoryKind kind() {
        using kit::StoryKind;
        constexpr std::array rare{StoryKind::deal,  StoryKind::review,  StoryKind::roundup,
                                  StoryKind::video, StoryKind::podcast, StoryKind::post};
        return chance_.oneIn(3) ? rare[chance_.below(rare.size())] : StoryKind::coverage;
    }

    kit::Sourcing sourcing() {
        using kit::Sourcing;
        constexpr std::array given{Sourcing::confirmed, Sourcing::onRecord, Sourcing::report,
                                   Sourcing::rumor};
        return chance_.oneIn(2) ? given[chance_.below(given.size())] : Sourcing::unlabeled;
    }

    Chance chance_;
    Vocabulary words_;
};

/// The catalogue's and some of the user's own.
std::vector<NewsSource> addedSources(app::LocalStore& store) {
    auto sources = kit::defaultSourceCatalog();
    auto transaction = store.transaction();
    for (std::size_t i = 0; i < kOwnSources; ++i) {
        const auto site = fmt::format("https://invented-{}.example", i);
        sources.push_back({.id = fmt::format("invented-{}", i),
                           .name = fmt::format("Invented {}", i),
                           .feedURL = site + "/feed",
                           .siteURL = site,
                           .kind = NewsSource::Kind::custom,
                           .category = NewsSource::Category::custom});
        store.sources().add(sources.back());
    }
    transaction.commit();
    return sources;
}

void fill(app::LocalStore& store, std::size_t count, std::uint64_t seed, kit::Instant until) {
    const auto sources = addedSources(store);
    Writer writer(seed);
    const auto step = std::chrono::microseconds(kSpan) / std::max<std::size_t>(count, 1);
    const auto begin = until - std::chrono::microseconds(kSpan);
    auto merging = store.merging();
    // Oldest first, as they would have arrived.
    for (std::size_t number = 0; number < count;) {
        std::vector<Story> stories;
        kit::Instant published;
        for (; number < count && stories.size() < kStoriesPerTransaction; ++number) {
            const auto later = std::chrono::duration<double, std::micro>(step) * writer.moment();
            published = begin + step * number +
                        std::chrono::duration_cast<std::chrono::microseconds>(later);
            stories.push_back(
                writer.story(sources[writer.source(sources.size())], number, published));
        }
        auto transaction = store.transaction();
        merging.merge(stories,
                      {.seen = published, .mostFresh = std::numeric_limits<std::size_t>::max()},
                      store.state().nextStamp());
        transaction.commit();
    }
}

std::size_t numberIn(const std::string& text) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw std::invalid_argument(text + " is no number");
    }
    return number;
}

void run(const std::vector<std::string>& words) {
    if (words.empty() || words.size() > 3 || words[0].starts_with('-')) {
        throw std::invalid_argument("usage: make_library FOLDER [STORIES [SEED]]");
    }
    const auto count = words.size() > 1 ? numberIn(words[1]) : 300'000;
    const auto seed = words.size() > 2 ? numberIn(words[2]) : 1;
    const auto paths = app::Paths::forUser(words[0]);
    if (std::filesystem::exists(paths.library)) {
        throw std::invalid_argument(paths.library.string() + " exists already");
    }
    paths.createFolders();
    // Otherwise the first pass would drop what is older than a year.
    app::Defaults(paths.settings).set("storyRetentionDays", "0");
    app::LocalStore store(paths.library, app::Database::Access::readWrite);
    using namespace std::chrono;
    fill(store, count, seed, floor<microseconds>(system_clock::now()));
    std::cout << paths.library.string() << ": " << store.stories().count() << " stories\n";
}

}  // namespace

int main(int argc, char** argv) {
    try {
        run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << "make_library: " << error.what() << '\n';
        return 1;
    }
}
