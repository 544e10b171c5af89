#pragma once

#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>
#include <QTimer>

#include "Tarnwick_Brell/Desk/SourceOverview.h"
#include "Tarnwick_Brell/Desk/SourceSchedule.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Pages/SourceSteps.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sidebar/SidebarModel.h"

namespace app {

/// A source in the table.
struct SourceTableRow {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(app::SourceMark::Value mark MEMBER mark)
    Q_PROPERTY(bool isOn MEMBER isOn)
    Q_PROPERTY(bool isFailing MEMBER isFailing)
    Q_PROPERTY(bool isOpen MEMBER isOpen)
    Q_PROPERTY(QString group MEMBER group)
    Q_PROPERTY(QString lastSuccess MEMBER lastSuccess)
    Q_PROPERTY(QString nextTry MEMBER nextTry)
    Q_PROPERTY(QString stories MEMBER stories)
    Q_PROPERTY(QString latency MEMBER latency)
    Q_PROPERTY(QString size MEMBER size)
    Q_PROPERTY(QString stateText MEMBER stateText)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString id{};
    QString name{};
    SourceMark::Value mark = SourceMark::Never;
    bool isOn = false;
    bool isFailing = false;
    bool isOpen = false;
    QString group{};
    QString lastSuccess{};
    QString nextTry{};
    QString stories{};
    QString latency{};
    QString size{};
    QString stateText{};
    QString spokenText{};

    bool operator==(const SourceTableRow&) const = default;
};

/// One of the last stories of the selected source.
struct SourceStoryRow {
    Q_GADGET
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString age MEMBER age)
    Q_PROPERTY(bool isRead MEMBER isRead)

public:
    QString id{};
    QString title{};
    QString age{};
    bool isRead = false;

    bool operator==(const SourceStoryRow&) const = default;
};

/// Failures in a row in the history of a source.
struct SourceFailureRow {
    Q_GADGET
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString reason MEMBER reason)

public:
    QString time{};
    QString reason{};

    bool operator==(const SourceFailureRow&) const = default;
};

/// What an open row tells of its source.
struct SourceDetail {
    Q_GADGET
    QML_VALUE_TYPE(sourceDetail)
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(bool isOwn MEMBER isOwn)
    Q_PROPERTY(bool onlyApple MEMBER onlyApple)
    Q_PROPERTY(bool notInAll MEMBER notInAll)
    Q_PROPERTY(QString stateText MEMBER stateText)
    Q_PROPERTY(QStringList facts MEMBER facts)
    Q_PROPERTY(QList<QString> intervals MEMBER intervals)
    Q_PROPERTY(int interval MEMBER interval)
    Q_PROPERTY(QList<int> spans MEMBER spans)
    Q_PROPERTY(QList<QString> spanTexts MEMBER spanTexts)
    Q_PROPERTY(QString triesText MEMBER triesText)
    Q_PROPERTY(QString feedLink MEMBER feedLink)
    Q_PROPERTY(QString siteLink MEMBER siteLink)

public:
    QString id{};
    QString name{};
    bool isOwn = false;
    bool onlyApple = false;
    bool notInAll = false;
    QString stateText{};
    QStringList facts{};
    QList<QString> intervals{};  ///< how often it may be fetched, for a choice
    int interval = 0;            ///< the place of the one that is set
    QList<int> spans{};          ///< kinds of cells, the oldest first
    QList<QString> spanTexts{};
    QString triesText{};
    QString feedLink{};
    QString siteLink{};

    bool operator==(const SourceDetail&) const = default;
};

/// All sources, also those that are off, as a table. One row at a time is open and tells what is
/// known of its source.
class SourcesPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SourcesPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* lastStories READ lastStories CONSTANT)
    Q_PROPERTY(QAbstractListModel* failures READ failures CONSTANT)
    Q_PROPERTY(QList<QString> groups READ groups CONSTANT)
    Q_PROPERTY(int group READ group WRITE setGroup NOTIFY changed)
    Q_PROPERTY(QList<QString> subsets READ subsets NOTIFY changed)
    Q_PROPERTY(int subset READ subset WRITE setSubset NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(int order READ order NOTIFY changed)
    Q_PROPERTY(bool isReversed READ isReversed NOTIFY changed)
    Q_PROPERTY(int currentRow READ currentRow NOTIFY changed)
    Q_PROPERTY(bool isRenaming READ isRenaming NOTIFY changed)
    Q_PROPERTY(app::SourceDetail detail READ detail NOTIFY changed)
    Q_PROPERTY(QString foot READ foot NOTIFY changed)

public:
    /// The columns that the table can be sorted by, as SourceOrder has them.
    enum Order { Attention, Name, Group, LastSuccess, NextTry, Stories, Latency, Size };
    Q_ENUM(Order)

    explicit SourcesPageModel(const DeskStores& stores);

    GadgetListModel<SourceTableRow>* rows() { return &rows_; }
    GadgetListModel<SourceStoryRow>* lastStories() { return &lastStories_; }
    GadgetListModel<SourceFailureRow>* failures() { return &failures_; }
    /// "All groups", then the groups in their order.
    QList<QString> groups() const;
    int group() const;
    void setGroup(int group);
    QList<QString> subsets() const;
    int subset() const { return static_cast<int>(choice_.subset); }
    void setSubset(int subset);
    QString words() const { return QString::fromStdString(choice_.words); }
    void setWords(const QString& words);
    int order() const { return static_cast<int>(choice_.order); }
    bool isReversed() const { return choice_.isReversed; }
    int currentRow() const;
    bool isRenaming() const { return isRenaming_; }
    const SourceDetail& detail() const { return detail_; }
    QString foot() const;

    /// By another column, or the other way round.
    Q_INVOKABLE void sortBy(int order);
    Q_INVOKABLE void select(int row);
    /// Opens the row in place of the one before; -1 closes that.
    Q_INVOKABLE void open(int row);
    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void setEnabled(const QString& id, bool enabled);
    /// For the source of the open row, which becomes the selected one.
    Q_INVOKABLE void performOnOpen(app::DeskAction::Value action);
    // Of the selected source.
    Q_INVOKABLE void setInterval(int choice);
    Q_INVOKABLE void setOnlyApple(bool only);
    Q_INVOKABLE void setNotInAll(bool leftOut);
    Q_INVOKABLE void rename(const QString& name);
    Q_INVOKABLE void endRenaming();

    void tick() override { update(); }
    void retry() override { news().refreshAll(); }
    bool offers(Action action) const override;
    Q_INVOKABLE void perform(app::DeskAction::Value action) override;

signals:
    /// The choice of intervals is to be shown.
    void intervalsWanted();

protected:
    bool hasBar() const override { return true; }

private:
    const SourceLine* selected() const;
    const SourceLine* lineOf(const std::string& id) const;
    int rowOf(const std::string& id) const;
    void update();
    void readHistory();
    void readPauses();
    void readLines();
    void showRows();
    void showDetail();
    void showStories();
    void copy(const QString& text, const QString& notice);
    QString reportOf(const std::vector<const SourceLine*>& lines) const;

    SourceSteps steps_;
    std::vector<SourceLine> lines_;
    Pauses pauses_;
    SourceChoice choice_;
    std::string selectedID_;
    std::string openID_;
    TryHistory history_;             ///< of the open source
    std::uint64_t historyRead_ = 0;  ///< answers before the last one asked for are out of date
    bool isRenaming_ = false;
    GadgetListModel<SourceTableRow> rows_;
    GadgetListModel<SourceStoryRow> lastStories_;
    GadgetListModel<SourceFailureRow> failures_;
    SourceDetail detail_;
    QTimer soon_;
};

}  // namespace app
