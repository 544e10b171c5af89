#pragma once

#include <memory>

#include <QString>

#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

class SheetModel;

/// The sheet of a key: a name, with what the sheet is about after a colon ("beat:3f2a",
/// "add-source:https://…"). Null for an unknown name.
std::unique_ptr<SheetModel> makeSheet(const DeskStores& stores, const QString& key);

}  // namespace app
