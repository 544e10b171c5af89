#include "Tarnwick_Brell/Models/Alerts/RehearsalModel.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include <QElapsedTimer>
#include <QLocale>

#include "NewsroomKit/Alerts/AlertRuleText.h"
#include "NewsroomKit/Panels/PanelStory.h"
#include "Tarnwick_Brell/Alerts/PastEvents.h"
#include "Tarnwick_Brell/Alerts/QuietSettings.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Newsrooms/NewsroomStore.h"
#include "Tarnwick_Brell/Presentation/MarkedText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"
#include "Tarnwick_Brell/Storage/LocalStore.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr auto kTypingPause = 120ms;

QString rehearsedBadge(const kit::Rehearsal::Told& told, kit::Instant now) {
    if (!told.toldAt) return RehearsalModel::tr("Held");
    if (told.how == kit::AlertTelling::How::summary)
        return RehearsalModel::tr("Summary %1").arg(momentText(*told.toldAt, now));
    return {};
}

QString originOf(const kit::AlertEvent& event) {
    if (const auto* story = std::get_if<kit::Story>(&event.subject))
        return titleText(kit::outletOf(*story));
    return labelText(label(std::get<kit::Signal>(event.subject).kind));
}

std::vector<kit::PhraseMatcher> phrasesOf(const std::vector<std::string>& words) {
    std::vector<kit::PhraseMatcher> phrases;
    for (const auto& word : words) phrases.emplace_back(word);
    return phrases;
}

RehearsedRow rowOf(const kit::Rehearsal::Told& told, const kit::AlertEvent& event,
                   kit::Instant now) {
    const auto& match = told.match.match;
    RehearsedRow row{.when = momentText(match.at, now),
                     .origin = originOf(event),
                     .badge = rehearsedBadge(told, now)};
    const auto marks = kit::termMarks(phrasesOf(match.words), match.title, {});
    for (const auto& piece : markedPieces(match.title, marks.title, kTitleCharacters))
        row.title.push_back({.text = piece.text, .isMatch = piece.isMatch});
    row.spokenText =
        spokenRow({titleText(match.title, kTitleCharacters), row.origin, row.badge, row.when});
    return row;
}

}  // namespace

RehearsalModel::RehearsalModel(const DeskStores& stores, QObject* parent)
    : QObject(parent), stores_(stores) {
    pause_.setSingleShot(true);
    pause_.setInterval(kTypingPause);
    connect(&pause_, &QTimer::timeout, this, &RehearsalModel::start);
}

void RehearsalModel::setRule(const kit::AlertRule& rule) {
    if (rule == rule_) return;
    rule_ = rule;
    pause_.start();
}

void RehearsalModel::fail(const QString& problem) {
    problem_ = problem;
    isReady_ = false;
    rows_.setRows({});
    emit changed();
}

void RehearsalModel::start() {
    if (std::holds_alternative<kit::PriceTrigger>(rule_.trigger)) {
        fail(
            tr("The library keeps one price a day, so a rule on a price can't be tried on the "
               "past."));
        return;
    }
    if (const auto wrong = kit::alertRuleProblem(rule_, stores_.clock()))
        return fail(titleText(*wrong));
    now_ = stores_.clock();
    std::optional<kit::StoryQuery> beat;
    if (const auto* stories = std::get_if<kit::StoriesTrigger>(&rule_.trigger);
        stories && stories->beat) {
        const auto* entry = stores_.newsrooms.beats().find(*stories->beat);
        if (entry && entry->value) beat = entry->value->query;
    }
    const auto read = [rule = rule_, library = stores_.library, now = now_, beat,
                       stories = stories_, logged = logged_, clusters = stores_.news.clusters(),
                       quiet = quietOf(stores_.defaults)] {
        Answer answer{.stories = stories, .logged = logged};
        const bool isOfStories = std::holds_alternative<kit::StoriesTrigger>(rule.trigger);
        auto& events = isOfStories ? answer.stories : answer.logged;
        const auto since = now - std::chrono::days(kDays);
        if (!events) {
            LocalStore store(library, Database::Access::readOnly);
            events = std::make_shared<const std::vector<kit::AlertEvent>>(
                isOfStories ? pastStories(store, since) : pastSignals(store, since));
        }
        QElapsedTimer timer;
        timer.start();
        const auto queryOf = [&](const std::string&) { return beat; };
        static const std::vector<kit::StoryCluster> none;
        answer.rehearsal =
            kit::rehearse(rule, queryOf, *events, clusters ? *clusters : none, quiet, now, kDays);
        answer.milliseconds = timer.elapsed();
        answer.events = events->size();
        for (const auto& told : answer.rehearsal.told)
            answer.rows.push_back(rowOf(told, (*events)[told.match.event], now));
        return answer;
    };
    reading_.start(
        read, [this](Answer answer) { show(std::move(answer)); },
        [this](const QString& problem) { fail(problem); });
}

void RehearsalModel::show(Answer answer) {
    stories_ = answer.stories;
    logged_ = answer.logged;
    problem_.clear();
    isReady_ = true;
    rows_.setRows(std::exchange(answer.rows, {}));
    answer_ = std::move(answer);
    emit changed();
}

QString RehearsalModel::count() const {
    return tr("%n times", nullptr, static_cast<int>(answer_.rehearsal.total));
}

QString RehearsalModel::rate() const {
    const auto aDay = answer_.rehearsal.aDay();
    if (aDay < 2) return tr("in the last %1 days").arg(kDays);
    return tr("in the last %1 days, %2 a day").arg(kDays).arg(QLocale().toString(qRound(aDay)));
}

QString RehearsalModel::firstDay() const {
    return shortDayText(now_ - std::chrono::days(kDays), now_);
}

QList<qreal> RehearsalModel::bars() const {
    QList<qreal> bars;
    const auto& days = answer_.rehearsal.perDay;
    const auto most = days.empty() ? 0 : std::ranges::max(days);
    for (const auto count : days)
        bars.push_back(most == 0 ? 0 : static_cast<qreal>(count) / static_cast<qreal>(most));
    return bars;
}

QString RehearsalModel::summary() const {
    const auto& count = answer_.rehearsal.count;
    if (answer_.rehearsal.total == 0) return tr("It would have told nothing.");
    QStringList parts{tr("%1 told at once").arg(count.atOnce)};
    if (count.afterQuietHours > 0)
        parts << tr("%1 in a summary after quiet hours").arg(count.afterQuietHours);
    if (count.heldBack > 0) parts << tr("%1 held back by its minutes").arg(count.heldBack);
    if (count.overCap > 0) parts << tr("%1 over the limit of an hour").arg(count.overCap);
    return parts.join(QStringLiteral(", ")) + u'.';
}

QString RehearsalModel::tried() const {
    if (!isReady_) return {};
    const auto events = QLocale().toString(static_cast<qulonglong>(answer_.events));
    const auto form = std::holds_alternative<kit::StoriesTrigger>(rule_.trigger)
                          ? tr("Tried on %1 stories in %2 ms. Nothing is sent while you edit.")
                          : tr("Tried on %1 signals in %2 ms. Nothing is sent while you edit.");
    return form.arg(events).arg(answer_.milliseconds);
}

}  // namespace app
