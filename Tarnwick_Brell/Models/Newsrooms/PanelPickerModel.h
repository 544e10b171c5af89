#pragma once

#include <memory>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A kind of panel that can be added.
struct PanelKindChoice {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString description MEMBER description)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString reason MEMBER reason)
    Q_PROPERTY(bool isAdded MEMBER isAdded)

public:
    kit::PanelKind kind{};
    QString title{};
    QString description{};
    QString symbol{};
    QString reason{};      ///< why its panel would be empty now; empty when it would not
    bool isAdded = false;  ///< the newsroom has a panel of the kind

    bool operator==(const PanelKindChoice&) const = default;
};

/// The kinds of panels that can be added to a newsroom, with a preview of the current one.
class PanelPickerModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The editor of newsrooms has one.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int current READ current WRITE setCurrent NOTIFY currentChanged)
    Q_PROPERTY(app::PanelModel* preview READ preview NOTIFY currentChanged)

public:
    explicit PanelPickerModel(const PanelStores& stores, QObject* parent = nullptr);
    ~PanelPickerModel() override;

    /// Shows the kinds for this newsroom; null closes the picker.
    void setNewsroom(const kit::NewsroomSpec* spec);

    QAbstractListModel* rows() { return &rows_; }
    int current() const { return current_; }
    void setCurrent(int row);
    PanelModel* preview() { return preview_.get(); }

    /// As a click or Enter on the row does.
    Q_INVOKABLE void add(int row);
    /// The row is dragged onto the grid.
    Q_INVOKABLE void lift(int row);

signals:
    void currentChanged();
    void addWanted(kit::PanelKind kind);
    void liftWanted(kit::PanelKind kind);

private:
    void showPreview();

    PanelStores stores_;
    GadgetListModel<PanelKindChoice> rows_;
    kit::StoryQuery focus_;
    int current_ = 0;
    bool isOpen_ = false;
    std::unique_ptr<PanelModel> preview_;
};

}  // namespace app
