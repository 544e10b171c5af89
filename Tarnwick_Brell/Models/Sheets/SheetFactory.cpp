#include "Tarnwick_Brell/Models/Sheets/SheetFactory.h"

#include <array>
#include <string_view>

#include "Tarnwick_Brell/Models/Sheets/AddSourceSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/AlertHistorySheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/AlertRuleSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/BeatSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/CloseToTraySheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/CorrectionSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/ExportOutlinesSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/ImportOutlinesSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/ProjectChoiceSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/SigningDevicesSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/FocusSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/NewNewsroomSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/PanelOptionsSheetModel.h"
#include "Tarnwick_Brell/Models/Sheets/SettingsSheetModel.h"

namespace app {

namespace {

using Make = std::unique_ptr<SheetModel> (*)(const DeskStores& stores, const QString& subject);

struct SheetRow {
    std::string_view name;
    Make make;
};

template <class SheetType>
std::unique_ptr<SheetModel> sheetOf(const DeskStores& stores, const QString& subject) {
    return std::make_unique<SheetType>(stores, subject);
}

}  // namespace

std::unique_ptr<SheetModel> makeSheet(const DeskStores& stores, const QString& key) {
    static constexpr std::array kSheets{
        SheetRow{"add-source", &sheetOf<AddSourceSheetModel>},
        SheetRow{"import-outlines", &sheetOf<ImportOutlinesSheetModel>},
        SheetRow{"export-outlines", &sheetOf<ExportOutlinesSheetModel>},
        SheetRow{"close-to-tray", &sheetOf<CloseToTraySheetModel>},
        SheetRow{"signing-devices", sheetOf<SigningDevicesSheetModel>},
        SheetRow{"focus", &sheetOf<FocusSheetModel>},
        SheetRow{"new-newsroom", &sheetOf<NewNewsroomSheetModel>},
        SheetRow{"panel", &sheetOf<PanelOptionsSheetModel>},
        SheetRow{"beat", &BeatSheetModel::make},
        SheetRow{"beat-from-story", &BeatSheetModel::makeFromStory},
        SheetRow{"correct", &sheetOf<CorrectionSheetModel>},
        SheetRow{"alert-rule", &AlertRuleSheetModel::make},
        SheetRow{"alert-from-story", &AlertRuleSheetModel::makeFromStory},
        SheetRow{"alert-from-words", &AlertRuleSheetModel::makeFromWords},
        SheetRow{"alert-from-beat", &AlertRuleSheetModel::makeFromBeat},
        SheetRow{"alert-from-quote", &AlertRuleSheetModel::makeFromQuote},
        SheetRow{"alert-history", &sheetOf<AlertHistorySheetModel>},
        SheetRow{"put-into-project", &ProjectChoiceSheetModel::make},
        SheetRow{"settings", &SettingsSheetModel::make},
    };
    const auto name = key.section(u':', 0, 0).toStdString();
    for (const auto& row : kSheets) {
        if (row.name == name) return row.make(stores, key.section(u':', 1));
    }
    return nullptr;
}

}  // namespace app
