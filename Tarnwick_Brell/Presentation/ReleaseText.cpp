#include "Tarnwick_Brell/Presentation/ReleaseText.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

constexpr int kLongestStage = 20;

QString shortStage(const QString& stage) {
    static const QRegularExpression beta(QStringLiteral("^(?:developer )?beta(?: (\\d{1,3}))?$"),
                                         QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression candidate(
        QStringLiteral("^(?:rc|release candidate)(?: (\\d{1,3}))?$"),
        QRegularExpression::CaseInsensitiveOption);
    if (stage.isEmpty() || stage.compare(QStringLiteral("release"), Qt::CaseInsensitive) == 0)
        return {};
    // The first beta of a version has no number.
    if (const auto match = beta.match(stage); match.hasMatch())
        return u'b' + (match.captured(1).isEmpty() ? QStringLiteral("1") : match.captured(1));
    if (const auto match = candidate.match(stage); match.hasMatch())
        return QStringLiteral("RC ") + match.captured(1);
    return stage;
}

}  // namespace

QString versionText(const kit::SoftwareRelease& release) {
    const auto version = titleText(release.version, kLongestStage);
    return (version + u' ' + shortStage(titleText(release.stage, kLongestStage))).trimmed();
}

}  // namespace app
