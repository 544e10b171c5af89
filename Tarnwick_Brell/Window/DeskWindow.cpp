#include "Tarnwick_Brell/Window/DeskWindow.h"

#include <stdexcept>
#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QInputMethodQueryEvent>
#include <QKeyEvent>
#include <QQmlComponent>
#include <QVariantMap>

#include "Tarnwick_Brell/Interface/Controls/InstallControls.h"
#include "Tarnwick_Brell/Pictures/PictureLoader.h"
#include "Tarnwick_Brell/Shell/AppEnvironment.h"
#include "Tarnwick_Brell/Window/PictureImages.h"

// Written by the build. Naming them keeps the linker from leaving out the modules' types.
extern void qml_register_types_TarnwickBrell_Models();
extern void qml_register_types_TarnwickBrell_Panels();
extern void qml_register_types_TarnwickBrell_Palette();
extern void qml_register_types_TarnwickBrell_Sidebar();
extern void qml_register_types_TarnwickBrell_Wire();
extern void qml_register_types_TarnwickBrell_Newsrooms();
extern void qml_register_types_TarnwickBrell_Pages();
extern void qml_register_types_TarnwickBrell_Sheets();
extern void qml_register_types_TarnwickBrell_Window();

namespace app {

namespace {

void nameModules() {
    for (const auto types :
         {&qml_register_types_TarnwickBrell_Models, &qml_register_types_TarnwickBrell_Panels,
          &qml_register_types_TarnwickBrell_Palette, &qml_register_types_TarnwickBrell_Sidebar,
          &qml_register_types_TarnwickBrell_Wire, &qml_register_types_TarnwickBrell_Newsrooms,
          &qml_register_types_TarnwickBrell_Pages, &qml_register_types_TarnwickBrell_Sheets,
          &qml_register_types_TarnwickBrell_Window}) {
        [[maybe_unused]] void (*volatile kept)() = types;
    }
}

/// Opens a list of stories at its beginning, with those that wait behind the pill.
void openNewest(WindowModel& model, const Destination& place) {
    model.open(place.key());
    // A beat that was removed in the meantime leads to the first newsroom.
    if (model.view() == WindowModel::Stories) model.storyList()->showArrivals();
}

void openStory(WindowModel& model, const QString& id) {
    auto& state = *model.state();
    if (state.reader() == WindowState::Hidden) state.setReader(WindowState::Right);
    model.openStory(id);
}

}  // namespace

DeskStores windowStores(AppEnvironment& environment, UndoStack& undo, kit::Clock clock) {
    return {.news = environment.newsDesk(),
            .trackers = environment.trackers(),
            .newsrooms = environment.newsrooms(),
            .alerts = environment.alertStore(),
            .kept = environment.kept(),
            .defaults = environment.defaults(),
            .clock = std::move(clock),
            .undo = undo,
            .library = environment.library()};
}

void openTarget(WindowModel& model, const NotificationTarget& target) {
    using Kind = NotificationTarget::Kind;
    const auto id = QString::fromStdString(target.id);
    const auto open = [&](Destination::Kind kind) { model.open(Destination{kind, id}.key()); };
    switch (target.kind) {
        case Kind::story: return openStory(model, id);
        case Kind::newStories: return openNewest(model, {Destination::Kind::all, {}});
        case Kind::beat: return openNewest(model, {Destination::Kind::beat, id});
        case Kind::newsroom: return open(Destination::Kind::newsroom);
        case Kind::tracker: return open(Destination::Kind::tracker);
        case Kind::page: return open(Destination::Kind::page);
    }
}

DeskWindow::DeskWindow(WindowModel& model, PictureLoader& pictures) : model_(model) {
    nameModules();
    installControls(engine_);
    installPictures(pictures);
    QQmlComponent main(&engine_, QUrl(QStringLiteral("qrc:/qt/qml/TarnwickBrell/Window/Main.qml")));
    if (main.isError())
        throw std::runtime_error("The window can't be made. " + main.errorString().toStdString());
    auto* made =
        main.createWithInitialProperties({{QStringLiteral("desk"), QVariant::fromValue(&model)}});
    window_.reset(qobject_cast<QQuickWindow*>(made));
    if (!window_) {
        delete made;
        throw std::runtime_error("The window can't be made. " + main.errorString().toStdString());
    }
    model.state()->attach(window_.get());
    window_->installEventFilter(this);
    qApp->installEventFilter(this);
}

DeskWindow::~DeskWindow() = default;

/// Where the language runs from right to left the window is mirrored, and the arrow keys with it;
/// fields for text do that by themselves.
bool DeskWindow::mirrorsKey(QEvent& event) {
    const auto type = event.type();
    const bool isKey =
        type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride;
    if (!isKey || !QGuiApplication::isRightToLeft() || isMirroring_) return false;
    auto& key = static_cast<QKeyEvent&>(event);
    const bool isLeft = key.key() == Qt::Key_Left;
    if ((!isLeft && key.key() != Qt::Key_Right) || hasTextFocus()) return false;
    QKeyEvent other(type, isLeft ? Qt::Key_Right : Qt::Key_Left, key.modifiers(), QString(),
                    key.isAutoRepeat());
    isMirroring_ = true;
    QCoreApplication::sendEvent(window_.get(), &other);
    isMirroring_ = false;
    event.setAccepted(other.isAccepted());
    return true;
}

bool DeskWindow::hasTextFocus() const {
    auto* focus = window_->focusObject();
    if (!focus) return false;
    QInputMethodQueryEvent question(Qt::ImEnabled);
    QCoreApplication::sendEvent(focus, &question);
    return question.value(Qt::ImEnabled).toBool();
}

void DeskWindow::installPictures(PictureLoader& pictures) {
    // The engine owns its image providers.
    engine_.addImageProvider(QStringLiteral("picture"), new PictureImages(pictures));
    auto& appearance = *model_.appearance();
    pictures.setOn(appearance.showsPictures());
    connect(&appearance, &Appearance::picturesSwitched, this,
            [&pictures](bool on) { pictures.setOn(on); });
}

/// Quitting closes all windows first, and would end there when one stays.
bool DeskWindow::eventFilter(QObject* object, QEvent* event) {
    if (object == qApp && event->type() == QEvent::Quit) isQuitting_ = true;
    if (object == window_.get() && mirrorsKey(*event)) return true;
    const bool isAsked =
        object == window_.get() && event->type() == QEvent::Close && !isQuitting_ && mayClose_;
    if (!isAsked || mayClose_()) return false;
    event->ignore();
    return true;
}

void DeskWindow::show() {
    model_.state()->isMaximised() ? window_->showMaximized() : window_->show();
}

void DeskWindow::raise(const QString& activationToken) {
    if (!activationToken.isEmpty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    if (window_->windowStates() & Qt::WindowMinimized) window_->showNormal();
    if (!window_->isVisible()) show();
    window_->raise();
    window_->requestActivate();
}

}  // namespace app
