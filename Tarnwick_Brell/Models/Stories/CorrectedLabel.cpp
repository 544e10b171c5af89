#include "Tarnwick_Brell/Models/Stories/CorrectedLabel.h"

#include <QCoreApplication>
#include <QStringList>

#include "NewsroomKit/Editorial/SourcingRules.h"
#include "NewsroomKit/Editorial/StoryKindRules.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

struct CorrectedLabel {
    Q_DECLARE_TR_FUNCTIONS(CorrectedLabel)
};

QString shownSourcing(kit::Sourcing sourcing) {
    const auto text = sourcingText(sourcing);
    return text.isEmpty() ? CorrectedLabel::tr("No label") : text;
}

}  // namespace

kit::Sourcing rulesSourcing(const kit::Story& story) {
    return kit::SourcingRules::explain(story.title, story.summary, story.isAppleSource).sourcing;
}

QString correctedLabelText(const kit::Story& story, const kit::CorrectionOverlay::Label& label) {
    QStringList changes;
    const auto add = [&](const QString& rules, const QString& users) {
        changes << CorrectedLabel::tr("%1 → %2").arg(rules, users);
    };
    if (label.sourcing) add(shownSourcing(rulesSourcing(story)), shownSourcing(*label.sourcing));
    if (label.kind) {
        const auto rules = kit::StoryKindRules::explain(story.title, story.summary).kind;
        add(labelText(kit::label(rules)), labelText(kit::label(*label.kind)));
    }
    return CorrectedLabel::tr("%1, corrected by you").arg(changes.join(QStringLiteral(", ")));
}

}  // namespace app
