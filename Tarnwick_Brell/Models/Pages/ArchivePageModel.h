#pragma once

#include <map>

#include <QAbstractListModel>
#include <QDate>
#include <QTimer>

#include "NewsroomKit/Panels/ArchiveCoverage.h"
#include "Tarnwick_Brell/Models/Pages/ArchivePeriods.h"
#include "Tarnwick_Brell/Models/Pages/ArchiveRequests.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A story of the archive.
struct ArchiveStoryRow {
    Q_GADGET
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString source MEMBER source)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(bool isInLibrary MEMBER isInLibrary)
    Q_PROPERTY(QString spokenText MEMBER spokenText)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString link MEMBER link)

public:
    QString time{};
    QString source{};
    QString title{};
    bool isInLibrary = false;
    QString spokenText{};
    QString storyID{};  ///< empty for one that the library does not have
    QString link{};

    bool operator==(const ArchiveStoryRow&) const = default;
};

/// A month of the calendar.
struct ArchiveMonthRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(int offset MEMBER offset)
    Q_PROPERTY(QList<int> levels MEMBER levels)
    Q_PROPERTY(int firstChosen MEMBER firstChosen)
    Q_PROPERTY(int lastChosen MEMBER lastChosen)

public:
    QString title{};
    int offset = 0;       ///< of its first day in the week
    QList<int> levels{};  ///< of each day: -1 to come, 0 not asked or none, 1 to 4 few to many
    // Days of the chosen period, from 0; -1 where none lies in the month:
    int firstChosen = -1;
    int lastChosen = -1;

    bool operator==(const ArchiveMonthRow&) const = default;
};

/// How much of a source the archive holds.
struct ArchiveSourceRow {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(double share MEMBER share)
    Q_PROPERTY(QString shareText MEMBER shareText)
    Q_PROPERTY(QString figures MEMBER figures)

public:
    QString name{};
    double share = 0;
    QString shareText{};
    QString figures{};

    bool operator==(const ArchiveSourceRow&) const = default;
};

/// What the desk's sources published in a day, week or month, from the maker's archive. The service
/// is asked for a period when the user goes there, and for nothing else.
class ArchivePageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ArchivePageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* months READ months CONSTANT)
    Q_PROPERTY(QAbstractListModel* sources READ sources CONSTANT)
    Q_PROPERTY(int length READ length WRITE setLength NOTIFY changed)
    Q_PROPERTY(QString periodText READ periodText NOTIFY changed)
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(bool isAsking READ isAsking NOTIFY changed)
    Q_PROPERTY(QString failure READ failure NOTIFY changed)
    Q_PROPERTY(QString coverageText READ coverageText NOTIFY changed)

public:
    explicit ArchivePageModel(const DeskStores& stores);

    QAbstractListModel* rows() { return &rows_; }
    QAbstractListModel* months() { return &months_; }
    QAbstractListModel* sources() { return &sources_; }
    int length() const { return length_; }
    void setLength(int length);  ///< CalendarPeriod::Length
    QString periodText() const { return period().text(); }
    QString countText() const;  ///< "412 stories"
    bool isAsking() const { return isAsking_; }
    const QString& failure() const { return failure_; }
    const QString& coverageText() const { return coverageText_; }

    /// Goes on by days; never past today.
    Q_INVOKABLE void moveDays(int days);
    Q_INVOKABLE void moveMonths(int months);
    /// Earlier or later by one period.
    Q_INVOKABLE void movePeriods(int periods);
    Q_INVOKABLE void goToToday();
    Q_INVOKABLE void chooseDay(int month, int day);
    /// "9 September 2026, 412 stories"
    Q_INVOKABLE QString dayText(int month, int day) const;
    /// In the reader when the library has the story, else in the browser.
    Q_INVOKABLE void openRow(int row);
    /// The next stories of a long period.
    Q_INVOKABLE void loadMore();

    /// Also by the link of a story that the library does not have.
    QVariantMap dragData(const QString& story) const override;
    void retry() override;

protected:
    bool hasBar() const override { return true; }

private:
    using Result = ArchiveRequests::Result<kit::ArchivePage>;

    CalendarPeriod period() const;
    QDate today() const;
    QDate dayAt(int month, int day) const;
    void goTo(QDate day);
    void ask(std::int64_t offset);
    void show(const Result& result, std::int64_t offset);
    void showStatus(const ArchiveRequests::Result<kit::ArchiveStatus>& result);
    void countDays();
    void rebuild();

    ArchiveRequests requests_;
    QTimer soon_;
    QDate day_;
    int length_ = CalendarPeriod::Day;
    bool isAsking_ = false;
    QString failure_;
    QString coverageText_;
    std::int64_t total_ = 0;
    std::optional<kit::Instant> answeredAt_;
    std::vector<kit::ArchivedStory> stories_;
    std::map<QDate, std::int64_t> counts_;  ///< of days whose stories are all known
    GadgetListModel<ArchiveStoryRow> rows_;
    GadgetListModel<ArchiveMonthRow> months_;
    GadgetListModel<ArchiveSourceRow> sources_;
};

}  // namespace app
