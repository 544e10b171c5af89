#include "Tarnwick_Brell/Window/NotificationOpening.h"

namespace app {

namespace {

/// Opens a list of stories at its beginning, with those that wait behind the pill.
void openNewest(WindowModel& model, const Destination& place) {
    model.open(place.key());
    // A beat that has been removed meanwhile leads to the first newsroom.
    if (model.view() == WindowModel::Stories) model.wire()->showArrivals();
}

void openStory(WindowModel& model, const QString& id) {
    if (model.state()->reader() == WindowState::Hidden)
        model.state()->setReader(WindowState::Right);
    model.openStory(id);
}

}  // namespace

void openTarget(WindowModel& model, const NotificationTarget& target) {
    const auto id = QString::fromStdString(target.id);
    switch (target.kind) {
        case NotificationTarget::Kind::story:
            openStory(model, id);
            break;
            // clang-format off
        case NotificationTarget::Kind::newStories: openNewest(model, {Destination::Kind::all, {}}); break;
        case NotificationTarget::Kind::beat: openNewest(model, {Destination::Kind::beat, id}); break;
        case NotificationTarget::Kind::newsroom: model.open(Destination{Destination::Kind::newsroom, id}.key()); break;
        case NotificationTarget::Kind::tracker: model.open(Destination{Destination::Kind::tracker, id}.key()); break;
    }
}
// clang-format on

}  // namespace app
