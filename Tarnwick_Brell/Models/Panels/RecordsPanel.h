#pragma once

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Panels/PanelContent.h"
#include "Tarnwick_Brell/Models/Panels/SignalRow.h"
#include "Tarnwick_Brell/Models/Rows/RowsModel.h"

namespace desk {

/// Firmware that Apple began or stopped to sign, the last seen first. A build counts once, for
/// however many models it changed.
class RecordsPanel final : public desk::PanelContent {
    Q_OBJECT
    QML_NAMED_ELEMENT(RecordsContent)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    RecordsPanel(const PanelStores& stores, const newsroom::PanelSpec& panel);

    RowsModel<SignalRow>* rows() { return &rows_; }

    void tick() override { look(); }
    void retry() override { signalsStore().refresh(SignalRound::signing); }

private:
    void look();

    RowsModel<SignalRow> rows_;
};

}  // namespace desk
