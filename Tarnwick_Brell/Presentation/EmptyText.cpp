#include "Tarnwick_Brell/Presentation/EmptyText.h"

#include <chrono>

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/MentionText.h"

namespace app {

namespace {

using kit::PanelKind;

struct EmptyText {
    Q_DECLARE_TR_FUNCTIONS(EmptyText)
};

}  // namespace

QString noStoryText(PanelKind kind, const kit::StoryQuery& query,
                    std::optional<kit::Instant::duration> span) {
    const auto terms = termsText(query);
    if (kind == PanelKind::apple) {
        return terms.isEmpty() ? EmptyText::tr("No post of Apple's matches.")
                               : EmptyText::tr("No post of Apple's mentions %1.").arg(terms);
    }
    if (!span) {
        return terms.isEmpty() ? EmptyText::tr("No story matches.")
                               : EmptyText::tr("No story mentions %1.").arg(terms);
    }
    const auto hours = static_cast<int>(std::chrono::round<std::chrono::hours>(*span).count());
    const auto last = hours <= 48 ? EmptyText::tr("%n hours", nullptr, hours)
                                  : EmptyText::tr("%n days", nullptr, hours / 24);
    return terms.isEmpty() ? EmptyText::tr("No story in the last %1 matches.").arg(last)
                           : EmptyText::tr("No story in the last %1 mentions %2.").arg(last, terms);
}

QString nothingOfItText(PanelKind kind) {
    switch (kind) {
        case PanelKind::topStories: return EmptyText::tr("No news that several outlets cover.");
        case PanelKind::claims: return EmptyText::tr("Nothing is reported or rumored.");
        case PanelKind::coverage: return EmptyText::tr("No outlet covers it.");
        case PanelKind::scoops: return EmptyText::tr("No news that one outlet had before others.");
        default: return EmptyText::tr("No story matches.");
    }
}

}  // namespace app
