// What the rows of the list of clusters show.
#include <algorithm>

#include "Tarnwick_Brell/Desk/Corrections.h"
#include "Tarnwick_Brell/Models/Stories/ClusterListModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

const kit::ClusterSummary& ClusterListModel::summaryOf(const Row& row) const {
    const auto key = row.cluster == kAlone ? -1 - row.number : std::int64_t{row.cluster};
    if (const auto known = summaries_.find(key); known != summaries_.end()) return known->second;
    std::vector<StoredStory> stored;
    const auto add = [&stored](const PackedStory* story) {
        if (story) stored.push_back(story->unpacked());
    };
    const auto& wire = desk_.stories();
    if (row.cluster == kAlone) {
        add(&wire[*wire.placeOf(row.number)]);
    } else {
        for (const auto& id : (*clusters_)[static_cast<std::size_t>(row.cluster)].storyIDs)
            add(wire.find(id));
    }
    std::vector<kit::PanelStory> stories;
    for (const auto& each : stored)
        stories.push_back({.story = &each.story,
                           .firstSeen = each.firstSeen,
                           .isRead = desk_.isRead(each.story.id)});
    return summaries_
        .emplace(key, kit::clusterSummary(stories, clock_(), desk_.corrections().overlay().get()))
        .first->second;
}

const kit::ClusterSummary::Member& ClusterListModel::memberOf(const Row& row) const {
    const auto& wire = desk_.stories();
    const auto id = wire[*wire.placeOf(row.number)].id();
    const auto& stories = summaryOf(row).stories;
    const auto found = std::ranges::find_if(
        stories, [&](const auto& member) { return member.mention.storyID == id; });
    return found == stories.end() ? stories.front() : *found;
}

int ClusterListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : count();
}

QVariant ClusterListModel::data(const QModelIndex& index, int role) const {
    if (index.row() < 0 || index.row() >= count()) return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    // A story that has just gone from the wire leaves this list a moment later.
    if (!desk_.stories().placeOf(row.number)) return {};
    switch (role) {
        case IsMember: return row.isMember;
        case CanOpen: return row.cluster != kAlone && !row.isMember;
        case IsOpen: return row.isOpen;
        case SpokenText: return spokenText(row);
        default: return row.isMember ? memberData(row, role) : clusterData(row, role);
    }
}

QVariant ClusterListModel::clusterData(const Row& row, int role) const {
    const auto& summary = summaryOf(row);
    const auto& first = summary.stories.front().mention;
    const auto outlets = static_cast<int>(summary.outlets.size());
    switch (role) {
        case StoryID: return plainText(first.storyID);
        case Title: return titleText(first.title, kTitleCharacters);
        case IsRead: return summary.unread == 0;
        case OutletCount: return QString::number(outlets);
        case OutletLabel: return outlets == 1 ? tr("outlet") : tr("outlets");
        case Outlet:
            return outlets > 1 ? leaderText(summary.attribution, summary.outlets)
                               : titleText(first.outlet);
        case Lead: return outlets > 1 ? leadText(summary.attribution, summary.outlets) : QString();
        case Sourcing: return StorySourcing::of(summary.sourcing);
        case SourcingLabel: return sourcingText(summary.sourcing);
        case Time: return ageText(summary.newest, clock_());
        case Growth:
            return summary.lastHour > 0 && row.cluster != kAlone
                       ? tr("%n in the last hour", nullptr, static_cast<int>(summary.lastHour))
                       : QString();
        case IsFirst: return false;
        default: return {};
    }
}

QVariant ClusterListModel::memberData(const Row& row, int role) const {
    const auto& [story, delay, isFirst] = memberOf(row);
    switch (role) {
        case StoryID: return plainText(story.storyID);
        case Title: return titleText(story.title, kTitleCharacters);
        case IsRead: return story.isRead;
        case Outlet: return titleText(story.outlet, 60);
        case Lead: return isFirst ? tr("First") : delay ? delayText(*delay) : QString();
        case Sourcing: return StorySourcing::of(story.sourcing);
        case SourcingLabel: return sourcingText(story.sourcing);
        case Time: return momentText(story.publishedAt, clock_());
        case IsFirst: return isFirst;
        case OutletCount:
        case OutletLabel:
        case Growth: return QString();
        default: return {};
    }
}

QString ClusterListModel::spokenText(const Row& row) const {
    const auto text = [&](int role) {
        return (row.isMember ? memberData(row, role) : clusterData(row, role)).toString();
    };
    const bool isRead =
        (row.isMember ? memberData(row, IsRead) : clusterData(row, IsRead)).toBool();
    const auto unread = isRead ? QString() : tr("Unread");
    if (row.isMember)
        return spokenRow(
            {unread, text(Time), text(Outlet), text(Title), text(SourcingLabel), text(Lead)});
    return spokenRow({unread, text(Title), text(OutletCount) + u' ' + text(OutletLabel),
                      text(SourcingLabel), spokenRow({text(Outlet), text(Lead)}), text(Growth),
                      text(Time)});
}

QHash<int, QByteArray> ClusterListModel::roleNames() const {
    return {{StoryID, "storyID"},
            {Title, "title"},
            {IsRead, "isRead"},
            {IsMember, "isMember"},
            {CanOpen, "canOpen"},
            {IsOpen, "isOpen"},
            {OutletCount, "outletCount"},
            {OutletLabel, "outletLabel"},
            {Outlet, "outlet"},
            {Lead, "lead"},
            {Sourcing, "sourcing"},
            {SourcingLabel, "sourcingLabel"},
            {Time, "time"},
            {Growth, "growth"},
            {IsFirst, "isFirst"},
            {SpokenText, "spokenText"}};
}

}  // namespace app
