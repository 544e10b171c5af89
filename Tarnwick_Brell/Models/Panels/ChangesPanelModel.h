#pragma once

#include <utility>
#include <vector>

#include <QAbstractListModel>

#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A line about firmware or updates.
struct ChangeRow {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< of this line and those below it
    QString title{};
    QString detail{};
    QString when{};
    QString spokenText{};

    bool operator==(const ChangeRow&) const = default;
};

/// Lines about firmware or updates, under headings. ChangesPanel.qml shows all of its subclasses.
class ChangesPanelModel : public app::PanelModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Newsrooms make their panels' contents.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QString label READ label CONSTANT)

public:
    using PanelModel::PanelModel;

    QString file() const final { return QStringLiteral("ChangesPanel.qml"); }
    GadgetListModel<ChangeRow>* rows() { return &rows_; }
    /// Names the list for those who do not see it.
    virtual QString label() const = 0;

protected:
    GadgetListModel<ChangeRow> rows_;
};

}  // namespace app
