#include "Tarnwick_Brell/Presentation/FindingText.h"

#include <algorithm>
#include <string_view>

#include <QCoreApplication>
#include <QStringList>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct FindingText {
    Q_DECLARE_TR_FUNCTIONS(FindingText)
};

constexpr int kLongestStateLine = 400;

bool isOfPresence(kit::FindingKind kind) {
    return kind == kit::FindingKind::added || kind == kit::FindingKind::identifier;
}

void addStateLines(QStringList& text, const QString& heading,
                   const std::vector<kit::StateLine>& lines) {
    if (lines.empty()) return;
    text << heading;
    for (const auto& line : lines) {
        text << QStringLiteral("%1 %2").arg(
            line.isChanged ? QStringLiteral(">") : QStringLiteral(" "), stateLineText(line));
    }
}

}  // namespace

QString findingSightText(const kit::BackendFinding& finding, kit::Instant now, const Style& style) {
    const auto seen = momentText(finding.seenAt, now, style);
    const auto before = momentText(finding.notSeenAt, now, style);
    if (isOfPresence(finding.kind))
        return FindingText::tr("Seen %1, not there at the poll before, %2.").arg(seen, before);
    if (finding.kind == kit::FindingKind::removed)
        return FindingText::tr("Gone %1, still there at the poll before, %2.").arg(seen, before);
    return FindingText::tr("Seen %1, otherwise at the poll before, %2.").arg(seen, before);
}

QString findingPollsText(const kit::BackendFinding& finding, kit::Instant now, const Style& style) {
    const auto seen = momentText(finding.seenAt, now, style);
    const auto before = momentText(finding.notSeenAt, now, style);
    const auto confirmed = momentText(finding.confirmedAt, now, style);
    if (isOfPresence(finding.kind))
        return FindingText::tr("Polls: %1 without it, %2 and %3 with it.")
            .arg(before, seen, confirmed);
    if (finding.kind == kit::FindingKind::removed)
        return FindingText::tr("Polls: %1 with it, %2 and %3 without it.")
            .arg(before, seen, confirmed);
    return FindingText::tr("Polls: %1 as before, %2 and %3 as it is now.")
        .arg(before, seen, confirmed);
}

QString stateLineText(const kit::StateLine& line) {
    const auto indent = std::min(line.text.find_first_not_of(" \t"), line.text.size());
    return QString(static_cast<qsizetype>(indent), QLatin1Char(' ')) +
           titleText(std::string_view(line.text).substr(indent), kLongestStateLine);
}

QString findingEvidence(const kit::BackendFinding& finding, const kit::FindingSides& sides) {
    const auto style = Style::plain();
    QStringList text;
    text << titleText(finding.title) + QLatin1Char('.');
    const auto* file = kit::watchedFile(finding.file);
    if (file) text << QString::fromUtf8(file->address.data(), qsizetype(file->address.size()));
    text << findingPollsText(finding, finding.confirmedAt, style);
    addStateLines(text, FindingText::tr("Before:"), sides.before);
    addStateLines(text, FindingText::tr("After:"), sides.after);
    text << FindingText::tr("Found by us in Apple's data, seen by this machine.");
    return text.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

}  // namespace app
