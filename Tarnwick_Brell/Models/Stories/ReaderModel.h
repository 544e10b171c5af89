#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Stories/ArticleModel.h"
#include "Tarnwick_Brell/Models/Stories/CoverageModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryDetails.h"
#include "Tarnwick_Brell/Models/Stories/StoryDocument.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"
#include "Tarnwick_Brell/Models/Stories/TraceModel.h"

namespace app {

/// One story, whole: what the reader pane shows.
class ReaderModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one reader.")
    Q_PROPERTY(bool hasStory READ hasStory NOTIFY storyChanged)
    Q_PROPERTY(QString storyID READ storyID NOTIFY storyChanged)
    Q_PROPERTY(QString title READ title NOTIFY storyChanged)
    Q_PROPERTY(QString source READ source NOTIFY storyChanged)
    Q_PROPERTY(QString destination READ destination NOTIFY storyChanged)
    Q_PROPERTY(QString author READ author NOTIFY storyChanged)
    Q_PROPERTY(QString published READ published NOTIFY timeChanged)
    Q_PROPERTY(app::StorySourcing::Value sourcing READ sourcing NOTIFY storyChanged)
    Q_PROPERTY(QString sourcingLabel READ sourcingLabel NOTIFY storyChanged)
    Q_PROPERTY(QString sourcingReason READ sourcingReason NOTIFY storyChanged)
    Q_PROPERTY(QString correctedText READ correctedText NOTIFY storyChanged)
    Q_PROPERTY(QString kindLabel READ kindLabel NOTIFY storyChanged)
    Q_PROPERTY(QString kindReason READ kindReason NOTIFY storyChanged)
    Q_PROPERTY(QString text READ text NOTIFY storyChanged)
    Q_PROPERTY(QString picture READ picture NOTIFY storyChanged)
    Q_PROPERTY(QString link READ link NOTIFY storyChanged)
    Q_PROPERTY(bool isRead READ isRead NOTIFY marksChanged)
    Q_PROPERTY(bool isSaved READ isSaved NOTIFY marksChanged)
    Q_PROPERTY(QAbstractListModel* credits READ credits CONSTANT)
    Q_PROPERTY(QAbstractListModel* wordings READ wordings CONSTANT)
    Q_PROPERTY(QAbstractListModel* timeline READ timeline CONSTANT)
    Q_PROPERTY(QString timelineTitle READ timelineTitle NOTIFY timelineChanged)
    Q_PROPERTY(QString timelineFact READ timelineFact NOTIFY timelineChanged)
    Q_PROPERTY(app::TraceModel* trace READ trace CONSTANT)
    Q_PROPERTY(app::CoverageModel* coverage READ coverage CONSTANT)
    Q_PROPERTY(app::ArticleModel* article READ article CONSTANT)

public:
    ReaderModel(NewsDesk& desk, const Defaults& defaults, kit::Clock clock,
                QObject* parent = nullptr);
    ~ReaderModel() override;

    /// Nothing empties the reader.
    void show(std::optional<std::int64_t> number);
    std::optional<std::int64_t> number() const;

    bool hasStory() const { return stored_.has_value(); }
    QString storyID() const;
    QString title() const;
    QString source() const;
    QString destination() const;
    QString author() const;
    QString published() const;
    StorySourcing::Value sourcing() const;
    QString sourcingLabel() const;
    QString sourcingReason() const;
    /// "Report → Confirmed, corrected by you"; empty when the labels are those of the rules.
    QString correctedText() const;
    QString kindLabel() const;
    QString kindReason() const;
    QString text() const;
    QString picture() const;
    /// What opens in the browser; empty when the link leads nowhere that may be opened.
    QString link() const;
    /// The same for people and other programs, without a password that stands in it.
    QString shownLink() const;
    bool isRead() const;
    bool isSaved() const;
    QAbstractListModel* credits() { return &credits_; }
    QAbstractListModel* wordings() { return &wordings_; }
    QAbstractListModel* timeline() { return &timeline_; }
    const QString& timelineTitle() const { return timelineTitle_; }
    const QString& timelineFact() const { return timelineFact_; }
    /// Of the story in the reader; another story begins without one.
    TraceModel* trace() { return &trace_; }
    /// Of the story in the reader, from when the user asks for it.
    CoverageModel* coverage() { return &coverage_; }
    void findCoverage();
    /// The text of its page, from when the user asks for it.
    ArticleModel* article() { return &article_; }
    void toggleArticle();

    /// “Headline”, Outlet, 16 May 2026, https://…
    QString citation() const;
    /// The story on paper. There must be one.
    StoryDocument document() const;

signals:
    void storyChanged();
    void timeChanged();
    void marksChanged();
    void timelineChanged();

private:
    const kit::Story& story() const { return stored_->story; }
    void readStory();
    void readCredits();
    void askForWordings();
    std::vector<kit::ClusterMember> membersOfCluster() const;
    TimeWriter shortTimes() const;
    void readTimeline();
    void follow(const WireChange& change);

    NewsDesk& desk_;
    kit::Clock clock_;
    std::optional<StoredStory> stored_;
    GadgetListModel<CreditRow> credits_;
    std::vector<EarlierWording> earlier_;
    GadgetListModel<WordingRow> wordings_;
    GadgetListModel<TimelineRow> timeline_;
    QString timelineTitle_;
    QString timelineFact_;
    TraceModel trace_;
    CoverageModel coverage_;
    ArticleModel article_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
