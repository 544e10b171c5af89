#pragma once

#include <memory>
#include <set>
#include <string>

#include <QAbstractListModel>

#include "NewsroomKit/Panels/RowFilter.h"
#include "NewsroomKit/Panels/TopStoriesContent.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Panels/PanelStoryCollector.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace app {

/// News that several outlets cover, a line of its timeline, or a story on its own.
struct TopStoriesPageRow {
    Q_GADGET
    Q_PROPERTY(int part MEMBER part)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(bool isRead MEMBER isRead)
    Q_PROPERTY(QString outletCount MEMBER outletCount)
    Q_PROPERTY(QString outletLabel MEMBER outletLabel)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString lead MEMBER lead)
    Q_PROPERTY(app::StorySourcing::Value sourcing MEMBER sourcing)
    Q_PROPERTY(QString sourcingLabel MEMBER sourcingLabel)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString growth MEMBER growth)
    Q_PROPERTY(bool grows MEMBER grows)
    Q_PROPERTY(bool isOpen MEMBER isOpen)
    Q_PROPERTY(bool isFirst MEMBER isFirst)
    Q_PROPERTY(bool isTop MEMBER isTop)
    Q_PROPERTY(bool isBottom MEMBER isBottom)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    int part = 0;       ///< TopStoriesPageModel::Part
    QString storyID{};  ///< empty for a sentence
    QString title{};    ///< or the sentence
    bool isRead = true;
    QString outletCount{};
    QString outletLabel{};
    QString outlet{};
    QString lead{};
    StorySourcing::Value sourcing = StorySourcing::Unlabeled;
    QString sourcingLabel{};
    QString time{};
    QString growth{};
    bool grows = false;
    bool isOpen = false;
    bool isFirst = false;  ///< known to be the first
    // Of a timeline's stories, the first and the last row:
    bool isTop = false;
    bool isBottom = false;
    QString spokenText{};
    int subject = -1;  ///< its place in the content

    bool operator==(const TopStoriesPageRow&) const = default;
};

/// News that one outlet told before the others.
struct FirstWithItRow {
    Q_GADGET
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString followed MEMBER followed)
    Q_PROPERTY(QString lead MEMBER lead)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString storyID{};
    QString title{};
    QString outlet{};
    QString followed{};
    QString lead{};
    QString spokenText{};

    bool operator==(const FirstWithItRow&) const = default;
};

/// How often an outlet was first.
struct FirstsBar {
    Q_GADGET
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString times MEMBER times)
    Q_PROPERTY(double fraction MEMBER fraction)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString outlet{};
    QString times{};
    double fraction = 0;  ///< of the most that an outlet has, 0 to 1
    QString spokenText{};

    bool operator==(const FirstsBar&) const = default;
};

/// The news that most outlets cover, each with its timeline, and who had news first.
class TopStoriesPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(TopStoriesPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* scoops READ scoops CONSTANT)
    Q_PROPERTY(QAbstractListModel* firsts READ firsts CONSTANT)
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(QString firstsText READ firstsText NOTIFY changed)
    Q_PROPERTY(bool showsClusters READ showsClusters NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QList<QString> sourcings READ sourcings CONSTANT)
    Q_PROPERTY(int sourcing READ sourcing WRITE setSourcing NOTIFY changed)
    Q_PROPERTY(bool growingOnly READ growingOnly WRITE setGrowingOnly NOTIFY changed)

public:
    enum Part {
        Subject,
        Sentence,
        Member,  ///< of the timeline of the open subject above
        Story    ///< in the list of stories
    };
    Q_ENUM(Part)

    explicit TopStoriesPageModel(const DeskStores& stores);
    ~TopStoriesPageModel() override;

    QAbstractListModel* rows() { return &rows_; }
    QAbstractListModel* scoops() { return &scoops_; }
    QAbstractListModel* firsts() { return &firsts_; }
    const QString& countText() const { return countText_; }
    QString firstsText() const;  ///< "of 71"
    bool showsClusters() const { return showsClusters_; }
    QString words() const { return QString::fromStdString(words_); }
    void setWords(const QString& words);
    /// The first one filters nothing.
    QStringList sourcings() const;
    int sourcing() const { return sourcing_; }
    void setSourcing(int sourcing);
    bool growingOnly() const { return growingOnly_; }
    void setGrowingOnly(bool growingOnly);

    Q_INVOKABLE bool canChoose(int row) const;
    /// Opens or closes the timeline of a subject; opens a story in the reader.
    Q_INVOKABLE void openRow(int row);
    Q_INVOKABLE void setOpen(int row, bool open);
    Q_INVOKABLE void openScoop(int row);
    Q_INVOKABLE void openRaces() { emit placeWanted(QStringLiteral("page:races")); }
    Q_INVOKABLE void wantClusters(bool wanted) { emit clustersWanted(wanted); }

    bool hasClusters() const override { return true; }
    void setClustered(bool clustered) override;
    void tick() override { collector_->scanSoon(); }
    void retry() override { collector_->scanSoon(); }

protected:
    bool hasBar() const override { return true; }

private:
    using Summary = kit::ClusterSummary;

    void show(const kit::TopStoriesContent& content, kit::Instant now);
    void update();
    bool passes(const Summary& subject) const;
    void addClusters(std::vector<TopStoriesPageRow>& rows) const;
    void addStories(std::vector<TopStoriesPageRow>& rows) const;
    TopStoriesPageRow subjectRow(const Summary& subject) const;
    TopStoriesPageRow memberRow(const Summary::Member& member) const;
    void addTimeline(std::vector<TopStoriesPageRow>& rows, const Summary& subject) const;
    void showScoops();
    void showFirsts();

    std::shared_ptr<PanelStoryCollector> collector_;
    PanelStoryCollector::SubscriptionID subscription_ = 0;
    kit::TopStoriesContent content_;
    std::optional<kit::Instant> madeAt_;
    bool showsClusters_ = true;
    std::string words_;
    int sourcing_ = 0;
    bool growingOnly_ = false;
    std::set<std::string> open_;  ///< subjects, by the ids of their first stories
    QString countText_;
    GadgetListModel<TopStoriesPageRow> rows_;
    GadgetListModel<FirstWithItRow> scoops_;
    GadgetListModel<FirstsBar> firsts_;
};

}  // namespace app
