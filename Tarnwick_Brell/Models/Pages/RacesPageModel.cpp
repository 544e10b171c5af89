#include "Tarnwick_Brell/Models/Pages/RacesPageModel.h"

#include <array>
#include <cmath>
#include <utility>

#include <QLocale>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::Sourcing;

constexpr std::array kRaceSpans{std::chrono::days(7), std::chrono::days(30), std::chrono::days(90)};
// In the order of the legend.
constexpr std::array kShownSourcings{Sourcing::confirmed, Sourcing::onRecord, Sourcing::report,
                                     Sourcing::rumor, Sourcing::unlabeled};

QString countOf(std::int64_t count) { return QLocale().toString(static_cast<qlonglong>(count)); }

/// "18 min", "40 s", of seconds without their sign.
QString lengthText(double seconds) {
    const std::chrono::seconds length(std::llround(std::abs(seconds)));
    return length < std::chrono::minutes(1) ? RacesPageModel::tr("%1 s").arg(length.count())
                                            : spanText(length);
}

QString leadText(double seconds) {
    return (seconds < 0 ? QStringLiteral("−") : QStringLiteral("+")) + lengthText(seconds);
}

QString spokenLead(double seconds) {
    return seconds < 0 ? RacesPageModel::tr("mostly %1 behind").arg(lengthText(seconds))
                       : RacesPageModel::tr("mostly %1 ahead").arg(lengthText(seconds));
}

RaceRow raceRow(const kit::RacesContent::Row& row, const QStringList& picked) {
    const auto& record = row.record;
    RaceRow shown{.outlet = titleText(record.outlet),
                  .subjects = countOf(record.subjects),
                  .led = countOf(record.led),
                  .bars = QList<double>(row.bars.begin(), row.bars.end())};
    for (const auto sourcing : kShownSourcings) {
        const auto led = record.ledBySourcing[static_cast<std::size_t>(sourcing)];
        shown.shares << (record.led > 0 ? static_cast<double>(led) / static_cast<double>(record.led)
                                        : 0.0);
    }
    shown.isPicked = picked.contains(shown.outlet);
    shown.spokenText =
        RacesPageModel::tr("%1 led %2 of %3 subjects").arg(shown.outlet, shown.led, shown.subjects);
    if (record.medianLead) {
        shown.lead = leadText(*record.medianLead);
        shown.isAhead = *record.medianLead > 0;
        shown.spokenText += QStringLiteral(", ") + spokenLead(*record.medianLead);
    }
    if (shown.isPicked) shown.spokenText += RacesPageModel::tr(", picked");
    return shown;
}

QString groundText(const kit::PairedRace& race) {
    using Confidence = kit::Attribution::Confidence;
    if (race.basis == kit::Attribution::Basis::correction)
        return RacesPageModel::tr("corrected by you");
    switch (race.confidence) {
        case Confidence::stated: return RacesPageModel::tr("stated");
        case Confidence::timed: return RacesPageModel::tr("by the times");
        case Confidence::unclear: break;
    }
    return RacesPageModel::tr("unclear");
}

PairedRaceRow pairedRow(const kit::PairedRace& race, const std::string& first, kit::Instant now) {
    PairedRaceRow row{
        .title = titleText(race.title, kTitleCharacters),
        .detail = RacesPageModel::tr("%1 · %2").arg(shortDayText(race.at, now), groundText(race)),
        .firstLed = race.leader == first,
        .storyID = plainText(race.race)};
    row.outcome = race.leader ? titleText(*race.leader) : RacesPageModel::tr("Nobody");
    if (race.lead) row.outcome += u' ' + leadText(static_cast<double>(*race.lead));
    row.spokenText =
        RacesPageModel::tr("%1. First: %2. %3").arg(row.title, row.outcome, row.detail);
    return row;
}

QString medianText(const kit::RacePair& pair, std::size_t which) {
    const auto& median = pair.medianLeads[which];
    return median ? RacesPageModel::tr("%1 %2").arg(titleText(pair.outlets[which]),
                                                    lengthText(*median))
                  : QString();
}

}  // namespace

RacesPageModel::RacesPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Races")), loader_(stores, [this](const Subjects& subjects) {
          auto races =
              std::make_shared<const std::vector<kit::Race>>(kit::racesOf(subjects.news()));
          return [this, races = std::move(races), isCut = subjects.isCut()] {
              held_ = races;
              isCut_ = isCut;
          };
      }) {
    connect(&loader_, &SubjectLoader::loaded, this, &RacesPageModel::update);
    load();
}

void RacesPageModel::load() {
    loader_.load(kRaceSpans.back());
    update();
}

void RacesPageModel::setSpan(int span) {
    if (span < 0 || span >= static_cast<int>(kRaceSpans.size()) || span == span_) return;
    span_ = span;
    update();
}

QStringList RacesPageModel::sourcings() const {
    QStringList names{tr("Sourcing")};
    for (const auto sourcing : kShownSourcings) {
        if (sourcing != Sourcing::unlabeled) names << labelText(kit::label(sourcing));
    }
    return names;
}

void RacesPageModel::setSourcing(int place) {
    if (place < 0 || place >= static_cast<int>(kShownSourcings.size())) return;
    sourcing_ = place;
    update();
}

void RacesPageModel::pick(int row) {
    const auto* outlet = rows_.row(row);
    if (!outlet) return;
    const auto name = outlet->outlet;
    if (!picked_.removeOne(name)) picked_ << name;
    if (picked_.size() > 2) picked_.removeFirst();
    update();
}

void RacesPageModel::openRace(int row) {
    if (const auto* race = pairedRaces_.row(row)) openStory(race->storyID);
}

QString RacesPageModel::pairMessage() const {
    return pairTitle_.isEmpty() ? tr("Pick two outlets to see their races.") : QString();
}

void RacesPageModel::showPair(const kit::RacesContent& content) {
    std::vector<PairedRaceRow> rows;
    pairTitle_.clear();
    if (content.pair) {
        const auto& pair = *content.pair;
        pairTitle_ = tr("%1 and %2").arg(titleText(pair.outlets[0]), titleText(pair.outlets[1]));
        score_ = tr("%1 : %2").arg(countOf(pair.led[0]), countOf(pair.led[1]));
        scoreDetail_ =
            tr("of %n subjects that both covered", nullptr, static_cast<int>(pair.races.size()));
        QStringList medians{medianText(pair, 0), medianText(pair, 1)};
        medians.removeAll(QString());
        medians_ = medians.isEmpty() ? tr("No lead is known to the minute.")
                                     : tr("Median leads: %1.").arg(medians.join(tr(", ")));
        for (const auto& race : pair.races) rows.push_back(pairedRow(race, pair.outlets[0], now()));
    }
    pairedRaces_.setRows(std::move(rows));
}

void RacesPageModel::update() {
    if (!held_) {
        const bool hasFailed = !loader_.isLoading() && !loader_.failure().isEmpty();
        setCondition(hasFailed ? Condition{.state = Failed, .message = loader_.failure()}
                               : Condition{.state = Loading});
        return;
    }
    const auto days = kRaceSpans[static_cast<std::size_t>(span_)];
    kit::RacesFilter filter{.span = days};
    if (sourcing_ > 0) filter.sourcing = kShownSourcings[static_cast<std::size_t>(sourcing_ - 1)];
    for (const auto& name : std::as_const(picked_)) filter.picked.push_back(name.toStdString());
    const auto content = kit::racesContent(*held_, filter, now());
    std::vector<RaceRow> rows;
    for (const auto& row : content.rows) rows.push_back(raceRow(row, picked_));
    rows_.setRows(std::move(rows));
    showPair(content);
    auto fact = tr("%n subjects", nullptr, static_cast<int>(content.races));
    if (isCut_) fact = tr("%1; older ones are too many").arg(fact);
    const bool isEmpty = rows_.rows().empty();
    setCondition(
        {.state = isEmpty ? Empty : Ready,
         .fact = fact,
         .message = isEmpty ? tr("No two outlets have covered the same subject yet.") : QString()});
}

}  // namespace app
