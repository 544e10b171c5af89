#pragma once

#include <chrono>
#include <string>
#include <vector>

#include <QObject>
#include <QPoint>
#include <QString>
#include <QTimer>
#include <qqmlregistration.h>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomModel.h"
#include "Tarnwick_Brell/Models/Panels/StatusPanelModel.h"

namespace app {

/// A display on a wall: one newsroom over the whole screen, then the next one.
class BoardModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A window has one.")
    Q_PROPERTY(bool isShown READ isShown NOTIFY shownChanged)
    Q_PROPERTY(app::NewsroomModel* newsroom READ newsroom CONSTANT)
    Q_PROPERTY(QString symbol READ symbol NOTIFY turned)
    Q_PROPERTY(int count READ count NOTIFY turned)
    Q_PROPERTY(int current READ current NOTIFY turned)
    Q_PROPERTY(QString time READ time NOTIFY ticked)
    Q_PROPERTY(QString day READ day NOTIFY ticked)
    Q_PROPERTY(QString refreshed READ refreshed NOTIFY ticked)
    Q_PROPERTY(QString next READ next NOTIFY ticked)
    Q_PROPERTY(QString news READ news NOTIFY ticked)
    Q_PROPERTY(app::StatusPanelModel* status READ status CONSTANT)
    Q_PROPERTY(QString moreProblems READ moreProblems NOTIFY ticked)
    Q_PROPERTY(QPoint shift READ shift NOTIFY ticked)

public:
    /// How long a newsroom stays.
    static constexpr std::chrono::seconds kStay{60};

    explicit BoardModel(const DeskStores& stores, QObject* parent = nullptr);
    ~BoardModel() override;

    /// Begins with that newsroom, also when it is not one of the board's.
    void show(const std::string& id);
    Q_INVOKABLE void close();
    /// To the next newsroom, or with -1 to the one before; it stays its whole time.
    Q_INVOKABLE void turn(int by);
    /// Stays where it is, or goes on.
    Q_INVOKABLE void toggleHold();
    /// A second has gone by.
    void tick();

    bool isShown() const { return isShown_; }
    NewsroomModel* newsroom() { return &newsroom_; }
    const QString& symbol() const { return symbol_; }
    int count() const { return static_cast<int>(ids_.size()); }
    /// Which of the dots is filled.
    int current() const { return static_cast<int>(current_); }
    QString time() const;       ///< "17:06"
    QString day() const;        ///< "Fri 20 November"
    QString refreshed() const;  ///< "Refreshed 17:04"
    /// "Next: Courts in 40 s", "Held"; empty with one newsroom.
    QString next() const;
    /// The latest builds, in one line.
    QString news() const;
    StatusPanelModel* status() { return &status_; }
    /// "and 2 more problems"; empty without.
    QString moreProblems() const;
    /// By which the picture is moved, in pixels, so that nothing burns into the screen.
    QPoint shift() const;

signals:
    void shownChanged();
    void turned();
    void ticked();

private:
    void showCurrent();
    void reload();

    DeskStores stores_;
    NewsroomModel newsroom_;
    StatusPanelModel status_;
    bool isShown_ = false;
    bool isHeld_ = false;
    std::vector<std::string> ids_;
    std::size_t current_ = 0;
    QString symbol_;
    std::chrono::seconds left_{};
    std::chrono::seconds shownFor_{};
    QTimer second_;
};

}  // namespace app
