#include "Tarnwick_Brell/Models/Pages/ActivityPageModel.h"

#include <algorithm>
#include <array>

#include <QLocale>

#include "NewsroomKit/Alerts/AlertEvent.h"
#include "Tarnwick_Brell/Alerts/AlertStore.h"
#include "Tarnwick_Brell/Models/Pages/ActivityLines.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

constexpr std::size_t kLogPage = 200;
constexpr std::array kPeriods{std::chrono::days(1), std::chrono::days(7), std::chrono::days(30)};

}  // namespace

ActivityPageModel::ActivityPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Activity")), loader_(stores.library), why_(stores) {
    connect(&why_, &WhyToldModel::sheetWanted, this, &ActivityPageModel::sheetWanted);
    connect(&loader_, &LogLoader::loaded, this, &ActivityPageModel::show);
    connect(&loader_, &LogLoader::failed, this, [this](const QString& sentence) {
        setCondition({.state = isRead_ ? Stale : Failed, .message = sentence});
    });
    connect(&trackers(), &TrackerStore::logChanged, this, [this] {
        if (!lookedAt_ || trackers().log().last != total_) reload();
    });
    connect(&stores.alerts, &AlertStore::logChanged, this, [this] {
        update();
        emit changed();
    });
    reload();
}

SignalSelection ActivityPageModel::selection() const {
    SignalSelection wanted{
        .leastWeight = static_cast<kit::SignalWeight>(weight_),
        .search = SearchText::parse(words_.toStdString(), SearchText::LastWord::stillTyped,
                                    SearchText::Authors::none)};
    if (kind_ > 0)
        wanted.kinds = {kit::enumTable<kit::SignalKind>[static_cast<std::size_t>(kind_ - 1)].value};
    if (period_ > 0) wanted.since = now() - kPeriods[static_cast<std::size_t>(period_ - 1)];
    return wanted;
}

void ActivityPageModel::reload() { loader_.load(selection(), std::max(kLogPage, log_.size())); }

void ActivityPageModel::filter() {
    loader_.load(selection(), kLogPage);
    emit changed();
}

void ActivityPageModel::loadMore() {
    if (isLast_ || log_.empty() || loader_.isLoading()) return;
    auto older = selection();
    older.before = log_.back().number;
    loader_.load(older, kLogPage);
}

void ActivityPageModel::show(const LogPage& page, const SignalSelection& selection) {
    const auto number = content_.empty() || row_ < 0
                            ? std::nullopt
                            : std::optional(content_[static_cast<std::size_t>(row_)].logged.number);
    if (!selection.before) log_.clear();
    log_.insert(log_.end(), page.found.begin(), page.found.end());
    isRead_ = true;
    isLast_ = page.isLast;
    total_ = page.total;
    begin_ = page.begin;
    // What was new when the page was opened stays marked until it is left.
    if (!lookedAt_ && trackers().log().last > 0) lookedAt_ = trackers().log().lookedAt;
    trackers().markLogLookedAt();
    update();
    choose(number);
}

void ActivityPageModel::update() {
    content_ = kit::activityRows(log_, lookedAt_.value_or(total_));
    newRows_ = static_cast<int>(std::ranges::count_if(content_, &kit::ActivityRow::isNew));
    lines_.setRows(activityLines(content_, stores().alerts.log().newest, now()));
    nothingShown_ = content_.empty() ? tr("Nothing in the log matches.") : QString();
    if (total_ == 0) {
        setCondition({.state = Empty,
                      .message = tr("Nothing has been logged yet."),
                      .hint = tr("What changes from one answer of a tracker to the next is kept "
                                 "here for good: builds, problems of services, signing, updates, "
                                 "charts, records.")});
        return;
    }
    const auto count = tr("%n entries", nullptr, static_cast<int>(total_));
    setCondition(
        {.state = Ready,
         .fact = begin_ ? tr("%1 since %2").arg(count, shortDayText(*begin_, now())) : count});
}

QString ActivityPageModel::countText() const {
    return newRows_ > 0 ? tr("%n since your last look", nullptr, newRows_)
                        : tr("Nothing new since your last look");
}

QString ActivityPageModel::untoldText() const {
    const auto untold = static_cast<int>(stores().alerts.log().untold);
    return untold > 0 ? tr("%n more by your rules", nullptr, untold) : QString();
}

void ActivityPageModel::showHistory() { emit sheetWanted(QStringLiteral("alert-history")); }

void ActivityPageModel::choose(std::optional<std::int64_t> number) {
    const auto found = std::ranges::find_if(
        content_, [&](const auto& row) { return number == row.logged.number; });
    const auto first = content_.empty() ? -1 : 0;
    row_ = found == content_.end() ? first : static_cast<int>(found - content_.begin());
    showChosen();
}

void ActivityPageModel::setRow(int row) {
    if (row == row_ || row < -1 || row >= std::ssize(content_)) return;
    row_ = row;
    showChosen();
}

void ActivityPageModel::showChosen() {
    chosen_ = {};
    wireFact_.clear();
    wireSentence_.clear();
    if (row_ < 0) {
        wireLines_.setRows({});
        why_.setEvent({});
        emit changed();
        return;
    }
    const auto& row = content_[static_cast<std::size_t>(row_)];
    const auto& signal = row.logged.signal;
    QStringList details{titleText(signal.detail, kExcerptCharacters)};
    if (row.devices.size() > 1) {
        details.clear();
        for (const auto& device : row.devices) details << titleText(device);
    }
    chosen_ = {.kind = signalKindText(signal.kind),
               .when = momentText(signal.seenAt, now()),
               .title = titleText(row.title, kTitleCharacters),
               .detail = details.join(QStringLiteral(", ")),
               .change = signalChange(signal),
               .link = openableLink(signal.link.value_or(std::string())),
               .place = placeOf(signal.kind)};
    why_.setEvent(kit::alertKey(signal));
    showWire(row);
    emit changed();
}

void ActivityPageModel::showWire(const kit::ActivityRow& chosen) {
    const auto content = wireOf(news(), chosen.logged.signal);
    wireLines_.setRows(activityWireLines(content, chosen));
    const auto shared = static_cast<int>(content.shared.size());
    const auto total = static_cast<int>(content.total());
    wireFact_ =
        tr("%1 to %2, %3 of %n stories share its words", nullptr, total)
            .arg(clockText(content.from), clockText(content.to), QLocale().toString(shared));
    wireSentence_ = wireLeadText(content);
}

void ActivityPageModel::setWords(const QString& words) {
    if (words == words_) return;
    words_ = words;
    filter();
}

void ActivityPageModel::setKind(int kind) {
    if (kind == kind_ || kind < 0 || kind > std::ssize(kit::enumTable<kit::SignalKind>)) return;
    kind_ = kind;
    filter();
}

void ActivityPageModel::setPeriod(int period) {
    if (period == period_ || period < 0 || period > std::ssize(kPeriods)) return;
    period_ = period;
    filter();
}

void ActivityPageModel::setWeight(int weight) {
    if (weight == weight_ || weight < 0 || weight >= std::ssize(kit::enumTable<kit::SignalWeight>))
        return;
    weight_ = weight;
    filter();
}

void ActivityPageModel::showAll() {
    words_.clear();
    kind_ = period_ = weight_ = 0;
    filter();
}

QStringList ActivityPageModel::kinds() const {
    QStringList names{tr("Any kind")};
    for (const auto& row : kit::enumTable<kit::SignalKind>) names << signalKindText(row.value);
    return names;
}

QStringList ActivityPageModel::periods() const {
    return {tr("Any time"), tr("Last 24 hours"), tr("Last 7 days"), tr("Last 30 days")};
}

QStringList ActivityPageModel::weights() const {
    return {tr("All"), labelText(label(kit::SignalWeight::notable)),
            labelText(label(kit::SignalWeight::major))};
}

void ActivityPageModel::openRow(int row) {
    setRow(row);
    if (row_ < 0 || row != row_) return;
    if (!chosen_.link.isEmpty()) {
        openLink(chosen_.link);
    } else {
        openPlace();
    }
}

void ActivityPageModel::alertOnSubject() {
    if (row_ < 0) return;
    const auto& signal = content_[static_cast<std::size_t>(row_)].logged.signal;
    emit sheetWanted(QStringLiteral("alert-from-words:") + plainText(signal.subject));
}

void ActivityPageModel::openPlace() {
    if (!chosen_.place.isEmpty()) emit placeWanted(chosen_.place);
}

void ActivityPageModel::openWireRow(int row) {
    const auto* found = wireLines_.row(row);
    if (found && !found->storyID.isEmpty()) openStory(found->storyID);
}

}  // namespace app
