#include "Tarnwick_Brell/Window/Translations.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include "Tarnwick_Brell/Window/PseudoTranslator.h"

namespace app {

void installTranslations() {
    const auto folder = QStringLiteral(":/translations");
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(QLocale(), QStringLiteral("tarnwick-brell"), QStringLiteral("_"),
                         folder) ||
        translator->load(QStringLiteral("tarnwick-brell_en"), folder)) {
        QCoreApplication::installTranslator(translator);
    }
    const auto pseudo = PseudoTranslator::ofEnvironment();
    if (pseudo == PseudoTranslator::Language::none) return;
    QCoreApplication::installTranslator(
        new PseudoTranslator(pseudo, *translator, QCoreApplication::instance()));
}

}  // namespace app
