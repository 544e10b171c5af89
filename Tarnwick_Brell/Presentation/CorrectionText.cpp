#include "Tarnwick_Brell/Presentation/CorrectionText.h"

#include <string>

#include <QCoreApplication>
#include <QStringList>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

using kit::Correction;

struct CorrectionWords {
    Q_DECLARE_TR_FUNCTIONS(CorrectionWords)
};

template <class E>
QString labelOf(E value) {
    const std::string text(kit::label(value).empty() ? kit::rawValue(value) : kit::label(value));
    return CorrectionWords::tr(text.c_str());
}

QString labelText(const Correction::Instead& instead) {
    QStringList parts;
    if (instead.kind) parts << CorrectionWords::tr("kind: %1").arg(labelOf(*instead.kind));
    if (instead.sourcing)
        parts << CorrectionWords::tr("sourcing: %1").arg(labelOf(*instead.sourcing));
    return parts.join(QStringLiteral(", "));
}

}  // namespace

QString correctionText(const Correction& correction) {
    const auto instead = correction.instead.value_or(Correction::Instead());
    const auto shown = [](const std::optional<std::string>& text) {
        return titleText(text.value_or(""));
    };
    switch (correction.kind) {
        case Correction::Kind::notSame: return CorrectionWords::tr("Not the same news");
        case Correction::Kind::same: return CorrectionWords::tr("The same news");
        case Correction::Kind::first:
            return CorrectionWords::tr("%1 had it first").arg(shown(instead.outlet));
        case Correction::Kind::credit:
            return instead.by ? CorrectionWords::tr("Credit to %1 instead of %2")
                                    .arg(shown(instead.by), shown(instead.name))
                              : CorrectionWords::tr("No credit to %1").arg(shown(instead.name));
        case Correction::Kind::label:
            return CorrectionWords::tr("Label corrected: %1").arg(labelText(instead));
    }
    return {};
}

}  // namespace app
