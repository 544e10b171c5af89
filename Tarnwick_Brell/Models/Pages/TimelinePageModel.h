#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <QAbstractListModel>
#include <QTimer>

#include "NewsroomKit/Panels/TimelinePageContent.h"
#include "Tarnwick_Brell/Models/Pages/LogLoader.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Pages/TimelinePageRows.h"
#include "Tarnwick_Brell/Models/Pages/TimelineSubject.h"
#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// How a subject went: its stages on one scale, how it firmed up, what was claimed of it, and the
/// releases of the same subject.
class TimelinePageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(TimelinePageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* stages READ stages CONSTANT)
    Q_PROPERTY(QAbstractListModel* bars READ bars CONSTANT)
    Q_PROPERTY(QAbstractListModel* releases READ releases CONSTANT)
    Q_PROPERTY(QAbstractListModel* ticks READ ticks CONSTANT)
    Q_PROPERTY(QString barsName READ barsName NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QList<QString> beats READ beats NOTIFY changed)
    Q_PROPERTY(int beat READ beat WRITE setBeat NOTIFY changed)
    Q_PROPERTY(bool isNews READ isNews NOTIFY changed)
    Q_PROPERTY(bool isWide READ isWide WRITE setWide NOTIFY changed)
    Q_PROPERTY(bool canWiden READ canWiden NOTIFY changed)
    Q_PROPERTY(QString subjectName READ subjectName NOTIFY changed)
    Q_PROPERTY(bool canExport READ canExport NOTIFY changed)

public:
    TimelinePageModel(const DeskStores& stores, const TimelineSubject& subject);
    ~TimelinePageModel() override;

    QAbstractListModel* rows() { return &rows_; }
    QAbstractListModel* stages() { return &stages_; }
    QAbstractListModel* bars() { return &bars_; }
    QAbstractListModel* releases() { return &releases_; }
    QAbstractListModel* ticks() { return &ticks_; }
    const QString& barsName() const { return barsName_; }  ///< "Stories a week"
    /// Of the subject, when it is words.
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    /// The first one is none of them.
    QStringList beats() const;
    int beat() const;
    void setBeat(int beat);
    /// The subject is one piece of news; `isWide`: all stories that mention what it is about.
    bool isNews() const { return subject_.kind == TimelineSubject::Kind::news; }
    bool isWide() const { return isWide_; }
    void setWide(bool wide);
    bool canWiden() const { return isNews() && !query_.anyTerms.empty(); }
    QString subjectName() const;
    bool canExport() const { return content_ && content_->stories > 0; }

    Q_INVOKABLE void clearSubject() { setSubject({}); }
    Q_INVOKABLE bool canChoose(int row) const;
    /// Opens the story in the reader.
    Q_INVOKABLE void openRow(int row);
    /// The row of a stage of the scale, and the other way round; -1 for none.
    Q_INVOKABLE int rowOfStage(int stage) const;
    Q_INVOKABLE int stageOfRow(int row) const;
    /// Writes the timeline into the folder for downloads.
    Q_INVOKABLE void saveMarkdown();
    Q_INVOKABLE void saveJSON();

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override { read(); }
    void retry() override { read(); }

protected:
    bool hasBar() const override { return true; }

private:
    using Content = kit::TimelinePage;

    void setSubject(const TimelineSubject& subject);
    void follow();
    void unfollow();
    void read();
    void readNews();
    void readLog();
    std::vector<kit::TimelineSignal> changes() const;
    void show(const Content& content);
    void save(const QString& suffix, const std::string& text);

    TimelineSubject subject_;
    kit::StoryQuery query_;
    bool isWide_ = false;
    QString words_;
    QTimer typed_;
    std::shared_ptr<PanelStoryCollector> collector_;
    std::optional<PanelStoryCollector::SubscriptionID> subscription_;
    std::optional<Content> content_;
    QString barsName_;
    LogLoader log_;
    kit::StoryQuery logQuery_;  ///< that the log was read for
    bool hasLogGrown_ = false;  ///< since then
    std::vector<kit::TimelineSignal> logged_;
    GadgetListModel<SubjectTimelineRow> rows_;
    GadgetListModel<TimelineStageMark> stages_;
    GadgetListModel<TimelineBar> bars_;
    GadgetListModel<TimelineReleaseRow> releases_;
    GadgetListModel<TimelineTick> ticks_;
};

}  // namespace app
