#pragma once

#include <optional>

#include <QMap>
#include <QString>
#include <QVariant>
#include <QVariantMap>

namespace app {

/// What the desktop's settings, as its portal tells them, say of how windows shall look.
struct PortalSettings {
    /// By group, then by key.
    using Settings = QMap<QString, QVariantMap>;

    static const QString kAppearanceGroup;
    static const QString kInterfaceGroup;
    static const QString kAccessibilityGroup;

    std::optional<bool> prefersDark{};  ///< absent: the desktop has no opinion
    bool isAnimated = true;
    bool asksForContrast = false;
    bool isHighContrast = false;  ///< of desktops whose portal lacks the setting above

    /// Takes a setting over; those of other groups and of unknown types change nothing.
    void take(const QString& group, const QString& key, const QVariant& value);
    void take(const Settings& settings);

    bool operator==(const PortalSettings&) const = default;
};

/// How much larger or smaller than designed text is: 1 as long as the desktop's font has a size
/// that desktops have by default, and the user's `textSize` is 100 per cent.
double fontScaleFor(double pixels, int textSize);

}  // namespace app
