#include "Tarnwick_Brell/Models/Panels/BriefPanel.h"

#include <algorithm>
#include <string>

#include "NewsroomKit/Trackers/AppleStatusAPI.h"
#include "Tarnwick_Brell/Models/Panels/MentionText.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Text/ShownText.h"
#include "Tarnwick_Brell/Text/TimeText.h"

namespace desk {

namespace {

using newsroom::AppleServiceStatus;
using newsroom::Instant;

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

QString systemText(const std::string& platform, const newsroom::SoftwareRelease& release) {
    if (!release.title.empty()) return titleText(release.title);
    QStringList words{titleText(platform), titleText(release.version)};
    if (!release.stage.empty()) words << titleText(release.stage);
    words.removeAll(QString());
    return words.join(u' ');
}

}  // namespace

BriefPanel::BriefPanel(const PanelStores& stores, const newsroom::PanelSpec& panel,
                       const newsroom::StoryQuery& query)
    : GatheredPanel(stores, panel, query), wanted_(query) {
    gather([this] { return since() - newsroom::kBriefLateness; },
           [](const auto& gathered) { return newsroom::brief(gathered.news, gathered.lastLook); },
           [this](const auto& content, const auto& extent) {
               content_ = content;
               extent_ = extent;
               show();
           });
    connect(&trackers(), &TrackerStore::statusChanged, this, &BriefPanel::show);
    connect(&trackers(), &TrackerStore::releasesChanged, this, &BriefPanel::show);
}

Instant BriefPanel::since() const {
    const auto earliest = now() - kMostAbsence;
    return std::max(news().newSince().value_or(now() - kWithoutLastLook), earliest);
}

void BriefPanel::show() {
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

std::vector<BriefRow> BriefPanel::newsRows() const {
    std::vector<BriefRow> rows;
    for (const auto& topic : content_->topics) {
        rows.push_back(spoken({.sentence = titleText(topic.headline.title, kTitleCharacters),
                               .sources = sourcesText(topic.outlets, now()),
                               .storyID = plainText(topic.headline.storyID)}));
    }
    return rows;
}

std::vector<BriefRow> BriefPanel::otherRows() const {
    std::vector<BriefRow> rows;
    addProblems(rows);
    addBuilds(rows);
    addPosts(rows);
    return rows;
}

/// What a tracker says is on the record, and from no source of the wire.
void BriefPanel::addIfWanted(std::vector<BriefRow>& rows, BriefRow row) const {
    const auto text = row.sentence.toStdString();
    if (wanted_.matches(
            newsroom::StoryFacts{.sourcing = newsroom::Sourcing::confirmed, .title = text})) {
        rows.push_back(spoken(std::move(row)));
    }
}

void BriefPanel::addProblems(std::vector<BriefRow>& rows) const {
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
                         .link = plainText(newsroom::AppleStatusAPI::kPage)};
            if (status->fetchedAt)
                row.sources = tr("System Status %1").arg(momentText(*status->fetchedAt, now()));
            addIfWanted(rows, std::move(row));
        }
    }
}

void BriefPanel::addBuilds(std::vector<BriefRow>& rows) const {
    const auto& releases = trackers().releases().value;
    if (!releases) return;
    for (const auto& platform : *releases) {
        for (const auto* release : {&platform.current, &platform.beta}) {
            if (!*release || (*release)->published < since()) continue;
            const auto system = systemText(platform.platform, **release);
            const auto build = titleText((*release)->build);
            addIfWanted(rows,
                        {.sentence = build.isEmpty() ? tr("%1 is out.").arg(system)
                                                 : tr("%1 is out, build %2.").arg(system, build),
                         .sources = tr("Apple Developer Releases %1")
                                    .arg(momentText((*release)->published, now())),
                         .link = plainText((*release)->url)});
        }
    }
}

void BriefPanel::addPosts(std::vector<BriefRow>& rows) const {
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

void BriefPanel::open(int index) {
    const auto* row = rows_.row(index);
    if (!row) return;
    if (!row->storyID.isEmpty()) {
        openStory(row->storyID);
    } else if (!row->link.isEmpty()) {
        openLink(row->link);
    }
}

}  // namespace desk
