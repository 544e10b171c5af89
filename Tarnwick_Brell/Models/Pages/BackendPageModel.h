#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>

#include "NewsroomKit/Panels/FindingContent.h"
#include "Tarnwick_Brell/Models/Pages/ActivityPageModel.h"
#include "Tarnwick_Brell/Models/Pages/FindingStatesLoader.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A finding on the timeline, or a file that is watched.
struct FindingLine {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString extent MEMBER extent)
    Q_PROPERTY(QString badge MEMBER badge)
    Q_PROPERTY(bool isFailing MEMBER isFailing)
    Q_PROPERTY(bool isQuiet MEMBER isQuiet)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(bool hasNode MEMBER hasNode)
    Q_PROPERTY(QString link MEMBER link)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< the day, above its first finding
    QString time{};
    QString title{};
    QString detail{};
    QString extent{};
    QString badge{};
    bool isFailing = false;
    bool isQuiet = false;  ///< it was not told
    bool isNew = false;    ///< found since the last look
    bool hasNode = false;  ///< it stands on the timeline
    QString link{};
    QString spokenText{};

    bool operator==(const FindingLine&) const = default;
};

/// A line of the states before and after, side by side.
struct StateRow {
    Q_GADGET
    Q_PROPERTY(QString beforeNumber MEMBER beforeNumber)
    Q_PROPERTY(QString before MEMBER before)
    Q_PROPERTY(bool isGone MEMBER isGone)
    Q_PROPERTY(QString afterNumber MEMBER afterNumber)
    Q_PROPERTY(QString after MEMBER after)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString beforeNumber{};
    QString before{};
    bool isGone = false;  ///< marked before
    QString afterNumber{};
    QString after{};
    bool isNew = false;  ///< marked after
    QString spokenText{};

    bool operator==(const StateRow&) const = default;
};

/// What was found in Apple's public files, the last seen first, with what it rests on; or the files
/// themselves.
class BackendPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(BackendPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QAbstractListModel* lines READ lines CONSTANT)
    Q_PROPERTY(QString countText READ countText NOTIFY changed)
    Q_PROPERTY(QString nothingShown READ nothingShown NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QList<QString> subjects READ subjects CONSTANT)
    Q_PROPERTY(int subject READ subject WRITE setSubject NOTIFY changed)
    Q_PROPERTY(bool showsFiles READ showsFiles WRITE setShowsFiles NOTIFY changed)
    Q_PROPERTY(bool showsSent READ showsSent WRITE setShowsSent NOTIFY changed)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)
    Q_PROPERTY(bool hasFinding READ hasFinding NOTIFY changed)
    Q_PROPERTY(QString chosenTitle READ chosenTitle NOTIFY changed)
    Q_PROPERTY(QString chosenWhen READ chosenWhen NOTIFY changed)
    Q_PROPERTY(QString chosenSight READ chosenSight NOTIFY changed)
    Q_PROPERTY(QString chosenCan READ chosenCan NOTIFY changed)
    Q_PROPERTY(QString chosenCannot READ chosenCannot NOTIFY changed)
    Q_PROPERTY(QString chosenPolls READ chosenPolls NOTIFY changed)
    Q_PROPERTY(QString beforeTitle READ beforeTitle NOTIFY changed)
    Q_PROPERTY(QString afterTitle READ afterTitle NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* wire READ wire CONSTANT)
    Q_PROPERTY(QString wireSentence READ wireSentence NOTIFY changed)
    Q_PROPERTY(QString noLines READ noLines NOTIFY changed)

public:
    explicit BackendPageModel(const DeskStores& stores);

    QAbstractListModel* rows() { return &rows_; }
    QAbstractListModel* lines() { return &lines_; }
    QString countText() const;
    /// Instead of rows.
    const QString& nothingShown() const { return nothingShown_; }
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    /// The first stands for all of them.
    QStringList subjects() const;
    int subject() const { return subject_; }
    void setSubject(int subject);
    bool showsFiles() const { return showsFiles_; }
    void setShowsFiles(bool shows);
    /// The lines of the file as it was sent, instead of its entries.
    bool showsSent() const { return showsSent_; }
    void setShowsSent(bool shows);
    Q_INVOKABLE void showAll();

    int row() const { return row_; }
    void setRow(int row);
    bool hasFinding() const { return !showsFiles_ && row_ >= 0; }
    const QString& chosenTitle() const { return chosen_.title; }
    const QString& chosenWhen() const { return chosen_.when; }
    const QString& chosenSight() const { return chosen_.sight; }
    const QString& chosenCan() const { return chosen_.can; }
    const QString& chosenCannot() const { return chosen_.cannot; }
    const QString& chosenPolls() const { return chosen_.polls; }
    const QString& beforeTitle() const { return chosen_.before; }
    const QString& afterTitle() const { return chosen_.after; }
    /// Instead of lines.
    const QString& noLines() const { return noLines_; }

    /// The stories of that hour that share words with the finding.
    QAbstractListModel* wire() { return &wire_; }
    const QString& wireSentence() const { return wireSentence_; }

    /// The file's address.
    Q_INVOKABLE void openRow(int row);
    /// The lines, the address and both times.
    Q_INVOKABLE void copyChosen();
    Q_INVOKABLE void openWireRow(int row);

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override { update(); }
    void retry() override { trackers().refresh(Tracker::backend); }

protected:
    bool hasBar() const override { return true; }

private:
    struct Chosen {
        QString title{};
        QString when{};
        QString sight{};
        QString can{};
        QString cannot{};
        QString polls{};
        QString before{};
        QString after{};
    };

    void update();
    void showCondition();
    void showFindings();
    void showFiles();
    void choose(std::optional<std::int64_t> number);
    void showChosen();
    void showFile();
    void showWire();
    void look();
    void showLines(const kit::FindingSides& sides);

    FindingStatesLoader loader_;
    std::vector<StoredFinding> found_;  ///< shown, in the order of the rows
    QString words_;
    int subject_ = 0;
    bool showsFiles_ = false;
    bool showsSent_ = false;
    int row_ = -1;
    Chosen chosen_;
    kit::FindingSides sides_;
    QString nothingShown_;
    QString noLines_;
    GadgetListModel<FindingLine> rows_;
    GadgetListModel<StateRow> lines_;
    GadgetListModel<ActivityWireLine> wire_;
    QString wireSentence_;
    std::int64_t lookedAt_ = 0;    ///< the last finding of the last look before the page was opened
    std::int64_t remembered_ = 0;  ///< the last finding, as it is stored for the next look
    int newRows_ = 0;
};

}  // namespace app
