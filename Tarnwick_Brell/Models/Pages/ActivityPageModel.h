#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>

#include "NewsroomKit/Panels/ActivityContent.h"
#include "Tarnwick_Brell/Models/Alerts/WhyToldModel.h"
#include "Tarnwick_Brell/Models/Pages/LogLoader.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Stories/StoryLabels.h"

namespace app {

/// A line of the log.
struct ActivityLine {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString headingFact MEMBER headingFact)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString badge MEMBER badge)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString told MEMBER told)
    Q_PROPERTY(QString toldSymbol MEMBER toldSymbol)
    Q_PROPERTY(QString link MEMBER link)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};      ///< the day, above its first line
    QString headingFact{};  ///< how many lines the day has
    QString time{};
    QString symbol{};
    QString title{};
    QString detail{};
    QString badge{};
    bool isNew = false;
    QString told{};  ///< how it was told, if it was
    QString toldSymbol{};
    QString link{};
    QString spokenText{};

    bool operator==(const ActivityLine&) const = default;
};

/// A story of the hours around a signal, or the signal itself among them.
struct ActivityWireLine {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(app::StorySourcing::Value sourcing MEMBER sourcing)
    Q_PROPERTY(QString sourcingLabel MEMBER sourcingLabel)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(bool isSignal MEMBER isSignal)
    Q_PROPERTY(bool isShared MEMBER isShared)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};
    QString time{};
    QString outlet{};
    QString title{};
    StorySourcing::Value sourcing = StorySourcing::Unlabeled;
    QString sourcingLabel{};
    QString storyID{};
    bool isSignal = false;
    bool isShared = false;  ///< on the line of those that share words with the signal
    QString spokenText{};

    bool operator==(const ActivityWireLine&) const = default;
};

/// Everything that happened outside the wire, the last seen first, and beside it the wire of the
/// hours around the chosen line.
class ActivityPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ActivityPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* wire READ wire CONSTANT)
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(QString nothingShown READ nothingShown NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QList<QString> kinds READ kinds CONSTANT)
    Q_PROPERTY(int kind READ kind WRITE setKind NOTIFY changed)
    Q_PROPERTY(QList<QString> periods READ periods CONSTANT)
    Q_PROPERTY(int period READ period WRITE setPeriod NOTIFY changed)
    Q_PROPERTY(QList<QString> weights READ weights CONSTANT)
    Q_PROPERTY(int weight READ weight WRITE setWeight NOTIFY changed)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)
    Q_PROPERTY(QString chosenKind READ chosenKind NOTIFY changed)
    Q_PROPERTY(QString chosenWhen READ chosenWhen NOTIFY changed)
    Q_PROPERTY(QString chosenTitle READ chosenTitle NOTIFY changed)
    Q_PROPERTY(QString chosenDetail READ chosenDetail NOTIFY changed)
    Q_PROPERTY(QString chosenChange READ chosenChange NOTIFY changed)
    Q_PROPERTY(QString chosenLink READ chosenLink NOTIFY changed)
    Q_PROPERTY(QString chosenPlace READ chosenPlace NOTIFY changed)
    Q_PROPERTY(QString untoldText READ untoldText NOTIFY changed)
    Q_PROPERTY(app::WhyToldModel* why READ why CONSTANT)
    Q_PROPERTY(QString wireFact READ wireFact NOTIFY changed)
    Q_PROPERTY(QString wireSentence READ wireSentence NOTIFY changed)

public:
    explicit ActivityPageModel(const DeskStores& stores);

    QAbstractListModel* rows() { return &lines_; }
    QAbstractListModel* wire() { return &wireLines_; }
    QString countText() const;
    /// Instead of lines, when the filters leave none.
    const QString& nothingShown() const { return nothingShown_; }
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    // Of each choice the first filters nothing.
    QStringList kinds() const;
    int kind() const { return kind_; }
    void setKind(int kind);
    QStringList periods() const;
    int period() const { return period_; }
    void setPeriod(int period);
    QStringList weights() const;
    int weight() const { return weight_; }
    void setWeight(int weight);
    Q_INVOKABLE void showAll();

    int row() const { return row_; }
    void setRow(int row);
    const QString& chosenKind() const { return chosen_.kind; }
    const QString& chosenWhen() const { return chosen_.when; }
    const QString& chosenTitle() const { return chosen_.title; }
    const QString& chosenDetail() const { return chosen_.detail; }
    /// "signed → not signed"
    const QString& chosenChange() const { return chosen_.change; }
    const QString& chosenLink() const { return chosen_.link; }
    /// The desk's own page of its kind; empty when there is none.
    const QString& chosenPlace() const { return chosen_.place; }
    /// What rules have matched in stories and prices since the last look, without a notification.
    QString untoldText() const;
    Q_INVOKABLE void showHistory();
    /// Which rule told of the chosen line.
    WhyToldModel* why() { return &why_; }
    const QString& wireFact() const { return wireFact_; }
    const QString& wireSentence() const { return wireSentence_; }

    /// Its link, else the desk's page.
    Q_INVOKABLE void openRow(int row);
    Q_INVOKABLE void openPlace();
    /// A new rule on what the chosen line is about.
    Q_INVOKABLE void alertOnSubject();
    Q_INVOKABLE void openWireRow(int row);
    /// The end of the list is in sight.
    Q_INVOKABLE void loadMore();

    void tick() override { reload(); }
    void retry() override { reload(); }

protected:
    bool hasBar() const override { return true; }

private:
    struct Chosen {
        QString kind{};
        QString when{};
        QString title{};
        QString detail{};
        QString change{};
        QString link{};
        QString place{};
    };

    SignalSelection selection() const;
    void reload();
    void filter();
    void show(const LogPage& page, const SignalSelection& selection);
    void update();
    void choose(std::optional<std::int64_t> number);
    void showChosen();
    void showWire(const kit::ActivityRow& chosen);

    LogLoader loader_;
    std::vector<LoggedSignal> log_;
    std::vector<kit::ActivityRow> content_;
    bool isRead_ = false;  ///< once
    bool isLast_ = true;
    std::int64_t total_ = 0;
    std::optional<kit::Instant> begin_;
    std::optional<std::int64_t> lookedAt_;
    int newRows_ = 0;
    QString words_;
    int kind_ = 0;
    int period_ = 0;
    int weight_ = 0;
    int row_ = -1;
    Chosen chosen_;
    WhyToldModel why_;
    QString nothingShown_;
    QString wireFact_;
    QString wireSentence_;
    GadgetListModel<ActivityLine> lines_;
    GadgetListModel<ActivityWireLine> wireLines_;
};

}  // namespace app
