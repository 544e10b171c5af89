#pragma once

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Library/KeptLine.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// What the user removed and can still have back, the last removed first.
class RemovedPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(RemovedPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)

public:
    explicit RemovedPageModel(const DeskStores& stores);

    QAbstractListModel* rows() { return &rows_; }
    int row() const { return row_; }
    void setRow(int row);
    Q_INVOKABLE void restoreRow(int row);

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override { read(); }
    void retry() override { read(); }

protected:
    bool hasBar() const override { return true; }

private:
    void read();
    void show(const std::vector<KeptRow>& removed);

    GadgetListModel<KeptLine> rows_;
    std::vector<KeptRow> removed_;
    int row_ = -1;
};

}  // namespace app
