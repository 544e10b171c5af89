#include "Tarnwick_Brell/Desk/PackedStory.h"

#include <cstring>
#include <limits>
#include <new>
#include <string>

#include "NewsroomKit/Stories/StoryJSON.h"

namespace app {

using kit::Story;

void PackedStory::Release::operator()(const PackedStory* story) const {
    story->~PackedStory();
    ::operator delete(const_cast<PackedStory*>(story));
}

PackedStory::Owner PackedStory::make(const StoredStory& stored) {
    const Story& story = stored.story;
    const std::string credits =
        story.credits.empty() ? "" : boost::json::serialize(kit::encode(story.credits));
    return make(StoryView{.id = story.id,
                          .link = story.link,
                          .title = story.title,
                          .summary = story.summary,
                          .author = story.author,
                          .publishedAt = story.publishedAt,
                          .imageURL = story.imageURL,
                          .sourceID = story.sourceID,
                          .sourceName = story.sourceName,
                          .destinationName = story.destinationName,
                          .isAppleSource = story.isAppleSource,
                          .kind = story.kind,
                          .sourcing = story.sourcing,
                          .wordpressID = story.wordpressID,
                          .articleLink = story.articleLink,
                          .credits = credits,
                          .firstSeen = stored.firstSeen,
                          .arrival = stored.arrival,
                          .number = stored.number,
                          .readAt = stored.readAt,
                          .savedAt = stored.savedAt});
}

PackedStory::Owner PackedStory::make(const StoryView& story) {
    // In the order of `Text`.
    const std::array<std::optional<std::string_view>, kTexts> texts{
        story.id,
        story.link,
        story.title,
        story.summary,
        story.author,
        story.imageURL,
        story.sourceID,
        story.sourceName,
        story.destinationName,
        story.articleLink,
        story.credits.empty() ? std::nullopt : std::optional(story.credits)};

    std::size_t size = 0;
    for (const auto& text : texts) size += text ? text->size() : 0;
    const bool isLong = size > std::numeric_limits<std::uint16_t>::max();
    std::size_t end = isLong ? sizeof(LongEnds) : 0;
    void* const memory = ::operator new(sizeof(PackedStory) + end + size);
    Owner packed(::new (memory) PackedStory());
    packed->isLong_ = isLong;
    char* const bytes = static_cast<char*>(memory) + sizeof(PackedStory);
    LongEnds ends{};
    for (std::size_t i = 0; i < kTexts; ++i) {
        if (texts[i]) {
            if (!texts[i]->empty()) std::memcpy(bytes + end, texts[i]->data(), texts[i]->size());
            end += texts[i]->size();
            packed->present_ = static_cast<std::uint16_t>(packed->present_ | 1u << i);
        }
        ends[i] = static_cast<std::uint32_t>(end);
    }
    if (isLong) std::memcpy(bytes, ends.data(), sizeof ends);
    for (std::size_t i = 0; i < kTexts; ++i) packed->ends_[i] = static_cast<std::uint16_t>(ends[i]);
    packed->number_ = story.number;
    packed->publishedAt_ = story.publishedAt;
    packed->firstSeen_ = story.firstSeen;
    packed->wordpressID_ = story.wordpressID.value_or(0);
    packed->hasWordpressID_ = story.wordpressID.has_value();
    packed->kind_ = story.kind;
    packed->sourcing_ = story.sourcing;
    packed->arrival_ = story.arrival;
    packed->isAppleSource_ = story.isAppleSource;
    packed->isRead_ = story.readAt.has_value();
    packed->isSaved_ = story.savedAt.has_value();
    return packed;
}

std::string_view PackedStory::text(Text which) const {
    const auto index = static_cast<std::size_t>(which);
    const std::size_t first = isLong_ ? sizeof(LongEnds) : 0;
    const std::size_t begin = index == 0 ? first : endOf(index - 1);
    return {bytes() + begin, endOf(index) - begin};
}

std::size_t PackedStory::endOf(std::size_t index) const {
    if (!isLong_) return ends_[index];
    LongEnds ends;
    std::memcpy(ends.data(), bytes(), sizeof ends);
    return ends[index];
}

StoredStory PackedStory::unpacked() const {
    const auto optional = [&](Text which) {
        return has(which) ? std::optional(text(which)) : std::nullopt;
    };
    return StoryView{.id = text(Text::id),
                     .link = text(Text::link),
                     .title = text(Text::title),
                     .summary = text(Text::summary),
                     .author = optional(Text::author),
                     .publishedAt = publishedAt_,
                     .imageURL = optional(Text::imageURL),
                     .sourceID = text(Text::sourceID),
                     .sourceName = text(Text::sourceName),
                     .destinationName = optional(Text::destinationName),
                     .isAppleSource = isAppleSource_,
                     .kind = kind_,
                     .sourcing = sourcing_,
                     .wordpressID = hasWordpressID_ ? std::optional(wordpressID_) : std::nullopt,
                     .articleLink = optional(Text::articleLink),
                     .credits = text(Text::credits),
                     .firstSeen = firstSeen_,
                     .arrival = arrival_,
                     .number = number_}
        .stored();
}

}  // namespace app
