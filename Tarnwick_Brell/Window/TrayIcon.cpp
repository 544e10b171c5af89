#include "Tarnwick_Brell/Window/TrayIcon.h"

#include <chrono>

#include <QGuiApplication>

namespace app {

namespace {

using namespace std::chrono_literals;

/// A desk that starts with the session may be there before the panel.
constexpr auto kLookAgain = 10s;

/// An ampersand would underline the letter behind it.
QString menuText(QString text) { return text.replace(u'&', QStringLiteral("&&")); }

}  // namespace

TrayIcon::TrayIcon(TrayModel& model, QObject* parent) : QObject(parent), model_(model) {
    looking_.setInterval(kLookAgain);
    connect(&looking_, &QTimer::timeout, this, &TrayIcon::showWhenPossible);
    connect(&model_, &TrayModel::changed, this, &TrayIcon::fill);
    looking_.start();
    showWhenPossible();
}

TrayIcon::~TrayIcon() = default;

void TrayIcon::showWhenPossible() {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
    looking_.stop();
    menu_ = std::make_unique<QMenu>();
    icon_ = std::make_unique<QSystemTrayIcon>(QGuiApplication::windowIcon());
    connect(icon_.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) emit openWanted();
            });
    fill();
    icon_->setContextMenu(menu_.get());
    icon_->show();
}

void TrayIcon::fill() {
    if (!icon_) return;
    icon_->setToolTip(model_.tip());
    menu_->clear();
    for (const auto& [storyID, title] : model_.stories()) {
        connect(menu_->addAction(menuText(title)), &QAction::triggered, this,
                [this, storyID] { emit storyWanted(storyID); });
    }
    menu_->addSeparator();
    for (const auto& problem : model_.problems()) {
        connect(menu_->addAction(menuText(problem)), &QAction::triggered, this,
                &TrayIcon::statusWanted);
    }
    menu_->addSeparator();
    addQuiet();
    connect(menu_->addAction(tr("Refresh")), &QAction::triggered, this, &TrayIcon::refreshWanted);
    connect(menu_->addAction(tr("Open")), &QAction::triggered, this, &TrayIcon::openWanted);
    connect(menu_->addAction(tr("Quit")), &QAction::triggered, this, &TrayIcon::quitWanted);
}

void TrayIcon::addQuiet() {
    const auto add = [&](const QString& text, TrayModel::Quiet choice) {
        connect(menu_->addAction(menuText(text)), &QAction::triggered, this,
                [this, choice] { model_.setQuiet(choice); });
    };
    add(tr("Quiet for an hour"), TrayModel::Quiet::forAnHour);
    add(tr("Quiet until tomorrow, 7:00"), TrayModel::Quiet::untilMorning);
    // It may be over before the menu is filled again.
    if (const auto quiet = model_.quietText(); !quiet.isEmpty())
        add(tr("%1: end it now").arg(quiet), TrayModel::Quiet::end);
    menu_->addSeparator();
}

}  // namespace app
