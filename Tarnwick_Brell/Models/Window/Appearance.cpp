#include "Tarnwick_Brell/Models/Window/Appearance.h"

#include <utility>

#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <QStringList>

#include "Tarnwick_Brell/Storage/Files/StoreError.h"

namespace app {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.Settings");

constexpr double kPointsPerInch = 72;

bool paletteIsDark() {
    const auto palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

double fontPixels() {
    const auto font = QGuiApplication::font();
    if (font.pixelSize() > 0) return font.pixelSize();
    const auto* screen = QGuiApplication::primaryScreen();
    return screen ? font.pointSizeF() * screen->logicalDotsPerInchY() / kPointsPerInch : 0;
}

}  // namespace

Appearance::Appearance(Defaults& defaults, QDBusConnection bus)
    : defaults_(defaults), bus_(std::move(bus)) {
    qApp->installEventFilter(this);
    connect(&defaults_, &Defaults::changed, this, &Appearance::reload);
    refresh();
    if (bus_.isConnected()) askDesktop();
}

void Appearance::askDesktop() {
    qDBusRegisterMetaType<PortalSettings::Settings>();
    // Without it the slot below is not found, as long as nothing else has used the type.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    // Of whichever service: naming it would make Qt wait for its owner's name.
    bus_.connect(QString(), kPath, kInterface, QStringLiteral("SettingChanged"), this,
                 SLOT(settingChanged(QString, QString, QDBusVariant)));
    auto question =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("ReadAll"));
    question << QStringList{PortalSettings::kAppearanceGroup, PortalSettings::kInterfaceGroup,
                            PortalSettings::kAccessibilityGroup};
    auto* watcher = new QDBusPendingCallWatcher(bus_.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<PortalSettings::Settings> answer(*watcher);
        if (answer.isError()) return;
        desktop_.take(answer.value());
        refresh();
    });
}

void Appearance::settingChanged(const QString& group, const QString& key,
                                const QDBusVariant& value) {
    desktop_.take(group, key, value.variant());
    refresh();
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    const bool isLook = event->type() == QEvent::ApplicationPaletteChange ||
                        event->type() == QEvent::ApplicationFontChange;
    if (watched == qApp && isLook) refresh();
    return QObject::eventFilter(watched, event);
}

Appearance::Choice Appearance::choice() const { return now_.choice; }

void Appearance::setChoice(Choice choice) {
    const auto& key = *SettingKey::named(SettingKey::kAppearance);
    try {
        defaults_.set(key.name, key.choices[static_cast<std::size_t>(choice)]);
    } catch (const StoreError& error) {
        emit failed(QString::fromUtf8(error.what()));
    }
    refresh();
}

void Appearance::reload() { refresh(); }

void Appearance::refresh() {
    Look look{.choice = static_cast<Choice>(defaults_.choice(SettingKey::kAppearance)),
              .fontScale = fontScaleFor(fontPixels(), defaults_.textSize()),
              .density = defaults_.choice(SettingKey::kDensity) - 1,
              .highContrast = desktop_.asksForContrast || desktop_.isHighContrast,
              .reducedMotion = !desktop_.isAnimated,
              .showsPictures = defaults_.isOn(SettingKey::kPictures)};
    look.isDark = look.choice == System ? desktop_.prefersDark.value_or(paletteIsDark())
                                        : look.choice == Dark;
    if (look == now_) return;
    if (look.showsPictures != now_.showsPictures) emit picturesSwitched(look.showsPictures);
    now_ = look;
    emit changed();
}

}  // namespace app
