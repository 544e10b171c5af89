#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "Tarnwick_Brell/Storage/Tables/StoredStory.h"
#include "Tarnwick_Brell/Storage/Tables/StoryView.h"

namespace app {

/// A story of the wire in one piece of memory, less than half of what the record takes: the
/// whole wire is in memory, and there may be hundreds of thousands.
class PackedStory {
public:
    struct Release {
        void operator()(const PackedStory* story) const;
    };
    using Owner = std::unique_ptr<PackedStory, Release>;

    static Owner make(const StoryView& story);
    static Owner make(const StoredStory& stored);

    PackedStory(const PackedStory&) = delete;
    PackedStory& operator=(const PackedStory&) = delete;

    /// The record again, but for the moments of its marks.
    StoredStory unpacked() const;

    std::int64_t number() const { return number_; }
    kit::Instant publishedAt() const { return publishedAt_; }
    kit::Instant firstSeen() const { return firstSeen_; }
    std::string_view id() const { return text(Text::id); }
    std::string_view link() const { return text(Text::link); }
    std::string_view title() const { return text(Text::title); }
    std::string_view summary() const { return text(Text::summary); }
    std::string_view sourceID() const { return text(Text::sourceID); }
    std::string_view sourceName() const { return text(Text::sourceName); }
    /// Empty when there is none.
    std::string_view destinationName() const { return text(Text::destinationName); }
    std::string_view imageURL() const { return text(Text::imageURL); }
    bool isAppleSource() const { return isAppleSource_; }
    kit::StoryKind kind() const { return kind_; }
    kit::Sourcing sourcing() const { return sourcing_; }
    Arrival arrival() const { return arrival_; }

    bool isRead() const { return isRead_; }
    bool isSaved() const { return isSaved_; }
    void setRead(bool read) { isRead_ = read; }
    void setSaved(bool saved) { isSaved_ = saved; }

private:
    // clang-format off
    enum class Text {
        id, link, title, summary, author, imageURL, sourceID, sourceName, destinationName,
        articleLink, credits
    };
    // clang-format on
    static constexpr std::size_t kTexts = 11;

    PackedStory() = default;
    std::string_view text(Text which) const;
    std::size_t endOf(std::size_t index) const;
    bool has(Text which) const { return (present_ >> static_cast<unsigned>(which) & 1u) != 0; }
    const char* bytes() const { return reinterpret_cast<const char*>(this + 1); }

    using ShortEnds = std::array<std::uint16_t, kTexts>;
    using LongEnds = std::array<std::uint32_t, kTexts>;

    std::int64_t number_ = 0;
    kit::Instant publishedAt_{};
    kit::Instant firstSeen_{};
    std::int64_t wordpressID_ = 0;
    /// Of each text in the bytes behind this object. Texts of more than 64 KB have no place here:
    /// their ends are the first of these bytes, as LongEnds.
    ShortEnds ends_{};
    std::uint16_t present_ = 0;  ///< one bit for each text that is not absent
    kit::StoryKind kind_{};
    kit::Sourcing sourcing_{};
    Arrival arrival_{};
    bool isLong_ = false;
    bool isAppleSource_ = false;
    bool hasWordpressID_ = false;
    bool isRead_ = false;
    bool isSaved_ = false;
};

}  // namespace app
