#include "Tarnwick_Brell/Models/Panels/BriefPanelModel.h"

#include <algorithm>
#include <string>

#include "NewsroomKit/Trackers/Status/AppleStatusAPI.h"
#include "Tarnwick_Brell/Models/Panels/MentionText.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::AppleServiceStatus;
using kit::Instant;

constexpr std::chrono::hours kWithoutLastLook{24};
/// Whoever was away for longer reads a brief of that time.
constexpr std::chrono::days kMostAbsence{30};

BriefRow spoken(BriefRow row) {
    row.spokenText = spokenRow({row.sentence, row.sources});
    return row;
}

/// One of these, one of those, so that neither stands below all of the others.
std::vector<BriefRow> interleaved(std::vector<BriefRow> news, std::vector<BriefRow> others) {
    std::vector<BriefRow> rows;
    for (std::size_t i = 0; i < std::max(news.size(), others.size()); ++i) {
        if (i < news.size()) rows.push_back(std::move(news[i]));
        if (i < others.size()) rows.push_back(std::move(others[i]));
    }
    return rows;
}

QString systemText(const std::string& platform, const kit::SoftwareRelease& release) {
    if (!release.title.empty()) return titleText(release.title);
    QStringList words{titleText(platform), titleText(release.version)};
    if (!release.stage.empty()) words << titleText(release.stage);
    words.removeAll(QString());
    return words.join(u' ');
}

}  // namespace

BriefPanelModel::BriefPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                 const kit::StoryQuery& query)
    : QueryPanelModel(stores, panel, query), wanted_(query) {
    gather([this] { return since() - kit::kBriefLateness; },
           [](const auto& gathered) { return kit::brief(gathered.news, gathered.lastLook); },
           [this](const auto& content, const auto& extent) {
               content_ = content;
               extent_ = extent;
               show();
           });
    connect(&trackers(), &TrackerStore::statusChanged, this, &BriefPanelModel::show);
    connect(&trackers(), &TrackerStore::releasesChanged, this, &BriefPanelModel::show);
}

Instant BriefPanelModel::since() const {
    const auto earliest = now() - kMostAbsence;
    return std::max(news().newSince().value_or(now() - kWithoutLastLook), earliest);
}

void BriefPanelModel::show() {
    if (!content_) return;
    rows_.setRows(interleaved(newsRows(), otherRows()));
    const auto fact = content_->since ? tr("Since %1").arg(momentText(*content_->since, now()))
                                      : tr("Last 24 hours");
    if (rows_.rowCount() > 0) {
        become({.state = Ready, .fact = fact});
        return;
    }
    auto hint = extent_.newest
                    ? tr("The newest story is from %1.").arg(momentText(*extent_.newest, now()))
                    : QString();
    become({.state = Empty,
            .fact = fact,
            .message = content_->since ? tr("Nothing new since your last look.")
                                       : tr("Nothing new in the last 24 hours."),
            .hint = std::move(hint)});
}

std::vector<BriefRow> BriefPanelModel::newsRows() const {
    std::vector<BriefRow> rows;
    for (const auto& topic : content_->topics) {
        rows.push_back(spoken({.sentence = titleText(topic.headline.title, kTitleCharacters),
                               .sources = sourcesText(topic.outlets, now()),
                               .storyID = plainText(topic.headline.storyID)}));
    }
    return rows;
}

std::vector<BriefRow> BriefPanelModel::otherRows() const {
    std::vector<BriefRow> rows;
    addProblems(rows);
    addBuilds(rows);
    addPosts(rows);
    return rows;
}

/// What a tracker says is on the record, and from no source of the wire.
void BriefPanelModel::addIfWanted(std::vector<BriefRow>& rows, BriefRow row) const {
    const auto text = row.sentence.toStdString();
    if (wanted_.matches(kit::StoryFacts{.sourcing = kit::Sourcing::confirmed, .title = text})) {
        rows.push_back(spoken(std::move(row)));
    }
}

void BriefPanelModel::addProblems(std::vector<BriefRow>& rows) const {
    for (const auto* status : {&trackers().consumerStatus(), &trackers().developerStatus()}) {
        if (!status->value) continue;
        for (const auto& report : AppleServiceStatus::ongoingReports(*status->value)) {
            const auto& started = report.incident.started;
            if (started && *started < since()) continue;
            const auto service = titleText(report.service);
            BriefRow row{.sentence = started ? tr("%1 is having a problem since %2.")
                                                   .arg(service, momentText(*started, now()))
                                             : tr("%1 is having a problem.").arg(service),
                         .sources = tr("System Status"),
                         .link = plainText(kit::AppleStatusAPI::kPage)};
            if (status->fetchedAt)
                row.sources = tr("System Status %1").arg(momentText(*status->fetchedAt, now()));
            addIfWanted(rows, std::move(row));
        }
    }
}

void BriefPanelModel::addBuilds(std::vector<BriefRow>& rows) const {
    const auto& releases = trackers().releases().value;
    if (!releases) return;
    for (const auto& platform : *releases) {
        for (const auto* release : {&platform.current, &platform.beta}) {
            if (!*release || (*release)->published < since()) continue;
            const auto system = systemText(platform.platform, **release);
            const auto build = titleText((*release)->build);
            addIfWanted(
                rows, {.sentence = build.isEmpty() ? tr("%1 is out.").arg(system)
                                                   : tr("%1 is out, build %2.").arg(system, build),
                       .sources = tr("Apple Developer Releases %1")
                                      .arg(momentText((*release)->published, now())),
                       .link = plainText((*release)->url)});
        }
    }
}

void BriefPanelModel::addPosts(std::vector<BriefRow>& rows) const {
    if (!content_->apple) return;
    const auto& latest = content_->apple->latest;
    const auto title = titleText(latest.title, kTitleCharacters);
    const auto count = static_cast<int>(content_->apple->count);
    rows.push_back(spoken(
        {.sentence = count == 1 ? tr("Apple posted: %1").arg(title)
                                : tr("Apple posted %n times, last: %1", nullptr, count).arg(title),
         .sources = sourcesText({latest}, now()),
         .storyID = plainText(latest.storyID)}));
}

void BriefPanelModel::open(int index) {
    const auto* row = rows_.row(index);
    if (!row) return;
    if (!row->storyID.isEmpty()) {
        openStory(row->storyID);
    } else if (!row->link.isEmpty()) {
        openLink(row->link);
    }
}

}  // namespace app
