#pragma once

#include <string>
#include <string_view>

#include <QString>

#include "Tarnwick_Brell/Models/DeskStores.h"

namespace app {

struct SettingKey;

/// Sets a setting so that it can be undone; the empty text goes back to the default. Returns why
/// not, as a sentence; empty when it was done.
QString changeSetting(const DeskStores& stores, const SettingKey& key, std::string_view value);

}  // namespace app
