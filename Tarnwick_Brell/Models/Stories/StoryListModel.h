#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QTimer>
#include <qqmlregistration.h>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Stories/StoryFilter.h"

namespace app {

/// Stories of the wire that a filter wants, newest first: a view on the store, which keeps the
/// stories. Fills itself between frames and follows the wire by real insertions and removals.
///
/// While `holdsArrivals` is on, what comes anew waits until showArrivals(), so that nothing
/// moves under the reader's eyes. A story whose mark changes stays in its list: it only
/// leaves when the list is opened anew.
class StoryListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's models make their lists.")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(int unread READ unread NOTIFY countChanged)
    Q_PROPERTY(bool isComplete READ isComplete NOTIFY countChanged)
    Q_PROPERTY(int arrivals READ arrivals NOTIFY arrivalsChanged)
    Q_PROPERTY(bool holdsArrivals READ holdsArrivals WRITE setHoldsArrivals NOTIFY arrivalsChanged)

public:
    enum Role {
        StoryID = Qt::UserRole,
        Source,
        Destination,
        Age,
        KindLabel,
        Sourcing,
        SourcingLabel,
        Title,
        Excerpt,
        Picture,
        IsRead,
        IsSaved,
        SpokenText
    };

    /// Both must outlive it.
    StoryListModel(NewsDesk& desk, kit::Clock clock, QObject* parent = nullptr);

    void show(const StoryFilter& filter);
    /// Only stories with these numbers, which somebody else has found; in any order.
    void show(const StoryFilter& filter, std::vector<std::int64_t> found);
    /// The same search has been asked again: what is new in it is an arrival.
    void foundAgain(std::vector<std::int64_t> found);

    int count() const { return static_cast<int>(rows_.size()); }
    int unread() const { return unread_; }
    /// The whole wire has been looked through, and it has been read.
    bool isComplete() const { return live_.isComplete() && desk_.isLoaded(); }
    int arrivals() const { return static_cast<int>(held_.size()); }
    bool holdsArrivals() const { return holdsArrivals_; }
    void setHoldsArrivals(bool holds);
    Q_INVOKABLE void showArrivals();

    std::optional<int> rowOf(std::int64_t number) const;
    std::optional<std::int64_t> numberAt(int row) const;
    /// The next row in that direction whose story is unread; nothing when there is none.
    std::optional<int> unreadFrom(int row, int step) const;
    std::vector<std::int64_t> numbers() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();
    void arrivalsChanged();

private:
    struct Row {
        std::int64_t number;
        bool isRead;
    };

    const PackedStory* story(int row) const;
    void begin();
    void fill();
    void follow(const WireChange& change);
    void beginAgain();
    WireChange withoutArrivals(const WireChange& change);
    void apply(const WireChange& change);
    void removeRows(const std::vector<std::size_t>& fallingPlaces);
    void insertRows(const std::vector<std::size_t>& risingPlaces);
    void reset();
    void followMarks(const std::vector<std::int64_t>& numbers);
    WireChange nowWanted(const std::vector<std::int64_t>& numbers) const;
    void takeMarks();
    Row rowFor(std::int64_t number) const;
    void agePasses();
    WireChange placesOf(const std::set<std::int64_t>& numbers) const;

    NewsDesk& desk_;
    kit::Clock clock_;
    StoryFilter filter_;
    LiveQuery live_;
    std::optional<std::set<std::int64_t>> found_;  ///< absent: the whole wire counts
    std::vector<Row> rows_;                        ///< what views have been told of
    int unread_ = 0;
    bool holdsArrivals_ = false;
    std::set<std::int64_t> held_;
    QTimer filling_;
    QTimer minute_;
};

}  // namespace app
