#include "Tarnwick_Brell/Models/Pages/TopStoriesPageModel.h"

#include <algorithm>

#include <QLocale>

#include "NewsroomKit/Panels/StoryGroup.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

/// The labels that the chip offers, after the one that filters nothing.
constexpr std::array kOfferedSourcings{kit::Sourcing::confirmed, kit::Sourcing::onRecord,
                                       kit::Sourcing::report, kit::Sourcing::rumor};

const std::string& keyOf(const kit::ClusterSummary& subject) {
    return subject.stories.front().mention.storyID;
}

QString whyItLeads(const kit::ClusterSummary& subject) {
    const auto outlets = static_cast<int>(subject.outlets.size());
    const auto label = sourcingText(subject.sourcing);
    QStringList reasons{TopStoriesPageModel::tr("%n outlets", nullptr, outlets)};
    if (!label.isEmpty()) reasons << label.toLower();
    if (subject.lastHour > 0)
        reasons << TopStoriesPageModel::tr("%n in the last hour", nullptr,
                                           static_cast<int>(subject.lastHour));
    return TopStoriesPageModel::tr("Why it stands here: %1").arg(reasons.join(u", "));
}

TopStoriesPageRow sentenceRow(const QString& sentence) {
    return {.part = TopStoriesPageModel::Sentence, .title = sentence, .spokenText = sentence};
}

}  // namespace

TopStoriesPageModel::TopStoriesPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Top stories")),
      collector_(std::make_shared<PanelStoryCollector>(news(), stores.clock)) {
    connect(&news(), &NewsDesk::loadFailed, this, [this](const QString& sentence) {
        setCondition({.state = Failed, .message = sentence});
    });
    subscription_ = collector_->add(
        {.earliest = [this] { return now() - kit::kFirstsSpan - kit::kEarlierContext; },
         .build =
             [this](const QueryResult& result) {
                 return [this, content = kit::topStoriesContent(result.news),
                         made = result.news.now] { show(content, made); };
             }});
}

TopStoriesPageModel::~TopStoriesPageModel() { collector_->remove(subscription_); }

void TopStoriesPageModel::show(const kit::TopStoriesContent& content, kit::Instant now) {
    const bool isFirst = !madeAt_;
    content_ = content;
    madeAt_ = now;
    if (isFirst && !content_.subjects.empty()) open_.insert(keyOf(content_.subjects.front()));
    update();
}

void TopStoriesPageModel::update() {
    if (!madeAt_) return;
    std::vector<TopStoriesPageRow> rows;
    showsClusters_ ? addClusters(rows) : addStories(rows);
    rows_.setRows(std::move(rows));
    showScoops();
    showFirsts();
    const auto stories = static_cast<int>(content_.stories);
    countText_ = tr("%n stories", nullptr, stories);
    countText_ = tr("%n subjects of 48 h, %1", nullptr, static_cast<int>(content_.subjects.size()))
                     .arg(countText_);
    if (content_.subjects.empty()) {
        setCondition({.state = Empty,
                      .message = tr("No news of the last 48 hours is covered by two outlets."),
                      .hint = tr("A subject stands here once a second outlet covers it.")});
    } else {
        setCondition({.state = Ready, .fact = tr("Ranked %1").arg(clockText(*madeAt_))});
    }
}

bool TopStoriesPageModel::passes(const Summary& subject) const {
    if (growingOnly_ && subject.lastHour == 0) return false;
    if (sourcing_ > 0 &&
        subject.sourcing != kOfferedSourcings[static_cast<std::size_t>(sourcing_ - 1)])
        return false;
    const kit::RowFilter filter(words_);
    return std::ranges::any_of(subject.stories, [&](const auto& member) {
        return filter.matches({member.mention.title, member.mention.outlet});
    });
}

void TopStoriesPageModel::addClusters(std::vector<TopStoriesPageRow>& rows) const {
    for (std::size_t place = 0; place < content_.subjects.size(); ++place) {
        const auto& subject = content_.subjects[place];
        if (!passes(subject)) continue;
        const auto from = rows.size();
        rows.push_back(subjectRow(subject));
        if (rows.back().isOpen) addTimeline(rows, subject);
        for (auto row = from; row < rows.size(); ++row) rows[row].subject = static_cast<int>(place);
    }
}

TopStoriesPageRow TopStoriesPageModel::subjectRow(const Summary& subject) const {
    const auto& first = subject.stories.front().mention;
    const auto outlets = static_cast<int>(subject.outlets.size());
    const auto& attribution = subject.attribution;
    TopStoriesPageRow row{.part = Subject,
                          .storyID = plainText(first.storyID),
                          .title = titleText(first.title, kTitleCharacters),
                          .isRead = subject.unread == 0,
                          .outletCount = QLocale().toString(outlets),
                          .outletLabel = outlets == 1 ? tr("outlet") : tr("outlets"),
                          .outlet = leaderText(attribution, subject.outlets),
                          .lead = leadText(attribution, subject.outlets),
                          .sourcing = StorySourcing::of(subject.sourcing),
                          .sourcingLabel = sourcingText(subject.sourcing),
                          .time = momentText(subject.newest, *madeAt_),
                          .grows = subject.lastHour > 0,
                          .isOpen = open_.contains(keyOf(subject))};
    row.growth = row.grows ? tr("%n in the last hour", nullptr, static_cast<int>(subject.lastHour))
                           : tr("no longer grows");
    row.spokenText = spokenRow({row.isRead ? QString() : tr("Unread"), row.title,
                                tr("%n outlets", nullptr, outlets), row.sourcingLabel,
                                spokenRow({row.outlet, row.lead}), row.growth, row.time});
    return row;
}

TopStoriesPageRow TopStoriesPageModel::memberRow(const Summary::Member& member) const {
    const auto& story = member.mention;
    TopStoriesPageRow row{.part = Member,
                          .storyID = plainText(story.storyID),
                          .title = titleText(story.title, kTitleCharacters),
                          .isRead = story.isRead,
                          .outlet = titleText(story.outlet, 60),
                          .sourcing = StorySourcing::of(story.sourcing),
                          .sourcingLabel = sourcingText(story.sourcing),
                          .time = momentText(story.publishedAt, *madeAt_),
                          .isFirst = member.isFirst};
    if (member.isFirst) {
        row.lead = tr("First");
    } else if (member.delay) {
        row.lead = delayText(*member.delay);
    }
    row.spokenText = spokenRow({row.isRead ? QString() : tr("Unread"), row.time, row.outlet,
                                row.title, row.sourcingLabel, row.lead});
    return row;
}

void TopStoriesPageModel::addTimeline(std::vector<TopStoriesPageRow>& rows,
                                      const Summary& subject) const {
    rows.push_back(sentenceRow(whyItLeads(subject)));
    const auto top = rows.size();
    for (const auto& member : subject.stories) rows.push_back(memberRow(member));
    rows[top].isTop = true;
    rows.back().isBottom = true;
    rows.push_back(sentenceRow(plainText(subject.attribution.sentence)));
}

void TopStoriesPageModel::addStories(std::vector<TopStoriesPageRow>& rows) const {
    std::vector<std::pair<const Summary::Member*, int>> members;
    for (std::size_t place = 0; place < content_.subjects.size(); ++place) {
        if (!passes(content_.subjects[place])) continue;
        for (const auto& member : content_.subjects[place].stories)
            members.emplace_back(&member, static_cast<int>(place));
    }
    std::ranges::stable_sort(members, std::ranges::greater{},
                             [](const auto& each) { return each.first->mention.publishedAt; });
    for (const auto& [member, subject] : members) {
        rows.push_back(memberRow(*member));
        rows.back().part = Story;
        rows.back().subject = subject;
    }
}

void TopStoriesPageModel::showScoops() {
    std::vector<FirstWithItRow> rows;
    for (const auto& scoop : content_.scoops) {
        FirstWithItRow row{
            .storyID = plainText(scoop.story.storyID),
            .title = titleText(scoop.story.title, kTitleCharacters),
            .outlet = titleText(*scoop.attribution.first),
            .followed = tr("%n followed", nullptr, static_cast<int>(scoop.followers))};
        if (scoop.attribution.lead)
            row.lead = spanText(std::chrono::seconds(*scoop.attribution.lead));
        row.spokenText = spokenRow({row.title, row.outlet, row.lead, row.followed});
        rows.push_back(std::move(row));
    }
    scoops_.setRows(std::move(rows));
}

void TopStoriesPageModel::showFirsts() {
    std::vector<FirstsBar> bars;
    const auto most = content_.firsts.empty() ? 1 : content_.firsts.front().times;
    const auto add = [&](const QString& outlet, std::size_t times) {
        const auto share = static_cast<double>(times) / static_cast<double>(most);
        bars.push_back({.outlet = outlet,
                        .times = QLocale().toString(static_cast<qulonglong>(times)),
                        .fraction = std::min(1.0, share),
                        .spokenText = spokenRow(
                            {outlet, tr("first %n times", nullptr, static_cast<int>(times))})});
    };
    for (const auto& firsts : content_.firsts) add(titleText(firsts.outlet, 60), firsts.times);
    if (content_.otherOutlets > 0)
        add(tr("%n others", nullptr, static_cast<int>(content_.otherOutlets)),
            content_.otherFirsts);
    firsts_.setRows(std::move(bars));
}

QString TopStoriesPageModel::firstsText() const {
    return content_.allFirsts > 0
               ? tr("of %1").arg(QLocale().toString(static_cast<qulonglong>(content_.allFirsts)))
               : QString();
}

QStringList TopStoriesPageModel::sourcings() const {
    QStringList names{tr("Any sourcing")};
    for (const auto sourcing : kOfferedSourcings) names << sourcingText(sourcing);
    return names;
}

void TopStoriesPageModel::setWords(const QString& words) {
    words_ = words.toStdString();
    update();
}

void TopStoriesPageModel::setSourcing(int sourcing) {
    if (sourcing < 0 || sourcing > std::ssize(kOfferedSourcings)) return;
    sourcing_ = sourcing;
    update();
}

void TopStoriesPageModel::setGrowingOnly(bool growingOnly) {
    growingOnly_ = growingOnly;
    update();
}

void TopStoriesPageModel::setClustered(bool clustered) {
    if (showsClusters_ == clustered) return;
    showsClusters_ = clustered;
    update();
}

bool TopStoriesPageModel::canChoose(int row) const {
    const auto* found = rows_.row(row);
    return found && found->part != Sentence;
}

void TopStoriesPageModel::openRow(int row) {
    const auto* found = rows_.row(row);
    if (!found || found->part == Sentence) return;
    if (found->part == Subject) {
        setOpen(row, !found->isOpen);
    } else {
        openStory(found->storyID);
    }
}

void TopStoriesPageModel::setOpen(int row, bool open) {
    const auto* found = rows_.row(row);
    if (!found || found->part == Story) return;
    const auto& key = keyOf(content_.subjects[static_cast<std::size_t>(found->subject)]);
    if (open == open_.contains(key)) return;
    open ? static_cast<void>(open_.insert(key)) : static_cast<void>(open_.erase(key));
    update();
}

void TopStoriesPageModel::openScoop(int row) {
    if (const auto* scoop = scoops_.row(row)) openStory(scoop->storyID);
}

}  // namespace app
