#pragma once

#include <vector>

#include <QQuickItem>

#include "Tarnwick_Brell/Models/Window/FindInPage.h"

namespace app {

/// What a page shows: its lists whose rows have a `spokenText`, and the texts beside these, in the
/// order in which they were written down. Changes of the lists reach `find` while `watched` exists.
std::vector<FindPart> partsOf(QQuickItem& page, FindInPage& find, QObject& watched);

/// The visible texts below an item.
std::vector<QQuickItem*> textsOf(QQuickItem& item);

}  // namespace app
