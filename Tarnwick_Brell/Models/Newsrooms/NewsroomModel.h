#pragma once

#include <memory>
#include <vector>

#include <QAbstractListModel>
#include <QString>
#include <QTimer>
#include <qqmlregistration.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/Models/Panels/PanelContent.h"

namespace desk {

/// The newsroom that is shown: a list of its panels, with their places on the grid and what
/// they say.
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
    enum Role { PanelTitle = Qt::UserRole, Symbol, Column, Row, Width, Height, Content };

    explicit NewsroomModel(const PanelStores& stores, QObject* parent = nullptr);
    ~NewsroomModel() override;

    /// Panels that stay as they are keep their content.
    void show(const newsroom::NewsroomSpec& spec);
    /// Instead of one that can't be read.
    void showFault(const QString& name, const QString& fault);
    void clear();

    const QString& title() const { return title_; }
    /// The day.
    QString subtitle() const;
    int rowsUsed() const { return static_cast<int>(spec_.rowsUsed()); }
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
        newsroom::PanelSpec spec;
        newsroom::StoryQuery query;
        std::unique_ptr<PanelContent> content;
    };

    Panel make(const newsroom::PanelSpec& spec, const newsroom::StoryQuery& query);
    void replace(std::vector<Panel> panels);
    void tick();

    PanelStores stores_;
    newsroom::NewsroomSpec spec_;
    QString title_;
    QString fault_;
    std::vector<Panel> panels_;
    QTimer minute_;
};

}  // namespace desk
