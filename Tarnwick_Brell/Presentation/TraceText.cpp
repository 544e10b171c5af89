#include "Tarnwick_Brell/Presentation/TraceText.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

constexpr int kOutletCharacters = 60;
constexpr int kPlatformCharacters = 30;
constexpr int kWordsCharacters = 160;

struct TraceText {
    Q_DECLARE_TR_FUNCTIONS(TraceText)
};

}  // namespace

QString outletText(const kit::TraceTreeRow& row) {
    auto text = titleText(row.publisher, kOutletCharacters);
    if (text.isEmpty()) text = TraceText::tr("An unknown outlet");
    const auto platform = titleText(row.platform, kPlatformCharacters);
    return platform.isEmpty() ? text : TraceText::tr("%1 on %2").arg(text, platform);
}

QString whenText(const kit::TraceTreeRow& row, kit::Instant now, const Style& style) {
    if (!row.publishedAt) return TraceText::tr("Time unknown");
    return row.isDayOnly ? namedDayText(*row.publishedAt, now, style)
                         : momentText(*row.publishedAt, now, style);
}

QString referenceText(const kit::TraceTreeRow& row, const kit::TraceTreeRow* parent) {
    auto words = titleText(row.words, kWordsCharacters);
    if (row.wording.empty()) return words.isEmpty() ? words : u'“' + words + u'”';
    if (words.isEmpty() && parent) words = outletText(*parent);
    if (words.isEmpty()) return {};
    return row.wording == kit::TraceNode::kLinkedAs ? TraceText::tr("linked as “%1”").arg(words)
                                                    : TraceText::tr("named as “%1”").arg(words);
}

const kit::TraceTreeRow* parentOf(const std::vector<kit::TraceTreeRow>& rows,
                                  const kit::TraceTreeRow& row) {
    return row.parent ? &rows[*row.parent] : nullptr;
}

}  // namespace app
