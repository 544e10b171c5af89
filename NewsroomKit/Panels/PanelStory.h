#pragma once

#include <span>
#include <string>
#include <vector>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Attribution/LaterAnswers.h"
#include "NewsroomKit/Clusters/StoryCluster.h"
#include "NewsroomKit/Records/Instant.h"
#include "NewsroomKit/Stories/Story.h"

namespace kit {

/// A story of the wire as panels see it.
struct PanelStory {
    const Story* story = nullptr;
    Instant firstSeen{};
    bool isRead = false;
};

/// What a story panel is made from. Only these stories count: of a cluster, the members among
/// them. All must live as long as the content is being made; the content itself keeps none.
struct PanelNews {
    std::span<const PanelStory> stories{};     ///< those that match the panel's query
    std::span<const StoryCluster> clusters{};  ///< of all stories
    Instant now{};
    /// The user's word on who was first; labels and clusters have theirs already. Null for none.
    const CorrectionOverlay* corrections = nullptr;
    /// What has settled claims before.
    std::span<const ClaimAnswer> answers{};
};

std::vector<const Story*> storiesOf(const PanelNews& news);
/// The ids of the stories of each cluster.
std::vector<std::vector<std::string>> groupsOf(const PanelNews& news);

/// A story named in a panel: enough to show it and to open it.
struct StoryMention {
    std::string storyID{};
    std::string title{};
    std::string outlet{};  ///< whose own words it is, see tellingOutlet()
    Instant publishedAt{};
    Sourcing sourcing = Sourcing::unlabeled;
    bool isRead = false;

    static StoryMention of(const PanelStory& story);

    bool operator==(const StoryMention&) const = default;
};

/// The outlet that the story's link leads to, else the source itself.
std::string outletOf(const Story& story);

}  // namespace kit
