#include "Tarnwick_Brell/Models/Alerts/AlertOutcomeText.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct AlertOutcomes {
    Q_DECLARE_TR_FUNCTIONS(AlertOutcomes)
};

}  // namespace

QString alertOutcomeText(const StoredAlert& alert) {
    const auto time = clockText(alert.toldAt.value_or(alert.matchedAt));
    switch (alert.outcome) {
        case AlertOutcome::notified: return AlertOutcomes::tr("Told %1").arg(time);
        case AlertOutcome::quiet: return AlertOutcomes::tr("Quiet");
        case AlertOutcome::held: return AlertOutcomes::tr("Held back");
        case AlertOutcome::summarised: return AlertOutcomes::tr("Summary %1").arg(time);
    }
    return {};
}

QString alertOutcomeSymbol(AlertOutcome outcome) {
    switch (outcome) {
        case AlertOutcome::notified: return QStringLiteral("bell");
        case AlertOutcome::quiet: return QStringLiteral("bell.slash");
        case AlertOutcome::held:
        case AlertOutcome::summarised: return QStringLiteral("clock");
    }
    return {};
}

}  // namespace app
