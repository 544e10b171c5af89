#include "Tarnwick_Brell/Models/Pages/PagesPageRows.h"

#include <optional>
#include <utility>

#include <QCoreApplication>
#include <QStringList>
#include <QVariantMap>

#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct PagesPageRows {
    Q_DECLARE_TR_FUNCTIONS(PagesPageRows)
};

constexpr int kLongestChange = 2'000;
constexpr int kLongestBlock = 20'000;
/// A redesign can change everything; the list is for reading.
constexpr std::size_t kMostShownChanges = 300;
// Each word is an item of its own.
constexpr qsizetype kMostShownWords = 400;
constexpr qsizetype kMostWordsOfBlock = 2'000;

QString pageStateText(const kit::PageRow& row) {
    if (!row.problem.empty()) return titleText(row.problem, kLongestPageName);
    if (row.state == kit::PageRow::State::changed && !row.change.empty())
        return titleText(row.change, kLongestPageName);
    return labelText(label(row.state));
}

void addWords(QVariantList& words, const QString& text, kit::PageRun::Kind kind) {
    for (const auto& word : text.split(u' ', Qt::SkipEmptyParts)) {
        words << QVariantMap{{QStringLiteral("text"), word},
                             {QStringLiteral("isRemoved"), kind == kit::PageRun::Kind::removed},
                             {QStringLiteral("isAdded"), kind == kit::PageRun::Kind::added}};
    }
}

/// The words of a change but for those of the runs that are `leftOut`.
QVariantList wordsOfChange(const kit::PageChangeRow& change, qsizetype most,
                           std::optional<kit::PageRun::Kind> leftOut = {}) {
    QVariantList words;
    for (const auto& run : change.runs) {
        if (run.kind == leftOut) continue;
        addWords(words, titleText(run.text, kLongestBlock), run.kind);
        if (words.size() < most) continue;
        words.resize(most);
        addWords(words, QStringLiteral("…"), kit::PageRun::Kind::same);
        break;
    }
    if (change.runs.empty())
        addWords(words, titleText(change.sentence, kLongestChange), kit::PageRun::Kind::same);
    return words;
}

QString extentText(const kit::PageChangeRow& change) {
    if (change.kind != kit::PageChange::Kind::changed) return labelText(label(change.kind));
    const auto edits = static_cast<int>(change.edits);
    return edits > 0 ? PagesPageRows::tr("%n edits", nullptr, edits) : QString();
}

}  // namespace

FollowedPageLine followedPageLine(const kit::PageRow& row, kit::Instant now) {
    FollowedPageLine line{.name = titleText(row.name, kLongestPageName),
                          .address = titleText(row.address, kLongestPageName),
                          .when = row.changedAt ? ageText(*row.changedAt, now) : QString(),
                          .fact = pageStateText(row),
                          .isFailing = !row.problem.empty(),
                          .isNew = row.isNew};
    line.spokenText = spokenRow({line.isNew ? PagesPageRows::tr("New") : QString(), line.name,
                                 line.fact, line.when, line.address});
    return line;
}

FollowedPageLine suggestedPageLine(const kit::SuggestedPage& page) {
    FollowedPageLine line{.name = titleText(page.name, kLongestPageName),
                          .address = titleText(page.address, kLongestPageName),
                          .isSuggested = true};
    line.spokenText = spokenRow({PagesPageRows::tr("Suggested"), line.name, line.address});
    return line;
}

void addChangeLines(std::vector<PageChangeLine>& lines,
                    const std::vector<kit::PageChangeRow>& changes, const QString& group,
                    ChangesView::Value view) {
    const bool isSplit = view == ChangesView::SideBySide;
    using Kind = kit::PageRun::Kind;
    bool isFirst = true;
    for (const auto& change : changes) {
        if (lines.size() == kMostShownChanges) return;
        QStringList headings;
        for (const auto& heading : change.headings) headings << titleText(heading);
        PageChangeLine line{
            .group = isFirst ? group : QString(),
            .headings = headings.join(QStringLiteral(" › ")),
            .words = wordsOfChange(change, kMostShownWords,
                                   isSplit ? std::optional(Kind::removed) : std::nullopt),
            .turn = titleText(change.turn),
            .extent = extentText(change)};
        if (isSplit && !change.runs.empty())
            line.wordsBefore = wordsOfChange(change, kMostShownWords, Kind::added);
        line.spokenText = spokenRow({line.group, titleText(change.sentence, kLongestChange)});
        lines.push_back(std::move(line));
        isFirst = false;
    }
}

void addTextLines(std::vector<PageChangeLine>& lines, const std::vector<kit::PageChangeRow>& text) {
    for (const auto& block : text) {
        PageChangeLine line{.words = wordsOfChange(block, kMostWordsOfBlock)};
        QStringList spoken;
        for (const auto& run : block.runs) spoken << titleText(run.text, kLongestChange);
        line.spokenText =
            block.sentence.empty() ? spoken.join(u' ') : titleText(block.sentence, kLongestChange);
        lines.push_back(std::move(line));
    }
}

void addLeftOutLines(std::vector<PageChangeLine>& lines,
                     const std::vector<kit::VolatileBlock>& leftOut) {
    for (std::size_t place = 0; place < leftOut.size(); ++place) {
        const auto sample = titleText(leftOut[place].sample, kLongestPageName);
        PageChangeLine line{.leftOutPlace = static_cast<int>(place)};
        addWords(line.words, sample, kit::PageRun::Kind::same);
        if (place == 0) line.group = PagesPageRows::tr("Left out, as it differs at each look");
        line.spokenText = spokenRow({PagesPageRows::tr("Left out: %1").arg(sample)});
        lines.push_back(std::move(line));
    }
}

}  // namespace app
