#include "Tarnwick_Brell/Models/Window/PortalSettings.h"

#include <algorithm>

namespace app {

namespace {

constexpr uint kDark = 1;
constexpr uint kLight = 2;
constexpr uint kHigh = 1;

// 9 and 11 points at 96 dots per inch.
constexpr double kSmallestUsualPixels = 12;
constexpr double kLargestUsualPixels = 14.7;
// Beyond these the window would not fit on any screen, or not be legible.
constexpr double kLeastScale = 0.75;
constexpr double kMostScale = 2.5;

}  // namespace

const QString PortalSettings::kAppearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString PortalSettings::kInterfaceGroup = QStringLiteral("org.gnome.desktop.interface");
const QString PortalSettings::kAccessibilityGroup =
    QStringLiteral("org.gnome.desktop.a11y.interface");

void PortalSettings::take(const QString& group, const QString& key, const QVariant& value) {
    if (group == kAppearanceGroup && key == u"color-scheme") {
        bool isNumber = false;
        const auto scheme = value.toUInt(&isNumber);
        if (!isNumber) return;
        prefersDark =
            scheme == kDark || scheme == kLight ? std::optional(scheme == kDark) : std::nullopt;
    } else if (group == kAppearanceGroup && key == u"contrast") {
        bool isNumber = false;
        const auto contrast = value.toUInt(&isNumber);
        if (isNumber) asksForContrast = contrast == kHigh;
    } else if (group == kAccessibilityGroup && key == u"high-contrast" &&
               value.typeId() == QMetaType::Bool) {
        isHighContrast = value.toBool();
    } else if (group == kInterfaceGroup && key == u"enable-animations" &&
               value.typeId() == QMetaType::Bool) {
        isAnimated = value.toBool();
    }
}

void PortalSettings::take(const Settings& settings) {
    for (auto group = settings.begin(); group != settings.end(); ++group) {
        for (auto setting = group->begin(); setting != group->end(); ++setting)
            take(group.key(), setting.key(), setting.value());
    }
}

double fontScaleFor(double pixels, int textSize) {
    double scale = 1;
    if (pixels < kSmallestUsualPixels) scale = pixels / kSmallestUsualPixels;
    if (pixels > kLargestUsualPixels) scale = pixels / kLargestUsualPixels;
    return std::clamp(scale * textSize / 100, kLeastScale, kMostScale);
}

}  // namespace app
