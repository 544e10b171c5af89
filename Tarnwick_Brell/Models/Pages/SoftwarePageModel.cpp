#include "Tarnwick_Brell/Models/Pages/SoftwarePageModel.h"

#include <QClipboard>
#include <QGuiApplication>

#include "NewsroomKit/Text/Unicode.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::Instant;
using kit::SoftwareRelease;
using SoftwarePage = kit::SoftwarePageContent;

constexpr int kBuildCharacters = 20;

bool isCandidate(const SoftwareRelease& release) {
    const auto stage = kit::lowercasedASCII(release.stage);
    return stage.starts_with("rc") || stage.starts_with("release candidate");
}

/// "27.2 beta 2"
QString longVersion(const SoftwareRelease& release) {
    const auto stage = titleText(release.stage, kBuildCharacters);
    const bool isPlain = stage.compare(QStringLiteral("release"), Qt::CaseInsensitive) == 0;
    const auto version = titleText(release.version, kBuildCharacters);
    return isPlain || stage.isEmpty() ? version : version + u' ' + stage.toLower();
}

QString daysSince(const SoftwareRelease& release, Instant now) {
    const auto days = std::max(0, daysBetween(release.published, now));
    return days == 0 ? SoftwarePageModel::tr("Today")
                     : SoftwarePageModel::tr("%n days", nullptr, days);
}

PlatformCard cardOf(const SoftwarePage::Card& content, const std::string& chosen, Instant now) {
    const auto& platform = content.platform;
    PlatformCard card{.platform = titleText(platform.platform, kBuildCharacters),
                      .version = SoftwarePageModel::tr("None yet"),
                      .isNew = content.isNew,
                      .betaVersion = SoftwarePageModel::tr("No beta"),
                      .isChosen = platform.platform == chosen};
    if (const auto& current = platform.current) {
        card.version = longVersion(*current);
        card.build = titleText(current->build, kBuildCharacters);
        card.age = daysSince(*current, now);
    }
    if (const auto& beta = platform.beta) {
        card.betaVersion = longVersion(*beta);
        card.betaBuild = titleText(beta->build, kBuildCharacters);
        card.betaAge = daysSince(*beta, now);
    }
    const auto days = content.nextBeta ? daysBetween(now, *content.nextBeta) : -1;
    if (days >= 0)
        card.nextBeta = SoftwarePageModel::tr("Next beta usual %1").arg(daysAwayText(days));
    card.spokenText =
        SoftwarePageModel::tr("%1: %2, %3; beta: %4 %5")
            .arg(card.platform, card.version, card.age, card.betaVersion, card.betaAge);
    return card;
}

ReleaseTableRow rowOf(const SoftwarePage::Release& content, Instant now) {
    const auto& build = content.build;
    const auto& release = build.release;
    const bool isGeneral = build.channel == kit::ReleaseChannel::general;
    ReleaseTableRow row{.platform = titleText(build.platform, kBuildCharacters),
                        .version = longVersion(release),
                        .isNew = content.isNew,
                        .build = titleText(release.build, kBuildCharacters),
                        .channel = isCandidate(release) ? SoftwarePageModel::tr("RC")
                                   : isGeneral          ? SoftwarePageModel::tr("Release")
                                                        : SoftwarePageModel::tr("Beta"),
                        .isGeneral = isGeneral && !isCandidate(release),
                        .title = titleText(release.title),
                        .seen = momentText(build.firstSeen, now),
                        .link = openableLink(release.url)};
    if (content.after) row.after = spanText(*content.after);
    row.spokenText = QStringList{row.platform, row.version, row.channel, row.build,
                                 dayText(release.published, now)}
                         .join(QStringLiteral(", "));
    row.plainLine = QStringList{row.platform, row.version, row.build,
                                shortDayText(release.published, now, Style::plain())}
                        .join(u'\t');
    return row;
}

}  // namespace

SoftwarePageModel::SoftwarePageModel(const DeskStores& stores) : PageModel(stores, tr("Software")) {
    connect(&trackers(), &TrackerStore::releasesChanged, this, &SoftwarePageModel::update);
    update();
}

void SoftwarePageModel::update() {
    const auto moment = now();
    const auto content =
        kit::softwarePageContent(trackers().releases(), trackers().builds(), filter_, moment);
    std::vector<PlatformCard> cards;
    for (const auto& card : content.cards) cards.push_back(cardOf(card, filter_.platform, moment));
    cards_.setRows(std::move(cards));
    std::vector<ReleaseTableRow> rows;
    QString lastDay;
    for (const auto& release : content.releases) {
        const auto day = dayText(release.build.release.published, moment);
        if (day != lastDay) rows.push_back({.isDay = true, .platform = day, .spokenText = day});
        lastDay = day;
        rows.push_back(rowOf(release, moment));
    }
    rows_.setRows(std::move(rows));
    if (row_ >= rows_.rowCount()) setRow(-1);
    majors_.clear();
    for (const auto& major : content.majors) majors_ << titleText(major, kBuildCharacters);
    auto condition = conditionOf(content.condition, tr("No release is known yet."));
    const auto& fetchedAt = content.condition.fetchedAt;
    condition.fact = fetchedAt ? tr("Checked %1").arg(momentText(*fetchedAt, moment)) : QString();
    setCondition(std::move(condition));
}

void SoftwarePageModel::setChannel(int channel) {
    filter_.channel =
        channel > 0 ? std::optional(static_cast<kit::ReleaseChannel>(channel - 1)) : std::nullopt;
    update();
}

void SoftwarePageModel::setPlatform(const QString& platform) {
    filter_.platform = platform.toStdString();
    update();
}

void SoftwarePageModel::setMajor(const QString& major) {
    filter_.major = major.toStdString();
    update();
}

void SoftwarePageModel::setWords(const QString& words) {
    filter_.words = words.toStdString();
    update();
}

void SoftwarePageModel::setRow(int row) {
    if (row_ == row) return;
    row_ = row;
    emit rowChanged();
    emit changed();
}

void SoftwarePageModel::toggleCard(int card) {
    if (const auto* found = cards_.row(card))
        setPlatform(found->isChosen ? QString() : found->platform);
}

bool SoftwarePageModel::isRelease(int row) const {
    const auto* found = rows_.row(row);
    return found && !found->isDay;
}

void SoftwarePageModel::openRow(int row) {
    const auto* found = rows_.row(row);
    if (found && !found->link.isEmpty()) openLink(found->link);
}

void SoftwarePageModel::copyRow(int row) {
    if (!isRelease(row)) return;
    QGuiApplication::clipboard()->setText(rows_.row(row)->plainLine);
    emit noticed(tr("Copied."));
}

bool SoftwarePageModel::offers(Action action) const {
    return action == DeskAction::CopyRow && isRelease(row_);
}

void SoftwarePageModel::perform(Action action) {
    if (action == DeskAction::CopyRow) copyRow(row_);
}

}  // namespace app
