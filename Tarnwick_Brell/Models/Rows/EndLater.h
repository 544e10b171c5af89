#pragma once

#include <memory>

#include <QObject>

namespace app {

/// Ends what a view may still show once the view has let go of it, and at the latest with `owner`:
/// without one it could outlive the stores.
template <class Object>
void endLater(std::unique_ptr<Object> object, QObject& owner) {
    if (!object) return;
    object->setParent(&owner);
    object.release()->deleteLater();
}

}  // namespace app
