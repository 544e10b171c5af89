#include "Tarnwick_Brell/Models/Pages/LedgerPageModel.h"

#include <cmath>
#include <utility>

#include <QLocale>

#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using ClaimState = kit::LedgerClaim::State;

constexpr int kMostClaimRows = 500;

QString numberOf(std::int64_t number) { return QLocale().toString(static_cast<qlonglong>(number)); }

QString daysText(double days) {
    return LedgerPageModel::tr("%n days", nullptr, static_cast<int>(std::lround(days)));
}

LedgerOutletRow outletRow(const kit::LedgerOutlet& outlet, bool hasShares) {
    LedgerOutletRow row{.outlet = titleText(outlet.outlet),
                        .claims = numberOf(outlet.claims),
                        .confirmed = numberOf(outlet.confirmed),
                        .denied = numberOf(outlet.denied),
                        .open = numberOf(outlet.open),
                        .expired = numberOf(outlet.expired)};
    if (hasShares) {
        for (const auto count : {outlet.confirmed, outlet.denied, outlet.open, outlet.expired})
            row.shares << static_cast<double>(count) / static_cast<double>(outlet.claims);
    }
    if (outlet.medianDays) row.days = daysText(*outlet.medianDays);
    row.spokenText =
        LedgerPageModel::tr("%1: %2 claims, %3 confirmed, %4 denied, %5 open, %6 expired")
            .arg(row.outlet, row.claims, row.confirmed, row.denied, row.open, row.expired);
    if (!row.days.isEmpty())
        row.spokenText += LedgerPageModel::tr(", confirmed after %1 at the median").arg(row.days);
    return row;
}

QString stateText(const kit::LedgerClaim& claim) {
    switch (claim.state) {
        case ClaimState::open: return LedgerPageModel::tr("Open");
        case ClaimState::confirmed:
            return LedgerPageModel::tr("Confirmed after %1").arg(daysText(claim.days.value_or(0)));
        case ClaimState::denied:
            return LedgerPageModel::tr("Denied after %1").arg(daysText(claim.days.value_or(0)));
        case ClaimState::expired: return LedgerPageModel::tr("Expired after a year");
    }
    return {};
}

LedgerClaimRow claimRow(const kit::LedgerRow& claim, kit::Instant now) {
    LedgerClaimRow row{.title = titleText(claim.story.title, kTitleCharacters),
                       .detail = LedgerPageModel::tr("%1 · %2").arg(
                           titleText(claim.claim.outlet), shortDayText(claim.claim.at, now)),
                       .state = stateText(claim.claim),
                       .tone = static_cast<int>(claim.claim.state),
                       .storyID = plainText(claim.claim.story)};
    row.spokenText = LedgerPageModel::tr("%1. %2. %3").arg(row.title, row.detail, row.state);
    if (claim.settledBy)
        row.spokenText += LedgerPageModel::tr(" by: %1 (%2)")
                              .arg(titleText(claim.settledBy->title), titleText(claim.claim.why));
    return row;
}

}  // namespace

LedgerPageModel::LedgerPageModel(const DeskStores& stores)
    : PageModel(stores, tr("Rumor ledger")), loader_(stores, [this](const Subjects& subjects) {
          auto held = std::make_shared<const kit::LedgerRecord>(kit::ledgerOf(subjects.news()));
          return [this, held = std::move(held), isCut = subjects.isCut()] {
              held_ = held;
              isCut_ = isCut;
              keepAnswers(this->stores().news.worker(), held->answers());
          };
      }) {
    connect(&loader_, &SubjectLoader::loaded, this, &LedgerPageModel::update);
    load();
}

void LedgerPageModel::load() {
    // A claim stays open for a year, and what settles it may be older than the claim's end.
    loader_.load(2 * kit::kClaimLifetime);
    update();
}

QStringList LedgerPageModel::states() const {
    QStringList names{tr("State")};
    for (const auto& row : kit::enumTable<ClaimState>) names << labelText(row.label);
    return names;
}

void LedgerPageModel::setStateShown(int place) {
    if (place < 0 || place > static_cast<int>(kit::enumTable<ClaimState>.size())) return;
    state_ = place;
    filter_.state.reset();
    if (place > 0)
        filter_.state = kit::enumTable<ClaimState>[static_cast<std::size_t>(place - 1)].value;
    update();
}

QString LedgerPageModel::claimsTitle() const {
    return filter_.outlet.empty() ? tr("All claims") : tr("Claims of %1").arg(outlet());
}

void LedgerPageModel::chooseOutlet(int row) {
    const auto place = static_cast<std::size_t>(row);
    filter_.outlet = row >= 0 && place < outletNames_.size() ? outletNames_[place] : std::string();
    update();
}

void LedgerPageModel::openClaim(int row) {
    if (const auto* claim = claims_.row(row)) openStory(claim->storyID);
}

void LedgerPageModel::update() {
    if (!held_) {
        const bool hasFailed = !loader_.isLoading() && !loader_.failure().isEmpty();
        setCondition(hasFailed ? Condition{.state = Failed, .message = loader_.failure()}
                               : Condition{.state = Loading});
        return;
    }
    const auto content = kit::ledgerContent(*held_, filter_);
    std::vector<LedgerOutletRow> outlets;
    outletNames_.clear();
    for (const auto* list : {&content.outlets, &content.lesser}) {
        for (const auto& outlet : *list) {
            outlets.push_back(outletRow(outlet, list == &content.outlets));
            outletNames_.push_back(outlet.outlet);
        }
    }
    outlets_.setRows(std::move(outlets));
    std::vector<LedgerClaimRow> claims;
    for (const auto& claim : content.claims) {
        if (std::ssize(claims) == kMostClaimRows) break;
        claims.push_back(claimRow(claim, now()));
    }
    claims_.setRows(std::move(claims));
    claimsFact_ = numberOf(std::ssize(content.claims));
    nothingShown_ = content.claims.empty() ? tr("No claim matches the filter.") : QString();
    auto fact = tr("%n claims", nullptr, static_cast<int>(held_->claims.size()));
    if (isCut_) fact = tr("%1; older stories are too many").arg(fact);
    const bool isEmpty = held_->claims.empty();
    setCondition({.state = isEmpty ? Empty : Ready,
                  .fact = fact,
                  .message = isEmpty
                                 ? tr("Nobody has reported or rumored anything about Apple yet.")
                                 : QString()});
}

}  // namespace app
