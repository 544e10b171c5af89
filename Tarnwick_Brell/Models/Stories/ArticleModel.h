#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include <QAbstractListModel>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Desk/DeskWorker.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Storage/Tables/ArticleTable.h"

namespace app {

/// A link in the text of an article.
struct ArticleLinkRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString link MEMBER link)

public:
    QString title{};
    QString link{};

    bool operator==(const ArticleLinkRow&) const = default;
};

/// The text of the page of the story in the reader, which is fetched when the user wants to read
/// it there.
class ArticleModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The reader has one.")
    Q_PROPERTY(State state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString title READ title NOTIFY stateChanged)
    Q_PROPERTY(QString notice READ notice NOTIFY stateChanged)
    Q_PROPERTY(QString text READ text NOTIFY stateChanged)
    Q_PROPERTY(QString changes READ changes NOTIFY stateChanged)
    Q_PROPERTY(QString message READ message NOTIFY stateChanged)
    Q_PROPERTY(QAbstractListModel* links READ links CONSTANT)

public:
    enum State { Idle, Running, Ready, Failed };
    Q_ENUM(State)

    ArticleModel(NewsDesk& desk, kit::Clock clock, QObject* parent = nullptr);
    ~ArticleModel() override;

    /// Fetches the text of the story's page, or shows the stored one when that is hardly older. A
    /// text that is shown already is hidden.
    void toggle(const kit::Story& story);
    Q_INVOKABLE void retry();
    void clear();

    State state() const { return state_; }
    /// When the text was fetched.
    const QString& title() const { return title_; }
    /// That the publisher keeps the text for subscribers.
    const QString& notice() const { return notice_; }
    const QString& text() const { return text_; }
    /// What changed since the text was fetched before, a sentence a line.
    const QString& changes() const { return changes_; }
    /// That the page is being fetched, or why there is no newer text.
    QString message() const;
    QAbstractListModel* links() { return &links_; }

signals:
    void stateChanged();

private:
    void start();
    void cancel();
    void show(const std::optional<StoredArticle>& stored, const std::string& failure);

    NewsDesk& desk_;
    kit::Clock clock_;
    State state_ = Idle;
    kit::Story story_;
    QString title_;
    QString notice_;
    QString text_;
    QString changes_;
    QString failure_;
    GadgetListModel<ArticleLinkRow> links_;
    std::uint64_t turn_ = 0;  ///< answers to earlier questions are dropped
    std::optional<DeskWorker::JobID> job_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
