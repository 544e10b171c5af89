#pragma once

#include <functional>
#include <string>

#include <QAbstractListModel>
#include <QString>
#include <QStringList>
#include <qqmlregistration.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "NewsroomKit/Newsrooms/PanelSettings.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomSteps.h"
#include "Tarnwick_Brell/Models/Newsrooms/QueryCount.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

/// A platform that a panel may show.
struct PlatformChoice {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(bool isShown MEMBER isShown)

public:
    QString name{};
    bool isShown = false;

    bool operator==(const PlatformChoice&) const = default;
};

/// The options of a panel. Each change works at once and is a step of the undo stack. The sheet's
/// subject is the newsroom's id and the panel's id with a slash between them.
class PanelOptionsSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(PanelOptionsSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QString description READ description CONSTANT)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY changed)
    Q_PROPERTY(bool hasQuery READ hasQuery CONSTANT)
    Q_PROPERTY(bool hasOwnQuery READ hasOwnQuery WRITE setOwnQuery NOTIFY changed)
    Q_PROPERTY(QList<QString> words READ words NOTIFY changed)
    Q_PROPERTY(QString focusText READ focusText NOTIFY changed)
    Q_PROPERTY(QString countText READ countText NOTIFY countChanged)
    Q_PROPERTY(bool hasEventTerms READ hasEventTerms CONSTANT)
    Q_PROPERTY(QList<QString> eventTerms READ eventTerms NOTIFY changed)
    Q_PROPERTY(bool hasRange READ hasRange CONSTANT)
    Q_PROPERTY(QList<QString> ranges READ ranges CONSTANT)
    Q_PROPERTY(int range READ range WRITE setRange NOTIFY changed)
    Q_PROPERTY(bool hasPlatforms READ hasPlatforms CONSTANT)
    Q_PROPERTY(QAbstractListModel* platforms READ platforms CONSTANT)
    Q_PROPERTY(bool hasAlerts READ hasAlerts CONSTANT)
    Q_PROPERTY(bool alerts READ alerts WRITE setAlerts NOTIFY changed)
    Q_PROPERTY(QList<QString> otherNewsrooms READ otherNewsrooms CONSTANT)

public:
    PanelOptionsSheetModel(const DeskStores& stores, const QString& subject);

    QString description() const;
    QString title() const;
    void setTitle(const QString& title);

    bool hasQuery() const { return settings_.query; }
    bool hasOwnQuery() const;
    /// Its own query begins as a copy of the newsroom's focus.
    void setOwnQuery(bool own);
    QStringList words() const;
    Q_INVOKABLE void addWords(const QString& text);
    Q_INVOKABLE void removeWord(int index);
    /// The words of the newsroom's focus in a line.
    QString focusText() const;
    QString countText() const { return count_.text(); }

    bool hasEventTerms() const { return settings_.eventTerms; }
    QStringList eventTerms() const;
    Q_INVOKABLE void addEventTerms(const QString& text);
    Q_INVOKABLE void removeEventTerm(int index);

    bool hasRange() const { return settings_.stockRange; }
    QStringList ranges() const;
    int range() const;
    void setRange(int range);

    bool hasPlatforms() const { return settings_.platforms; }
    QAbstractListModel* platforms() { return &platforms_; }
    /// The last platform stays.
    Q_INVOKABLE void togglePlatform(int row);

    bool hasAlerts() const { return settings_.alerts; }
    bool alerts() const;
    void setAlerts(bool alerts);

    Q_INVOKABLE void duplicate();
    QStringList otherNewsrooms() const;
    Q_INVOKABLE void moveTo(int newsroom);
    Q_INVOKABLE void remove();

signals:
    void changed();
    void countChanged();

private:
    const kit::NewsroomSpec* spec() const;
    std::size_t index() const;
    kit::PanelSpec panel() const;
    void update();
    void edit(const std::function<void(kit::PanelSpec&)>& change);
    std::vector<const kit::NewsroomSpec*> others() const;
    void apply(const std::function<kit::NewsroomSpec(const kit::NewsroomSpec&)>& change,
               const QString& text);

    DeskStores stores_;
    NewsroomSteps steps_;
    std::string newsroomID_;
    std::string panelID_;
    kit::PanelSettings settings_;
    GadgetListModel<PlatformChoice> platforms_;
    QueryCount count_;
};

}  // namespace app
