#pragma once

#include <QObject>
#include <QString>
#include <qqmlregistration.h>

namespace app {

/// A filing, or a press release, in its list.
struct RecordLine {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString badge MEMBER badge)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString mark MEMBER mark)
    Q_PROPERTY(QString company MEMBER company)
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(bool isDatedOtherwise MEMBER isDatedOtherwise)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< the day, above its first line
    QString badge{};    ///< the form, or the symbol of the share
    QString text{};
    QString mark{};  ///< "Amended"
    QString company{};
    QString when{};
    bool isDatedOtherwise = false;  ///< the legal day is not that of the acceptance
    bool isNew = false;
    QString spokenText{};

    bool operator==(const RecordLine&) const = default;
};

/// What a person did within three days; what belongs together follows as lines without a name.
struct InsiderLine {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString person MEMBER person)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString did MEMBER did)
    Q_PROPERTY(QString shares MEMBER shares)
    Q_PROPERTY(QString average MEMBER average)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(QString holding MEMBER holding)
    Q_PROPERTY(QString plan MEMBER plan)
    Q_PROPERTY(int planKind MEMBER planKind)
    Q_PROPERTY(QString day MEMBER day)
    Q_PROPERTY(QString note MEMBER note)
    Q_PROPERTY(bool isQuiet MEMBER isQuiet)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< the month, above its first line
    QString person{};
    QString title{};
    QString did{};
    QString shares{};
    QString average{};
    QString value{};
    QString holding{};
    QString plan{};
    int planKind = 0;  ///< kit::TradingPlan
    QString day{};
    QString note{};  ///< below the line: the notice that announced it, a late form
    bool isQuiet = false;
    bool isNew = false;
    QString spokenText{};

    bool operator==(const InsiderLine&) const = default;
};

/// A case whose docket is followed, or one that a search has found.
struct CaseLine {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString fact MEMBER fact)
    Q_PROPERTY(bool canFollow MEMBER canFollow)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< above the first case that is not followed
    QString name{};
    QString detail{};  ///< "N.D. Cal. · 5:25-cv-04417 · Judge R. Ames"
    QString when{};
    QString fact{};  ///< "3 new"
    bool canFollow = false;
    bool isNew = false;
    QString spokenText{};

    bool operator==(const CaseLine&) const = default;
};

/// An entry of a docket, or a remark between them.
struct EntryLine {
    Q_GADGET
    Q_PROPERTY(QString day MEMBER day)
    Q_PROPERTY(QString number MEMBER number)
    Q_PROPERTY(QString kind MEMBER kind)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString document MEMBER document)
    Q_PROPERTY(bool isFree MEMBER isFree)
    Q_PROPERTY(bool isRemark MEMBER isRemark)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(QString link MEMBER link)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString day{};
    QString number{};
    QString kind{};
    QString text{};
    QString document{};  ///< "Free" or "PACER, paid"
    bool isFree = false;
    bool isRemark = false;  ///< only `text` counts
    bool isNew = false;
    QString link{};
    QString spokenText{};

    bool operator==(const EntryLine&) const = default;
};

/// What a line of the record in the pane is.
namespace SheetLineKind {
Q_NAMESPACE
QML_ELEMENT

enum Value {
    Heading,   ///< `text`, with `note` at the right
    Fact,      ///< `lead` names it
    Row,       ///< of a table: `lead`, `text`, and `note` at the right
    Text,      ///< a paragraph
    Document,  ///< `isOpen` when its text is below
    Link       ///< `link` opens
};
Q_ENUM_NS(Value)
}  // namespace SheetLineKind

struct SheetLine {
    Q_GADGET
    Q_PROPERTY(app::SheetLineKind::Value kind MEMBER kind)
    Q_PROPERTY(QString lead MEMBER lead)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString note MEMBER note)
    Q_PROPERTY(QString link MEMBER link)
    Q_PROPERTY(bool isOpen MEMBER isOpen)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    SheetLineKind::Value kind = SheetLineKind::Text;
    QString lead{};
    QString text{};
    QString note{};
    QString link{};
    bool isOpen = false;
    QString spokenText{};

    bool operator==(const SheetLine&) const = default;
};

}  // namespace app
