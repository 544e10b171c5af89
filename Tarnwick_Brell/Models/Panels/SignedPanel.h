#pragma once

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Panels/PanelContent.h"
#include "Tarnwick_Brell/Models/Panels/SignalRow.h"
#include "Tarnwick_Brell/Models/Rows/RowsModel.h"

namespace desk {

/// What Apple signs now for each model that is asked for, model by model.
class SignedPanel final : public desk::PanelContent {
    Q_OBJECT
    QML_NAMED_ELEMENT(SignedContent)
    QML_UNCREATABLE("The page of firmware signing makes it.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    explicit SignedPanel(const PanelStores& stores);

    RowsModel<SignalRow>* rows() { return &rows_; }

    void tick() override { look(); }
    void retry() override { signalsStore().refresh(SignalRound::signing); }

private:
    void look();
    void add(const std::string& device, std::vector<SignalRow>& rows) const;

    RowsModel<SignalRow> rows_;
};

}  // namespace desk
