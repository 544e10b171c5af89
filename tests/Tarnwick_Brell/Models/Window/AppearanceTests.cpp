#include <gtest/gtest.h>

#include <fstream>

#include <QDBusMetaType>
#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include "Tarnwick_Brell/Models/Window/Appearance.h"
#include "tests/support/app/TestNotifications.h"
#include "tests/support/EventLoop.h"

namespace app {
namespace {

/// The part of the desktop's portal that tells settings.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    FakePortal(QDBusConnection bus, PortalSettings::Settings settings)
        : settings_(std::move(settings)) {
        qDBusRegisterMetaType<PortalSettings::Settings>();
        bus.registerObject("/org/freedesktop/portal/desktop", this,
                           QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        bus.registerService("org.freedesktop.portal.Desktop");
    }

public slots:
    QMap<QString, QVariantMap> ReadAll(const QStringList&) { return settings_; }

signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    PortalSettings::Settings settings_;
};

class AppearanceTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { QGuiApplication::setPalette(Qt::white); }

    ::test::TemporaryFolder folder_;
    Defaults defaults_{folder_.path() / "settings.ini"};
};

TEST_F(AppearanceTest, FollowsThePortalUntilTheUserDecides) {
    test::PrivateBus bus;
    FakePortal portal(bus.connection(),
                      {{PortalSettings::kAppearanceGroup, {{"color-scheme", 1u}, {"contrast", 1u}}},
                       {PortalSettings::kInterfaceGroup, {{"enable-animations", false}}}});
    Appearance appearance(defaults_, bus.connection());
    EXPECT_FALSE(appearance.isDark()) << "nobody waits for the portal";
    ASSERT_TRUE(::test::until([&] { return appearance.isDark(); }));
    EXPECT_TRUE(appearance.reducedMotion());
    EXPECT_TRUE(appearance.highContrast());

    int changes = 0;
    QObject::connect(&appearance, &Appearance::changed, [&] { ++changes; });
    // Again and again: the bus takes the wish to hear of changes when it comes to it.
    ASSERT_TRUE(::test::until([&] {
        emit portal.SettingChanged(PortalSettings::kAppearanceGroup, "color-scheme",
                                   QDBusVariant(2u));
        return !appearance.isDark();
    }));
    ASSERT_TRUE(::test::until([&] {
        emit portal.SettingChanged(PortalSettings::kInterfaceGroup, "enable-animations",
                                   QDBusVariant(true));
        return !appearance.reducedMotion();
    }));
    EXPECT_EQ(changes, 2);

    appearance.setChoice(Appearance::Dark);
    EXPECT_TRUE(appearance.isDark());
    EXPECT_EQ(Defaults(folder_.path() / "settings.ini").text(SettingKey::kAppearance), "dark");
    defaults_.set(SettingKey::kAppearance, "");
    appearance.reload();
    EXPECT_FALSE(appearance.isDark());
}

TEST_F(AppearanceTest, WithoutAPortalThePaletteDecides) {
    test::PrivateBus bus;
    Appearance withoutPortal(defaults_, bus.connection());
    Appearance withoutBus(defaults_, QDBusConnection("none"));
    ::test::runFor(std::chrono::milliseconds(50));
    for (auto* appearance : {&withoutPortal, &withoutBus}) {
        QGuiApplication::setPalette(Qt::white);
        EXPECT_FALSE(appearance->isDark());
        QGuiApplication::setPalette(QColor(30, 30, 30));
        EXPECT_TRUE(::test::until([&] { return appearance->isDark(); }));
        EXPECT_FALSE(appearance->reducedMotion());
    }
}

TEST_F(AppearanceTest, TextGrowsWithTheDesktopsFont) {
    Appearance appearance(defaults_, QDBusConnection("none"));
    QFont font;
    font.setPixelSize(22);
    QGuiApplication::setFont(font);
    EXPECT_TRUE(::test::until([&] { return appearance.fontScale() > 1; }));
    EXPECT_NEAR(appearance.fontScale(), 1.5, 0.01);
    const std::pair<double, double> cases[] = {
        {12, 1}, {14.7, 1}, {9.6, 0.8}, {0, 0.75}, {900, 2.5}};
    for (const auto& [pixels, scale] : cases) EXPECT_NEAR(fontScaleFor(pixels, 100), scale, 1e-9);
    defaults_.set(SettingKey::kTextSize, "120");
    EXPECT_NEAR(appearance.fontScale(), 1.8, 0.01);
    defaults_.set(SettingKey::kDensity, "compact");
    EXPECT_EQ(appearance.density(), -1);
}

TEST(PortalSettings, NonsenseFromThePortalChangesNothing) {
    PortalSettings look;
    look.take({{PortalSettings::kAppearanceGroup, {{"color-scheme", "dark"}}},
               {PortalSettings::kInterfaceGroup, {{"enable-animations", "no"}}},
               {PortalSettings::kAccessibilityGroup, {{"high-contrast", "very"}}},
               {"org.example", {{"color-scheme", 1u}}}});
    EXPECT_EQ(look, PortalSettings());
    look.take(PortalSettings::kAppearanceGroup, "color-scheme", 1u);
    look.take(PortalSettings::kAppearanceGroup, "color-scheme", 7u);
    EXPECT_EQ(look.prefersDark, std::nullopt) << "an opinion that is unknown is none";
}

}  // namespace
}  // namespace app

#include "AppearanceTests.moc"
