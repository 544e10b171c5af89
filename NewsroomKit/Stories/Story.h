#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/SourceCredit.h"
#include "NewsroomKit/Stories/Sourcing.h"
#include "NewsroomKit/Stories/StoryKind.h"

namespace kit {

/// One news item on the wire. A plain value; two stories with the same id and any other
/// difference are different values.
struct Story {
    std::string id{};       ///< storyID of the canonical link, see StoryIdentity.h
    std::string link{};     ///< canonical
    std::string title{};    ///< plain text, never empty
    std::string summary{};  ///< plain text, empty when none
    std::optional<std::string> author{};
    Instant publishedAt{};  ///< never later than the moment of conversion
    std::optional<std::string> imageURL{};
    std::string sourceID{};
    std::string sourceName{};  ///< the source's name at conversion time
    /// The outlet that the link points to, when that is not the source's own site.
    std::optional<std::string> destinationName{};
    bool isAppleSource = false;
    StoryKind kind = StoryKind::coverage;
    Sourcing sourcing = Sourcing::unlabeled;
    std::optional<std::int64_t> wordpressID{};  ///< post number of the system's own blog
    /// The article behind a redirect link, once resolved; absent at creation.
    std::optional<std::string> articleLink{};
    std::vector<SourceCredit> credits{};

    /// The link leads to Google News and the article behind it is not known yet.
    bool needsArticleLink() const;

    /// destinationName unless it only repeats the source's name in another letter case.
    std::optional<std::string> shownDestinationName() const;

    bool operator==(const Story&) const = default;
};

}  // namespace kit

template <>
struct std::hash<kit::Story> {
    std::size_t operator()(const kit::Story& story) const noexcept;
};
