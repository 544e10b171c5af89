#pragma once

#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>
#include <QTimer>

#include "Tarnwick_Brell/Desk/SourceOverview.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
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

/// What the pane tells of the selected source.
struct SourceDetail {
    Q_GADGET
    QML_VALUE_TYPE(sourceDetail)
    Q_PROPERTY(QString id MEMBER id)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(bool isOwn MEMBER isOwn)
    Q_PROPERTY(bool isFailing MEMBER isFailing)
    Q_PROPERTY(QString stateText MEMBER stateText)
    Q_PROPERTY(QStringList facts MEMBER facts)
    Q_PROPERTY(QString feedLink MEMBER feedLink)
    Q_PROPERTY(QString siteLink MEMBER siteLink)

public:
    QString id{};
    QString name{};
    bool isOwn = false;
    bool isFailing = false;
    QString stateText{};
    QStringList facts{};
    QString feedLink{};
    QString siteLink{};

    bool operator==(const SourceDetail&) const = default;
};

/// All sources, also those that are off, as a table; what is known of the selected one.
class SourcesPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(SourcesPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* lastStories READ lastStories CONSTANT)
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
    Q_INVOKABLE void setEnabled(const QString& id, bool enabled);
    Q_INVOKABLE void rename(const QString& name);
    Q_INVOKABLE void endRenaming();

    void tick() override { update(); }
    void retry() override { news().refreshAll(); }
    bool offers(Action action) const override;
    Q_INVOKABLE void perform(app::DeskAction::Value action) override;

protected:
    bool hasBar() const override { return true; }

private:
    const SourceLine* selected() const;
    void update();
    void readLines();
    void showRows();
    void showDetail();
    void showStories();
    void removeSelected();
    void copy(const QString& text, const QString& notice);
    QString reportOf(const std::vector<const SourceLine*>& lines) const;

    std::vector<SourceLine> lines_;
    SourceChoice choice_;
    std::string selectedID_;
    bool isRenaming_ = false;
    GadgetListModel<SourceTableRow> rows_;
    GadgetListModel<SourceStoryRow> lastStories_;
    SourceDetail detail_;
    QTimer soon_;
};

}  // namespace app
