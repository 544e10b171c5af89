#include "Tarnwick_Brell/Presentation/MentionText.h"

#include <chrono>

#include <QCoreApplication>
#include <QStringList>

#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::Attribution;
using kit::Instant;
using kit::StoryMention;

constexpr std::size_t kNamedSources = 2;
constexpr int kTermCharacters = 40;

bool isKnown(const Attribution& attribution) {
    return attribution.first && attribution.confidence != Attribution::Confidence::unclear;
}

struct PanelText {
    Q_DECLARE_TR_FUNCTIONS(PanelText)
};

}  // namespace

QString leaderText(const Attribution& attribution, const std::vector<StoryMention>& outlets) {
    if (isKnown(attribution)) return titleText(*attribution.first);
    return outlets.empty() ? QString() : titleText(outlets.front().outlet);
}

QString leadText(const Attribution& attribution, const std::vector<StoryMention>& outlets) {
    if (!isKnown(attribution)) {
        return outlets.size() > 1 ? PanelText::tr("also %1").arg(titleText(outlets[1].outlet))
                                  : QString();
    }
    if (attribution.lead && attribution.second) {
        return PanelText::tr("%1 before %2")
            .arg(spanText(std::chrono::seconds(*attribution.lead)), titleText(*attribution.second));
    }
    if (attribution.basis == Attribution::Basis::correction)
        return PanelText::tr("corrected by you");
    if (attribution.creditedBy > 0) {
        return PanelText::tr("credited by %n outlets", nullptr,
                             static_cast<int>(attribution.creditedBy));
    }
    return attribution.second ? PanelText::tr("before %1").arg(titleText(*attribution.second))
                              : QString();
}

QString sourcesText(const std::vector<StoryMention>& outlets, Instant now, const Style& style) {
    QStringList parts;
    // A single further outlet takes no more room than "1 more".
    const auto named = outlets.size() == kNamedSources + 1 ? outlets.size() : kNamedSources;
    for (std::size_t i = 0; i < outlets.size() && i < named; ++i) {
        parts << titleText(outlets[i].outlet) + u' ' +
                     momentText(outlets[i].publishedAt, now, style);
    }
    if (outlets.size() > named) {
        parts << PanelText::tr("%n more", nullptr, static_cast<int>(outlets.size() - named));
    }
    return parts.join(QStringLiteral(" · "));
}

QString termsText(const kit::StoryQuery& query) {
    if (query.anyTerms.empty()) return {};
    const auto term = [&](std::size_t i) { return titleText(query.anyTerms[i], kTermCharacters); };
    const auto count = query.anyTerms.size();
    if (count == 1) return PanelText::tr("“%1”").arg(term(0));
    if (count == 2) return PanelText::tr("“%1” or “%2”").arg(term(0), term(1));
    return PanelText::tr("“%1” or %n other terms", nullptr, static_cast<int>(count) - 1)
        .arg(term(0));
}

QString spokenRow(const QStringList& parts) {
    QStringList spoken;
    for (const auto& part : parts) {
        if (!part.isEmpty()) spoken << part;
    }
    return spoken.join(QStringLiteral(", "));
}

}  // namespace app
