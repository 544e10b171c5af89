#include "Tarnwick_Brell/Models/Beats/BeatPreviewModel.h"

#include <algorithm>
#include <chrono>
#include <memory>

#include <QLocale>

#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/MarkedText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::days kPreviewSpan{kit::BeatPreview::kDays};

/// More than any beat that a person can read. Each copy has its summary, so the number also
/// bounds the memory of a query that finds nearly everything.
constexpr std::size_t kMostCounted = 20'000;

constexpr qsizetype kMostWordsShown = 12;

PanelStoryCollector::Pace previewPace() {
    return {.debounce = 120ms, .mostStories = kMostCounted, .summaries = WireScan::Summaries::yes};
}

QList<MarkedPart> partsOf(std::string_view text, const std::vector<kit::TextRange>& marks,
                          int longest) {
    QList<MarkedPart> parts;
    for (const auto& piece : markedPieces(text, marks, longest))
        parts.push_back({.text = piece.text, .isMatch = piece.isMatch});
    return parts;
}

BeatMatchRow matchRow(const kit::BeatPreview::Match& match, kit::Instant now) {
    const auto& mention = match.mention;
    BeatMatchRow row{.outlet = titleText(mention.outlet),
                     .age = ageText(mention.publishedAt, now),
                     .sourcing = StorySourcing::of(mention.sourcing),
                     .sourcingLabel = sourcingText(mention.sourcing),
                     .title = partsOf(mention.title, match.marks.title, kTitleCharacters),
                     .summary = partsOf(match.summary, match.marks.summary, kExcerptCharacters)};
    row.spokenText = spokenRow(
        {titleText(mention.title, kTitleCharacters), row.outlet, row.sourcingLabel, row.age});
    return row;
}

}  // namespace

BeatPreviewModel::BeatPreviewModel(NewsDesk& desk, kit::Clock clock, QObject* parent)
    : QObject(parent), clock_(clock), collector_(desk, std::move(clock), previewPace()) {}

void BeatPreviewModel::setDraft(const kit::BeatDraft& draft) {
    collector_.remove(subscription_);
    if (draft.isEmpty()) {
        state_ = Nothing;
        preview_ = {};
        matches_.setRows({});
        emit changed();
        return;
    }
    if (state_ == Nothing) {
        state_ = Counting;
        emit changed();
    }
    const auto asked = std::make_shared<const kit::BeatDraft>(draft);
    const auto earliest = [clock = clock_] { return clock() - kPreviewSpan; };
    const auto build = [this, asked](const QueryResult& result) -> std::function<void()> {
        auto preview = std::make_shared<kit::BeatPreview>(
            kit::beatPreview(*asked, result.news.stories, result.news.now));
        return [this, preview, now = result.news.now, from = result.from] {
            show(std::move(*preview), now, from);
        };
    };
    subscription_ =
        collector_.add({.query = asked->scanned(), .earliest = earliest, .build = build});
}

void BeatPreviewModel::show(kit::BeatPreview preview, kit::Instant now, kit::Instant from) {
    preview_ = std::move(preview);
    now_ = now;
    from_ = from;
    state_ = Ready;
    std::vector<BeatMatchRow> rows;
    for (const auto& match : preview_.matches) rows.push_back(matchRow(match, now));
    matches_.setRows(std::move(rows));
    emit changed();
}

QString BeatPreviewModel::count() const {
    return tr("%n stories", nullptr, static_cast<int>(preview_.stories));
}

QString BeatPreviewModel::rate() const {
    // The scan begins a moment before the result's `now`.
    if (from_ > now_ - kPreviewSpan + 1h)
        return tr("since %1, and more").arg(momentText(from_, now_));
    const auto perDay = static_cast<double>(preview_.stories) / kit::BeatPreview::kDays;
    if (perDay < 1) return tr("in %1 days").arg(kit::BeatPreview::kDays);
    return tr("in %1 days, %2 a day")
        .arg(kit::BeatPreview::kDays)
        .arg(QLocale().toString(qRound(perDay)));
}

QString BeatPreviewModel::gain() const {
    if (!preview_.gain) return {};
    return tr("+%1 by “%2”")
        .arg(QLocale().toString(static_cast<qulonglong>(preview_.gain->stories)),
             titleText(preview_.gain->word));
}

QString BeatPreviewModel::firstDay() const { return shortDayText(now_ - kPreviewSpan, now_); }

QList<qreal> BeatPreviewModel::bars() const {
    const auto most = std::ranges::max(preview_.perDay);
    QList<qreal> bars;
    for (const auto stories : preview_.perDay) {
        bars.push_back(most == 0 ? 0 : static_cast<qreal>(stories) / static_cast<qreal>(most));
    }
    return bars;
}

QStringList BeatPreviewModel::words() const {
    QStringList words;
    for (const auto& [word, stories] : preview_.words) {
        if (words.size() == kMostWordsShown) break;
        words << tr("%1 %2", "a word and its stories")
                     .arg(titleText(word), QLocale().toString(static_cast<qulonglong>(stories)));
    }
    return words;
}

QString BeatPreviewModel::otherForm() const {
    if (!preview_.otherForm) return tr("Whole words in headline and excerpt.");
    return tr("Whole words in headline and excerpt: “%1” does not find “%2”.")
        .arg(titleText(preview_.otherFormOf), titleText(preview_.otherForm->word));
}

QString BeatPreviewModel::otherFormAction() const {
    if (!preview_.otherForm) return {};
    return tr("Add it: %n more stories", nullptr, static_cast<int>(preview_.otherForm->stories));
}

QString BeatPreviewModel::tooMuch() const {
    if (!preview_.tooMuch) return {};
    const auto stories = static_cast<int>(preview_.stories);
    return tr("“%1” alone brings %2 of %n stories.", nullptr, stories)
        .arg(titleText(preview_.tooMuch->word),
             QLocale().toString(static_cast<qulonglong>(preview_.tooMuch->stories)));
}

QString BeatPreviewModel::rehearsal() const {
    if (state_ != Ready) return {};
    return tr("%n stories in two weeks", nullptr, static_cast<int>(preview_.stories));
}

std::string BeatPreviewModel::otherFormWord() const {
    return preview_.otherForm ? preview_.otherForm->word : std::string();
}

std::string BeatPreviewModel::tooMuchWord() const {
    return preview_.tooMuch ? preview_.tooMuch->word : std::string();
}

}  // namespace app
