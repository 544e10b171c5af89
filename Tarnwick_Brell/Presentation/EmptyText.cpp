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

QString noRowText(PanelKind kind) {
    switch (kind) {
        case PanelKind::topStories: return EmptyText::tr("No news that several outlets cover.");
        case PanelKind::claims: return EmptyText::tr("Nothing is reported or rumored.");
        case PanelKind::coverage: return EmptyText::tr("No outlet covers it.");
        case PanelKind::scoops: return EmptyText::tr("No news that one outlet had before others.");
        case PanelKind::countdown:
            return EmptyText::tr("Apple's calendar has no event for this panel.");
        case PanelKind::software:
        case PanelKind::releases: return EmptyText::tr("Nothing is known of these platforms.");
        case PanelKind::clips: return EmptyText::tr("You have clipped nothing yet.");
        case PanelKind::pageWatch: return EmptyText::tr("No page is followed yet.");
        case PanelKind::suppliers: return EmptyText::tr("The board of suppliers is empty.");
        case PanelKind::backend: return EmptyText::tr("Apple's update catalogue is empty.");
        case PanelKind::records:
            return EmptyText::tr("No filing, court entry or change of signing has been seen yet.");
        case PanelKind::stream:
        case PanelKind::apple:
        case PanelKind::brief:
        case PanelKind::stock:
        case PanelKind::status: break;
    }
    return {};
}

QString noContactText() {
    return EmptyText::tr("Filings are followed once the setting contactAddress has your address.");
}

}  // namespace app
