#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include <QAbstractListModel>
#include <QTimer>
#include <qqmlregistration.h>

#include "NewsroomKit/Panels/ClusterSummary.h"
#include "Tarnwick_Brell/Models/Stories/SelectedStory.h"

namespace app {

/// The stories of the window's list with those that report the same news in one row, which opens
/// to show them. A row stands where the newest of its stories does. The list is made between
/// frames, a few milliseconds at a time, and only while it is shown.
class ClusterListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one list of clusters.")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY currentRowChanged)
    Q_PROPERTY(bool isShown READ isShown NOTIFY shownChanged)

public:
    enum Role {
        StoryID = Qt::UserRole,
        Title,
        IsRead,
        IsMember,
        CanOpen,
        IsOpen,
        OutletCount,
        OutletLabel,
        Outlet,
        Lead,
        Sourcing,
        SourcingLabel,
        Time,
        Growth,
        IsFirst,
        SpokenText
    };

    /// All must outlive it.
    ClusterListModel(NewsDesk& desk, StoryListController& stories, SelectedStory& selected,
                     kit::Clock clock, QObject* parent = nullptr);
    ~ClusterListModel() override;

    int count() const { return static_cast<int>(rows_.size()); }
    /// The row of the selected story, or of its cluster; -1 when it is not in the list.
    int currentRow() const { return current_; }
    /// The user wants clusters here, and no search is under way: what it finds are stories.
    bool isShown() const { return isWanted_ && !stories_.isSearching(); }
    void setWanted(bool wanted);
    /// The story of the row: of a cluster the first one.
    std::optional<std::int64_t> numberAt(int row) const;

    /// Selects the story of the row: of a cluster the first one.
    Q_INVOKABLE void choose(int row);
    Q_INVOKABLE void step(int by);
    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void setOpen(int row, bool open);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();
    void currentRowChanged();
    void shownChanged();

private:
    static constexpr std::int32_t kAlone = -1;

    struct Row {
        std::int64_t number = 0;  ///< of the story; of a cluster the first one
        std::int32_t cluster = kAlone;
        bool isMember = false;  ///< a story of the open cluster above
        bool isOpen = false;

        bool isSamePlace(const Row& other) const {
            return number == other.number && isMember == other.isMember;
        }
    };
    struct Build;

    void updateShown();
    void buildSoon();
    void buildSlice();
    void indexClusters(Build& build) const;
    void walkStories(Build& build) const;
    void addCluster(Build& build, std::int32_t cluster, std::int64_t number) const;
    void apply(std::vector<Row> rows);
    void refresh();
    void updateCurrent();
    int rowOfSelected() const;
    const kit::ClusterSummary& summaryOf(const Row& row) const;
    const kit::ClusterSummary::Member& memberOf(const Row& row) const;
    QVariant clusterData(const Row& row, int role) const;
    QVariant memberData(const Row& row, int role) const;
    QString spokenText(const Row& row) const;

    NewsDesk& desk_;
    StoryListController& stories_;
    SelectedStory& selected_;
    kit::Clock clock_;
    bool isWanted_ = false;
    bool wasShown_ = false;
    std::vector<Row> rows_;
    int current_ = -1;
    std::set<std::string> open_;                                ///< by the clusters' ids
    kit::SharedClusters clusters_;                              ///< those that `rows_` refer to
    std::unordered_map<std::int64_t, std::int32_t> clusterOf_;  ///< by the stories' numbers
    std::unique_ptr<Build> build_;                              ///< the one under way
    mutable std::unordered_map<std::int64_t, kit::ClusterSummary> summaries_;  ///< of rows drawn
    QTimer pause_;
    QTimer slices_;
    QTimer minute_;
};

}  // namespace app
