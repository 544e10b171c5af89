#include "Tarnwick_Brell/Models/Library/KeptLine.h"

#include <utility>
#include <vector>

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/MarkedText.h"
#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct KeptLines {
    Q_DECLARE_TR_FUNCTIONS(KeptLines)
};

QList<MarkedPart> markedParts(const MarkedText& text, int longest) {
    std::vector<kit::TextRange> marks;
    for (const auto& hit : text.hits) marks.push_back({hit.begin, hit.begin + hit.size});
    QList<MarkedPart> parts;
    for (const auto& piece : markedPieces(text.text, marks, longest))
        parts.push_back({.text = piece.text, .isMatch = piece.isMatch});
    return parts;
}

QString wholeText(const QList<MarkedPart>& parts) {
    QString text;
    for (const auto& part : parts) text += part.text;
    return text;
}

KeptLine lineWith(SearchScope scope, const MarkedText& title, const MarkedText& detail,
                  QString when) {
    // A clip is known by what it quotes.
    const bool isClip = scope == SearchScope::clips && !detail.text.empty();
    KeptLine line{.symbol = symbolOf(scope),
                  .title = markedParts(isClip ? detail : title, kTitleCharacters),
                  .detail = markedParts(isClip ? title : detail, kExcerptCharacters),
                  .when = std::move(when),
                  .scope = scope};
    line.spokenText = spokenRow({wholeText(line.title), wholeText(line.detail), line.when});
    return line;
}

}  // namespace

SearchScope scopeOf(KeptKind kind) {
    switch (kind) {
        case KeptKind::clip: return SearchScope::clips;
        case KeptKind::note: return SearchScope::notes;
        case KeptKind::project: return SearchScope::projects;
        case KeptKind::story: return SearchScope::saved;
    }
    return SearchScope::all;
}

QString symbolOf(SearchScope scope) {
    switch (scope) {
        case SearchScope::all: break;
        case SearchScope::saved: return QStringLiteral("bookmark");
        case SearchScope::notes: return QStringLiteral("pencil");
        case SearchScope::clips: return QStringLiteral("scissors");
        case SearchScope::projects: return QStringLiteral("archivebox");
        case SearchScope::stories: return QStringLiteral("newspaper");
        case SearchScope::loggedSignals: return QStringLiteral("bolt");
    }
    return QStringLiteral("magnifyingglass");
}

KeptLine lineOf(const KeptRow& row, kit::Instant now) {
    auto line = lineWith(scopeOf(row.kind), {.text = row.title}, {.text = row.line},
                         momentText(row.at, now));
    line.id = row.id;
    if (!row.fault.empty()) {
        line.problem = KeptLines::tr("Kept as it is, but this version can't read it: %1.")
                           .arg(titleText(row.fault));
        line.spokenText = spokenRow({line.spokenText, line.problem});
    }
    return line;
}

KeptLine removedLineOf(const KeptRow& row, kit::Instant now) {
    auto line = lineOf(row, now);
    if (row.removedAt) line.when = KeptLines::tr("Removed %1").arg(momentText(*row.removedAt, now));
    line.spokenText = spokenRow({wholeText(line.title), wholeText(line.detail), line.when});
    return line;
}

KeptLine lineOf(const SearchHit& hit, kit::Instant now) {
    auto line = lineWith(hit.scope, hit.title, hit.snippet, momentText(hit.at, now));
    line.id = hit.id;
    return line;
}

}  // namespace app
