#include "Tarnwick_Brell/Presentation/FilingText.h"

#include <QCoreApplication>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

struct FilingTexts {
    Q_DECLARE_TR_FUNCTIONS(FilingTexts)
};

constexpr int kLongestWords = 600;

}  // namespace

QString filingTimesText(const kit::FilingRow& row) {
    const auto dated = QString::fromStdString(row.filing.filed);
    if (!row.acceptedClock) return FilingTexts::tr("dated %1").arg(dated);
    const auto clock = QString::fromStdString(*row.acceptedClock);
    if (row.daysOff == 0) return FilingTexts::tr("accepted %1 New York").arg(clock);
    if (row.daysOff == 1)
        return FilingTexts::tr("accepted %1 New York, dated the next day").arg(clock);
    return FilingTexts::tr("accepted %1 New York, dated %2").arg(clock, dated);
}

QString filingWordsText(const kit::FilingRow& row) {
    const auto words = titleText(row.words, kLongestWords);
    if (row.headline.empty()) return words;
    return words + QStringLiteral(": ") + titleText(row.headline, kLongestWords);
}

}  // namespace app
