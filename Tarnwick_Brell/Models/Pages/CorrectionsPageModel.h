#pragma once

#include <string>

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A correction of the user's.
struct CorrectionRow {
    Q_GADGET
    Q_PROPERTY(QString made MEMBER made)
    Q_PROPERTY(QString what MEMBER what)
    Q_PROPERTY(QString stories MEMBER stories)
    Q_PROPERTY(QString note MEMBER note)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString made{};
    QString what{};
    QString stories{};  ///< the first one's headline, and how many more
    QString note{};     ///< the user's; that a later correction says otherwise
    QString storyID{};  ///< empty when the first story is gone
    QString spokenText{};
    std::string id{};

    bool operator==(const CorrectionRow&) const = default;
};

/// Everything that the user says the rules got wrong, the latest first.
class CorrectionsPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(CorrectionsPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)

public:
    explicit CorrectionsPageModel(const DeskStores& stores);

    QAbstractListModel* rows() { return &rows_; }
    int row() const { return row_; }
    void setRow(int row);
    Q_INVOKABLE void openRow(int row);
    /// Takes the correction back.
    Q_INVOKABLE void removeRow(int row);
    /// Writes all of them into the folder for downloads.
    Q_INVOKABLE void saveJSON();

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override { update(); }

protected:
    bool hasBar() const override { return true; }

private:
    void update();

    int row_ = -1;
    GadgetListModel<CorrectionRow> rows_;
};

}  // namespace app
