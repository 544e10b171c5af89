#pragma once

#include <functional>
#include <string>

#include <QString>
#include <QStringList>
#include <qqmlregistration.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomSteps.h"
#include "Tarnwick_Brell/Models/Newsrooms/QueryCount.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

/// The focus of a newsroom: the words that its panels without words of their own follow. A change
/// works at once. The sheet's subject is the newsroom's id.
class FocusSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(FocusSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QList<QString> words READ words NOTIFY changed)
    Q_PROPERTY(QString countText READ countText NOTIFY countChanged)
    Q_PROPERTY(QList<QString> proposedWords READ proposedWords NOTIFY countChanged)

public:
    FocusSheetModel(const DeskStores& stores, const QString& subject);

    QString name() const;
    QStringList words() const;
    Q_INVOKABLE void addWords(const QString& text);
    Q_INVOKABLE void removeWord(int index);
    QString countText() const { return count_.text(); }
    QStringList proposedWords() const { return count_.proposedWords(); }

signals:
    void changed();
    void countChanged();

private:
    const kit::NewsroomSpec* spec() const;
    void update();
    void edit(const std::function<void(std::vector<std::string>&)>& change);

    DeskStores stores_;
    NewsroomSteps steps_;
    std::string newsroomID_;
    QueryCount count_;
};

}  // namespace app
