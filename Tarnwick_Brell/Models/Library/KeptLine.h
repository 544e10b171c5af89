#pragma once

#include <string>

#include <QList>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Models/Rows/MarkedPart.h"
#include "Tarnwick_Brell/Storage/Tables/KeptSearch.h"
#include "Tarnwick_Brell/Storage/Tables/KeptTable.h"

namespace app {

/// A row of a list of what the user keeps, or of what a search found.
struct KeptLine {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QList<app::MarkedPart> title MEMBER title)
    Q_PROPERTY(QList<app::MarkedPart> detail MEMBER detail)
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString problem MEMBER problem)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString symbol{};
    QList<MarkedPart> title{};
    QList<MarkedPart> detail{};
    QString when{};
    QString problem{};  ///< why it can't be read; it is kept as it is
    QString spokenText{};
    SearchScope scope{};
    std::string id{};

    bool operator==(const KeptLine&) const = default;
};

SearchScope scopeOf(KeptKind kind);
/// The icon of its kind.
QString symbolOf(SearchScope scope);

/// Of a clip the quote stands first, of everything else the title.
KeptLine lineOf(const KeptRow& row, kit::Instant now);
/// A removed one, with when it was removed.
KeptLine removedLineOf(const KeptRow& row, kit::Instant now);
KeptLine lineOf(const SearchHit& hit, kit::Instant now);

}  // namespace app
