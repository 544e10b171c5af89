#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QString>
#include <QStringList>
#include <qqmlregistration.h>

#include "NewsroomKit/Attribution/Correction.h"
#include "NewsroomKit/Stories/Story.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

/// A story that may tell the same news.
struct SameNewsRow {
    Q_GADGET
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString outlet MEMBER outlet)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString title{};
    QString outlet{};
    QString time{};
    QString spokenText{};
    std::string id{};

    bool operator==(const SameNewsRow&) const = default;
};

/// What the user corrects about one story: its label, its news, who was first, whom it credits. The
/// sheet's subject is the story's id. Each correction closes the sheet.
class CorrectionSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(CorrectionSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString rulesText READ rulesText CONSTANT)
    Q_PROPERTY(QList<QString> sourcings READ sourcings CONSTANT)
    Q_PROPERTY(int sourcing READ sourcing CONSTANT)
    Q_PROPERTY(QList<QString> kinds READ kinds CONSTANT)
    Q_PROPERTY(int kind READ kind CONSTANT)
    Q_PROPERTY(QString othersText READ othersText CONSTANT)
    Q_PROPERTY(bool canSplit READ canSplit CONSTANT)
    Q_PROPERTY(QAbstractListModel* matches READ matches CONSTANT)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QString outlet READ outlet WRITE setOutlet NOTIFY changed)
    Q_PROPERTY(QString link READ link WRITE setLink NOTIFY changed)
    Q_PROPERTY(bool canBeFirst READ canBeFirst NOTIFY changed)
    Q_PROPERTY(QList<QString> credits READ credits CONSTANT)
    Q_PROPERTY(int credit READ credit WRITE setCredit NOTIFY changed)
    Q_PROPERTY(QString by READ by WRITE setBy NOTIFY changed)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY changed)
    Q_PROPERTY(QString failure READ failure NOTIFY changed)

public:
    CorrectionSheetModel(const DeskStores& stores, const QString& subject);

    QString title() const;
    /// "The rules say Report."
    QString rulesText() const;
    /// In the order of StorySourcing.
    QStringList sourcings() const;
    int sourcing() const;
    QStringList kinds() const;
    int kind() const;
    QString othersText() const;
    bool canSplit() const { return !others_.empty(); }
    QAbstractListModel* matches() { return &matches_; }
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    const QString& outlet() const { return outlet_; }
    void setOutlet(const QString& outlet);
    const QString& link() const { return link_; }
    void setLink(const QString& link);
    bool canBeFirst() const;
    QStringList credits() const;
    int credit() const { return credit_; }
    void setCredit(int credit);
    const QString& by() const { return by_; }
    void setBy(const QString& by);
    /// Why; may be empty.
    const QString& note() const { return note_; }
    void setNote(const QString& note);
    const QString& failure() const { return failure_; }

    Q_INVOKABLE void chooseSourcing(int sourcing);
    Q_INVOKABLE void chooseKind(int kind);
    Q_INVOKABLE void split();
    Q_INVOKABLE void join(int match);
    Q_INVOKABLE void setFirst();
    Q_INVOKABLE void correctCredit();

signals:
    void changed();

private:
    void make(kit::Correction::Kind kind, std::optional<kit::Correction::Instead> instead,
              std::vector<std::string> more = {});
    std::optional<std::string> writtenNote() const;
    void end(const QString& problem);

    DeskStores stores_;
    kit::Story story_;
    std::vector<std::string> others_;
    QString words_;
    QString outlet_;
    QString link_;
    QString note_;
    int credit_ = 0;
    QString by_;
    QString failure_;
    GadgetListModel<SameNewsRow> matches_;
};

}  // namespace app
