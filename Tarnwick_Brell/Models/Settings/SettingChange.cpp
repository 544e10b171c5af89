#include "Tarnwick_Brell/Models/Settings/SettingChange.h"

#include <stdexcept>

#include <QCoreApplication>

#include "Tarnwick_Brell/Models/Undo/UndoStack.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Files/StoreError.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

namespace {

struct SettingChange {
    Q_DECLARE_TR_FUNCTIONS(SettingChange)
};

/// A value that was accepted once: only the disk can refuse it now, as the next change will say.
void put(Defaults& defaults, std::string_view name, std::string_view value) {
    try {
        defaults.set(name, value);
    } catch (const std::exception&) {
    }
}

}  // namespace

QString changeSetting(const DeskStores& stores, const SettingKey& key, std::string_view value) {
    auto& defaults = stores.defaults;
    const auto before = defaults.text(key.name).value_or(std::string());
    try {
        defaults.set(key.name, value);
    } catch (const std::invalid_argument& error) {
        return titleText(error.what(), kExcerptCharacters);
    } catch (const StoreError& error) {
        return titleText(error.what(), kExcerptCharacters);
    }
    const auto after = defaults.text(key.name).value_or(std::string());
    if (after == before) return {};
    stores.undo.push({.text = SettingChange::tr("Setting %1").arg(labelText(key.title)),
                      .undo = [&defaults, &key, before] { put(defaults, key.name, before); },
                      .redo = [&defaults, &key, after] { put(defaults, key.name, after); }});
    return {};
}

}  // namespace app
