#pragma once

#include <vector>

#include <QAbstractListModel>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"
#include "Tarnwick_Brell/Storage/Histories/AlertHistory.h"

namespace app {

/// Something that a rule, a setting or a panel has matched.
struct AlertHistoryLine {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString reason MEMBER reason)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString outcome MEMBER outcome)
    Q_PROPERTY(bool hasRule MEMBER hasRule)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< the day, above its first line
    QString time{};
    QString title{};
    QString reason{};  ///< the rule, and its words that matched
    QString symbol{};
    QString outcome{};     ///< "Told 15:02", "Summary 7:00"
    bool hasRule = false;  ///< it is the user's, and still there
    QString spokenText{};

    bool operator==(const AlertHistoryLine&) const = default;
};

/// What was told in the last months and what was not, with the rule that matched it. Opening it is
/// a look at what was not told.
class AlertHistorySheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(AlertHistorySheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)

public:
    AlertHistorySheetModel(const DeskStores& stores, const QString& subject);

    QAbstractListModel* rows() { return &rows_; }
    const QString& summary() const { return summary_; }

    /// Opens what was told of at its source.
    Q_INVOKABLE void openRow(int row);
    Q_INVOKABLE void editRule(int row);

signals:
    void changed();

private:
    void update();

    DeskStores stores_;
    std::vector<StoredAlert> alerts_;
    GadgetListModel<AlertHistoryLine> rows_;
    QString summary_;
};

}  // namespace app
