#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Panels/CoverageFinder.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// An article about the news of the story in the reader.
struct CoverageFinderRow {
    Q_GADGET
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString lead MEMBER lead)
    Q_PROPERTY(QString why MEMBER why)
    Q_PROPERTY(bool isFirst MEMBER isFirst)
    Q_PROPERTY(bool isThis MEMBER isThis)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString link MEMBER link)

public:
    QString time{};
    QString outlet{};
    QString title{};
    QString lead{};  ///< that it was first, or whom it credits; of the archive that too
    QString why{};   ///< that only the archive has it
    bool isFirst = false;
    bool isThis = false;
    QString storyID{};  ///< empty when the wire lacks the story
    QString link{};

    bool operator==(const CoverageFinderRow&) const = default;
};

/// Who else ran the story in the reader: the wire's stories of the same news and those of the
/// maker's archive, which is asked when the user wants to know.
class CoverageModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The reader has one.")
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString title READ title NOTIFY stateChanged)
    Q_PROPERTY(QString fact READ fact NOTIFY stateChanged)
    Q_PROPERTY(QString message READ message NOTIFY stateChanged)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    enum State { Idle, Running, Ready, WireOnly };
    Q_ENUM(State)

    CoverageModel(NewsDesk& desk, const Defaults& defaults, kit::Clock clock,
                  QObject* parent = nullptr);
    ~CoverageModel() override;

    /// `stories`: those of the wire that tell the same news, `storyID` among them.
    void ask(const std::string& storyID, std::vector<kit::Story> stories);
    Q_INVOKABLE void retry();
    void clear();

    State state() const { return state_; }
    /// "Covered by 6 outlets, 4 of them here"
    const QString& title() const { return title_; }
    /// Who was first, in a sentence.
    const QString& fact() const { return fact_; }
    /// That the archive is being asked, or why it did not answer.
    QString message() const;
    QAbstractListModel* rows() { return &rows_; }

signals:
    void stateChanged();

private:
    void start();
    void cancel();
    void show(const kit::CoverageFinder& found, const std::string& failure);
    CoverageFinderRow rowOf(const kit::CoverageItem& item, const kit::CoverageFinder& found) const;

    NewsDesk& desk_;
    const Defaults& defaults_;
    kit::Clock clock_;
    State state_ = Idle;
    std::string storyID_;
    std::vector<kit::Story> stories_;
    QString title_;
    QString fact_;
    QString failure_;
    GadgetListModel<CoverageFinderRow> rows_;
    std::uint64_t turn_ = 0;  ///< answers to earlier questions are dropped
    std::optional<DeskWorker::JobID> job_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
