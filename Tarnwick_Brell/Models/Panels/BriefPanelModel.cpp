#include "Tarnwick_Brell/Models/Panels/BriefPanelModel.h"

#include "Tarnwick_Brell/Presentation/BriefText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::BriefContent;

BriefRow rowOf(const kit::BriefItem& item, kit::Instant now) {
    BriefRow row{.sentence = briefSentence(item, now), .sources = briefSources(item, now)};
    if (const auto* topic = std::get_if<BriefContent::Topic>(&item)) {
        row.storyID = plainText(topic->headline.storyID);
    } else if (const auto* posts = std::get_if<BriefContent::ApplePosts>(&item)) {
        row.storyID = plainText(posts->latest.storyID);
    } else {
        row.link = plainText(std::get<kit::TrackerChange>(item).link);
    }
    row.spokenText = spokenRow({row.sentence, row.sources});
    return row;
}

}  // namespace

BriefPanelModel::BriefPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                 const kit::StoryQuery& query)
    : QueryPanelModel(stores, panel, query), wanted_(query) {
    gather([this] { return kit::briefStart(news().newSince(), now()) - kit::kBriefLateness; },
           [](const auto& gathered) { return kit::brief(gathered.news, gathered.lastLook); },
           [this](const auto& content, const auto& extent) {
               content_ = content;
               extent_ = extent;
               show();
           });
    connect(&trackers(), &TrackerStore::statusChanged, this, &BriefPanelModel::show);
    connect(&trackers(), &TrackerStore::releasesChanged, this, &BriefPanelModel::show);
    connect(&trackers(), &TrackerStore::logChanged, this, &BriefPanelModel::show);
}

void BriefPanelModel::show() {
    if (!content_) return;
    const auto since = kit::briefStart(news().newSince(), now());
    auto answers = kit::TrackerAnswers::of(trackers().consumerStatus(),
                                           trackers().developerStatus(), trackers().releases());
    answers.records = trackers().log().records;
    answers.findings = trackers().log().findings;
    const auto changes = kit::trackerChanges(answers, wanted_, since);
    std::vector<BriefRow> rows;
    for (const auto& item : kit::briefItems(*content_, changes)) rows.push_back(rowOf(item, now()));
    rows_.setRows(std::move(rows));
    const auto fact = content_->since ? tr("Since %1").arg(momentText(*content_->since, now()))
                                      : tr("Last 24 hours");
    if (rows_.rowCount() > 0) {
        setCondition({.state = Ready, .fact = fact});
        return;
    }
    auto hint = extent_.newest
                    ? tr("The newest story is from %1.").arg(momentText(*extent_.newest, now()))
                    : QString();
    setCondition({.state = Empty,
                  .fact = fact,
                  .message = nothingNewText(*content_),
                  .hint = std::move(hint)});
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
