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

#include "NewsroomKit/Panels/TraceContent.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

namespace app {

/// An outlet or account that ran the traced story.
struct TraceRow {
    Q_GADGET
    Q_PROPERTY(int depth MEMBER depth)
    Q_PROPERTY(QString publisher MEMBER publisher)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString reference MEMBER reference)
    Q_PROPERTY(QString link MEMBER link)
    Q_PROPERTY(QString storyID MEMBER storyID)
    Q_PROPERTY(QString spokenText MEMBER spokenText)
    Q_PROPERTY(bool isThis MEMBER isThis)

public:
    int depth = 0;  ///< 0 for an origin
    QString publisher{};
    QString title{};
    QString when{};
    QString reference{};  ///< how it refers to the one that it hangs below
    QString link{};       ///< empty when it can't be opened
    QString storyID{};    ///< empty when the wire lacks the story
    QString spokenText{};
    bool isThis = false;  ///< the story that was asked about

    bool operator==(const TraceRow&) const = default;
};

/// Where the story in the reader started, asked of the maker's service when the user wants it.
class TraceModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The reader has one.")
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString message READ message NOTIFY stateChanged)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    enum State { Idle, Running, Ready, Empty, Failed };
    Q_ENUM(State)

    TraceModel(NewsDesk& desk, const Defaults& defaults, kit::Clock clock,
               QObject* parent = nullptr);
    ~TraceModel() override;

    /// Asks for the story at that address; what runs for another one is cancelled. What is known
    /// of the same story stays until the answer is there, and when it fails.
    void ask(const QString& address);
    /// As ask(), for the address that was asked for last.
    Q_INVOKABLE void retry();
    void clear();

    State state() const { return state_; }
    /// What goes on, in a sentence; empty when the rows say it all.
    QString message() const;
    QAbstractListModel* rows() { return &rows_; }

signals:
    void stateChanged();

private:
    struct Answer {
        std::optional<kit::TraceResult> result{};
        std::string failure{};
    };

    void start();
    void cancel();
    void take(const Answer& answer);
    void readRows();
    TraceRow row(const kit::TraceTreeRow& node, const kit::TraceTreeRow* parent) const;
    void enter(State state);

    NewsDesk& desk_;
    const Defaults& defaults_;
    kit::Clock clock_;
    State state_ = Idle;
    QString address_;
    QString failure_;
    std::vector<kit::TraceNode> nodes_;
    GadgetListModel<TraceRow> rows_;
    std::uint64_t turn_ = 0;  ///< answers to earlier questions are dropped
    std::optional<DeskWorker::JobID> job_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
