#pragma once

#include <memory>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>

#include "NewsroomKit/Panels/LedgerContent.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Pages/SubjectLoader.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

/// An outlet in the rumor ledger.
struct LedgerOutletRow {
    Q_GADGET
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString claims MEMBER claims)
    Q_PROPERTY(QString confirmed MEMBER confirmed)
    Q_PROPERTY(QString denied MEMBER denied)
    Q_PROPERTY(QString open MEMBER open)
    Q_PROPERTY(QString expired MEMBER expired)
    Q_PROPERTY(QList<double> shares MEMBER shares)
    Q_PROPERTY(QString days MEMBER days)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString outlet{};
    QString claims{};
    QString confirmed{};
    QString denied{};
    QString open{};
    QString expired{};
    /// Confirmed, denied, open, expired; empty where the claims are too few to tell.
    QList<double> shares{};
    QString days{};  ///< median to the confirmation; empty without one
    QString spokenText{};

    bool operator==(const LedgerOutletRow&) const = default;
};

/// A claim of the ledger.
struct LedgerClaimRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString state MEMBER state)
    Q_PROPERTY(int tone MEMBER tone)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString title{};
    QString detail{};  ///< "Wired · 3 May"
    QString state{};   ///< "Confirmed after 12 days"
    int tone = 0;      ///< LedgerClaim::State
    QString storyID{};
    QString spokenText{};

    bool operator==(const LedgerClaimRow&) const = default;
};

/// What outlets claimed before Apple said anything, and what became of it.
class LedgerPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(LedgerPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* outlets READ outlets CONSTANT)
    Q_PROPERTY(QAbstractListModel* claims READ claims CONSTANT)
    Q_PROPERTY(int stateShown READ stateShown WRITE setStateShown NOTIFY changed)
    Q_PROPERTY(QList<QString> states READ states CONSTANT)
    Q_PROPERTY(QString outlet READ outlet NOTIFY changed)
    Q_PROPERTY(QString claimsTitle READ claimsTitle NOTIFY changed)
    Q_PROPERTY(QString claimsFact READ claimsFact NOTIFY changed)
    Q_PROPERTY(QString nothingShown READ nothingShown NOTIFY changed)

public:
    explicit LedgerPageModel(const DeskStores& stores);

    QAbstractListModel* outlets() { return &outlets_; }
    QAbstractListModel* claims() { return &claims_; }
    int stateShown() const { return state_; }  ///< its place in `states`
    void setStateShown(int place);
    /// "State", then those of claims.
    QStringList states() const;
    /// Whose claims are listed; empty for all.
    QString outlet() const { return titleText(filter_.outlet); }
    QString claimsTitle() const;
    const QString& claimsFact() const { return claimsFact_; }
    /// Instead of claims.
    const QString& nothingShown() const { return nothingShown_; }

    /// Lists the claims of that row's outlet; -1 those of all.
    Q_INVOKABLE void chooseOutlet(int row);
    /// Opens the story with the claim.
    Q_INVOKABLE void openClaim(int row);

    void retry() override { load(); }

protected:
    bool hasBar() const override { return true; }

private:
    void load();
    void update();

    std::shared_ptr<const kit::LedgerRecord> held_;
    bool isCut_ = false;
    int state_ = 0;
    kit::LedgerFilter filter_;
    GadgetListModel<LedgerOutletRow> outlets_;
    GadgetListModel<LedgerClaimRow> claims_;
    std::vector<std::string> outletNames_;  ///< of the rows
    QString claimsFact_;
    QString nothingShown_;
    SubjectLoader loader_;
};

}  // namespace app
