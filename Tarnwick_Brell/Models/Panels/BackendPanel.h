#pragma once

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Panels/PanelContent.h"
#include "Tarnwick_Brell/Models/Panels/SignalRow.h"
#include "Tarnwick_Brell/Models/Rows/RowsModel.h"

namespace desk {

/// What came into Apple's update catalogue and what went, the last seen first, and below it the
/// newest offer for each platform.
class BackendPanel final : public desk::PanelContent {
    Q_OBJECT
    QML_NAMED_ELEMENT(BackendContent)
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    BackendPanel(const PanelStores& stores, const newsroom::PanelSpec& panel);

    RowsModel<SignalRow>* rows() { return &rows_; }

    void tick() override { look(); }
    void retry() override { signalsStore().refresh(SignalRound::updates); }

private:
    void look();
    void addChanges(std::vector<SignalRow>& rows) const;
    void addOffers(std::vector<SignalRow>& rows) const;

    RowsModel<SignalRow> rows_;
};

}  // namespace desk
