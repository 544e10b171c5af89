#include "NewsroomKit/Ingestion/StoryConversion.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Editorial/StoryLabels.h"
#include "NewsroomKit/Feeds/AuthorAddress.h"
#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Ingestion/CreditExtraction.h"
#include "NewsroomKit/Stories/PublisherNames.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::size_t kPostExcerptCharacters = 1000;
constexpr std::size_t kExcerptCharacters = 420;
constexpr std::size_t kAuthorCharacters = 80;
constexpr std::size_t kLongestLink = 64 * 1024;

/// Some feeds begin every excerpt with the outlet's own name: "Example: The news …".
std::string withoutLeadingName(std::string text, std::string_view name) {
    constexpr std::array<std::string_view, 5> separators{".", ":", "—", "-", "|"};
    const auto separatorAt = [&](std::size_t at) -> std::size_t {
        for (const auto separator : separators) {
            if (std::string_view(text).substr(at).starts_with(separator)) return separator.size();
        }
        return 0;
    };
    const auto nameLength = prefixLengthIgnoringCase(text, name);
    if (!nameLength || name.empty() || separatorAt(*nameLength) == 0) return text;
    auto at = *nameLength;
    while (at < text.size()) {
        const auto step = text[at] == ' ' ? 1 : separatorAt(at);
        if (step == 0) break;
        at += step;
    }
    return std::string(trimHorizontalWhitespace(std::string_view(text).substr(at)));
}

/// Whether the content is only links and the excerpt only repeats their words: some feeds repeat
/// such a list as a summary without links.
bool repeatsLinks(std::string_view excerptText, const std::string& contentHTML) {
    constexpr std::size_t longestWords = 160;
    constexpr std::size_t longestLinkList = 4096;
    if (excerptText.empty() || excerptText.size() > longestWords || contentHTML.empty() ||
        contentHTML.size() > longestLinkList) {
        return false;
    }
    if (!excerpt(contentHTML, kExcerptCharacters).empty()) return false;
    const auto withoutSpaces = [](std::string text) {
        std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
        return text;
    };
    return withoutSpaces(plainText(contentHTML)) == withoutSpaces(std::string(excerptText));
}

std::string summaryOf(const FeedEntry& entry, const NewsSource& source) {
    if (source.format == NewsSource::Format::googleNews) return {};
    const auto& html = entry.summaryHTML.empty() ? entry.contentHTML : entry.summaryHTML;
    const bool post = entry.medium == FeedEntry::Medium::post;
    const auto limit = post ? kPostExcerptCharacters : kExcerptCharacters;
    const auto& link = entry.link.empty() ? entry.guid : entry.link;
    const auto text = excerpt(html, limit, link);
    if (repeatsLinks(text, entry.contentHTML)) return {};
    return withoutLeadingName(text, source.name);
}

/// Removes the publisher from "Headline - Publisher" of a news search, unless nothing else remains.
std::string withoutPublisher(std::string title, const std::optional<std::string>& publisher) {
    if (!publisher) return title;
    const std::string ending = " - " + cleanHeadline(*publisher);
    if (!title.ends_with(ending)) return title;
    const auto headline =
        trimHorizontalWhitespace(std::string_view(title).substr(0, title.size() - ending.size()));
    return headline.empty() ? title : std::string(headline);
}

/// Removes the arrows and stars with which link blogs mark their entries.
std::string withoutDecorations(std::string_view title) {
    for (const std::string_view ending : {" →", "→", " ★", " ↦", "↦"}) {
        if (title.ends_with(ending)) title.remove_suffix(ending.size());
    }
    constexpr std::string_view star = "★ ";
    if (title.starts_with(star)) title.remove_prefix(star.size());
    return std::string(trimWhitespaceAndNewlines(title));
}

std::optional<std::string> authorOf(const FeedEntry& entry, const NewsSource& source) {
    if (!entry.author) return std::nullopt;
    std::string author = cleanHeadline(*entry.author);
    // RSS prescribes "desk@example.com (Jo Writer)" for authors.
    const auto open = author.find('(');
    const auto close = open == std::string::npos ? open : author.find(')', open);
    if (author.find('@') != std::string::npos && close != std::string::npos) {
        author = trimWhitespaceAndNewlines(author.substr(open + 1, close - open - 1));
    }
    if (author.empty() || characterCount(author) > kAuthorCharacters) return std::nullopt;
    if (equalIgnoringCase(author, source.name) || isOnlyAddresses(author)) return std::nullopt;
    return author;
}

/// The post number in a guid of the built-in blog: "https://…/?p=1234".
std::optional<std::int64_t> postNumber(const std::string& guid) {
    const auto question = guid.find('?');
    if (question == std::string::npos || guid.size() > kLongestLink) return std::nullopt;
    const auto query = std::string_view(guid).substr(question + 1);
    for (const auto& item : WebAddress::queryItems(query.substr(0, query.find('#')))) {
        if (item.name != "p") continue;
        std::int64_t number = 0;
        const auto* end = item.value.data() + item.value.size();
        const auto [stop, error] = std::from_chars(item.value.data(), end, number);
        if (error == std::errc() && stop == end && !item.value.empty()) return number;
        return std::nullopt;
    }
    return std::nullopt;
}

/// The kind that the medium alone decides; nothing for articles, whose words decide.
std::optional<StoryKind> kindOfMedium(const FeedEntry& entry, const NewsSource& source) {
    switch (entry.medium) {
        case FeedEntry::Medium::audio: return StoryKind::podcast;
        case FeedEntry::Medium::video: return StoryKind::video;
        case FeedEntry::Medium::post: return StoryKind::post;
        case FeedEntry::Medium::article: break;
    }
    if (source.category == NewsSource::Category::social) return StoryKind::post;
    return std::nullopt;
}

std::vector<SourceCredit> creditsOf(const FeedEntry& entry, const NewsSource& source) {
    if (source.format == NewsSource::Format::googleNews) return {};
    return extractCredits(entry.contentHTML, entry.summaryHTML, source.siteURL, source.name);
}

}  // namespace

std::optional<Story> StoryConversion::story(const FeedEntry& entry, const NewsSource& source,
                                            Instant now) const {
    return convert(entry, source, now, siteHostOf(source.feedURL));
}

std::optional<Story> StoryConversion::convert(const FeedEntry& entry, const NewsSource& source,
                                              Instant now, std::string_view feedHost) const {
    Story story;
    const bool isSearch = source.format == NewsSource::Format::googleNews;

    // 1. to 3. An item without a headline or a usable link is not a story.
    const auto& written = entry.link.empty() ? entry.guid : entry.link;
    if (written.size() > kLongestLink) return std::nullopt;
    story.link = links_.of(written);
    story.title = cleanHeadline(entry.title);
    const auto address = WebAddress::parse(story.link);
    if (story.title.empty() || !address || !address->isHTTP()) return std::nullopt;

    // 4. and 5. Excerpt and time.
    story.summary = summaryOf(entry, source);
    story.publishedAt = std::min(entry.publishedAt.value_or(now), now);

    // 6. The headline without its decorations, and the outlet that the link leads to.
    if (isSearch) {
        story.title = withoutPublisher(std::move(story.title), entry.publisher);
    } else {
        story.title = withoutDecorations(story.title);
        if (story.title.empty()) return std::nullopt;
        story.destinationName = publisherNameOfHosts(address->host, feedHost);
    }

    // 7. A link to another site identifies a story of the source that points to it.
    story.id = storyID(story.destinationName ? source.id + "|" + story.link : story.link);

    // 8. to 11.
    if (story.summary == story.title) story.summary.clear();
    story.author = authorOf(entry, source);
    if (entry.imageURL && entry.imageURL->starts_with("http")) story.imageURL = entry.imageURL;
    story.sourceID = source.id;
    story.sourceName = source.name;
    story.isAppleSource = source.kind == NewsSource::Kind::apple;

    // 12. to 15. Labels and credits.
    const auto mediumKind = kindOfMedium(entry, source);
    const auto labels = labelStory(story.title, story.summary, story.isAppleSource, !mediumKind);
    story.kind = mediumKind ? *mediumKind : labels.kind->kind;
    story.sourcing = labels.sourcing.sourcing;
    if (source.kind == NewsSource::Kind::firstParty) story.wordpressID = postNumber(entry.guid);
    story.credits = creditsOf(entry, source);
    return story;
}

std::vector<Story> StoryConversion::stories(const std::vector<FeedEntry>& entries,
                                            const NewsSource& source, Instant now,
                                            const WorkLimit& limit) const {
    std::vector<Story> stories;
    stories.reserve(entries.size());
    const auto feedHost = siteHostOf(source.feedURL);
    for (const auto& entry : entries) {
        if (limit.isReached()) break;
        if (auto made = convert(entry, source, now, feedHost)) stories.push_back(std::move(*made));
    }
    return stories;
}

}  // namespace kit
