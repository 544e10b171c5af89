#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include <QAbstractListModel>
#include <QString>
#include <QTimer>
#include <qqmlregistration.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "NewsroomKit/Newsrooms/PanelPlacement.h"
#include "Tarnwick_Brell/Models/Panels/PanelModel.h"

namespace app {

/// The newsroom that is shown, or a page of the desk in its place: a list of its panels, with their
/// places on the grid and what they say.
class NewsroomModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window shows one newsroom.")
    Q_PROPERTY(QString title READ title NOTIFY specChanged)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY subtitleChanged)
    Q_PROPERTY(int rowsUsed READ rowsUsed NOTIFY specChanged)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY specChanged)
    Q_PROPERTY(QString fault READ fault NOTIFY specChanged)

public:
    enum Role {
        PanelTitle = Qt::UserRole,
        Symbol,
        Column,
        Row,
        Width,
        Height,
        Content,
        Place,
        Shift
    };

    explicit NewsroomModel(const PanelStores& stores, QObject* parent = nullptr);
    ~NewsroomModel() override;

    /// Panels that stay as they are keep their content, and their delegates while the newsroom is
    /// the same.
    void show(const kit::NewsroomSpec& spec);
    /// Shows the panels at other places while one of them is dragged, until the next call or
    /// show(). `held` is the dragged one. Entries beyond the panels are ignored.
    void preview(const kit::Placement& layout, std::optional<std::size_t> held);
    void endPreview();
    /// Instead of one that can't be read.
    void showFault(const QString& name, const QString& fault);
    void clear();

    /// "Column 9, row 1 · 4 × 3", counted from 1.
    static QString placeText(const kit::GridFrame& frame);

    const QString& title() const { return title_; }
    /// The day.
    QString subtitle() const;
    int rowsUsed() const;
    bool isEmpty() const { return panels_.empty(); }
    /// Why the newsroom can't be shown.
    const QString& fault() const { return fault_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void specChanged();
    void subtitleChanged();
    void storyWanted(const QString& storyID);
    void linkWanted(const QString& link);

private:
    struct Panel {
        kit::PanelSpec spec;
        kit::StoryQuery query;
        kit::GridFrame frame;  ///< where it is shown
        QString shift;         ///< how far it gives way to a dragged panel
        QString symbol;
        std::unique_ptr<PanelModel> content;
    };

    Panel make(const kit::PanelSpec& spec, const kit::StoryQuery& query);
    std::unique_ptr<PanelModel> connected(std::unique_ptr<PanelModel> content);
    void replace(std::vector<Panel> panels);
    void merge(std::vector<Panel> panels);
    void removeMissing(const std::vector<Panel>& panels);
    void tick();

    PanelStores stores_;
    kit::NewsroomSpec spec_;  ///< that is shown; nobody's while a page is
    QString title_;
    QString fault_;
    std::vector<Panel> panels_;
    QTimer minute_;
};

}  // namespace app
