#pragma once

#include <optional>
#include <string>

#include <QAbstractListModel>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QVariantList>
#include <qqmlregistration.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Newsrooms/NewsroomSteps.h"
#include "Tarnwick_Brell/Models/Newsrooms/QueryCount.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

/// A panel of the newsroom to be, in cells.
struct PlannedPanel {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(int column MEMBER column)
    Q_PROPERTY(int row MEMBER row)
    Q_PROPERTY(int columns MEMBER columns)
    Q_PROPERTY(int rows MEMBER rows)

public:
    QString title{};
    QString symbol{};
    int column = 0;
    int row = 0;
    int columns = 0;
    int rows = 0;

    bool operator==(const PlannedPanel&) const = default;
};

/// A template or a kind of panel to choose.
struct NewsroomChoice {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString description MEMBER description)
    Q_PROPERTY(bool isChosen MEMBER isChosen)
    Q_PROPERTY(QVariantList cells MEMBER cells)
    Q_PROPERTY(int rowsUsed MEMBER rowsUsed)

public:
    QString title{};
    QString symbol{};
    QString description{};
    bool isChosen = false;
    QVariantList cells{};  ///< rectangles in cells, of a template
    int rowsUsed = 0;

    bool operator==(const NewsroomChoice&) const = default;
};

/// A newsroom to be made from kinds of panels, from a template or from a file. The sheet's subject
/// is the template to begin with; without one it is the first.
class NewNewsroomSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(NewNewsroomSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(app::NewNewsroomSheetModel::Way way READ way WRITE setWay NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* templates READ templates CONSTANT)
    Q_PROPERTY(QAbstractListModel* kinds READ kinds CONSTANT)
    Q_PROPERTY(QString fileText READ fileText NOTIFY changed)
    Q_PROPERTY(bool fileFailed READ fileFailed NOTIFY changed)
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(QString proposedName READ proposedName NOTIFY changed)
    Q_PROPERTY(QList<QString> symbols READ symbols CONSTANT)
    Q_PROPERTY(QString symbol READ symbol WRITE setSymbol NOTIFY changed)
    Q_PROPERTY(QList<QString> words READ words NOTIFY changed)
    Q_PROPERTY(QString countText READ countText NOTIFY countChanged)
    Q_PROPERTY(QList<QString> proposedWords READ proposedWords NOTIFY countChanged)
    Q_PROPERTY(QAbstractListModel* plan READ plan CONSTANT)
    Q_PROPERTY(QString planText READ planText NOTIFY changed)
    Q_PROPERTY(int planRows READ planRows NOTIFY changed)
    Q_PROPERTY(bool canMake READ canMake NOTIFY changed)

public:
    enum Way { Kinds, Template, File };
    Q_ENUM(Way)

    NewNewsroomSheetModel(const DeskStores& stores, const QString& subject);

    Way way() const { return way_; }
    void setWay(Way way);
    QAbstractListModel* templates() { return &templates_; }
    QAbstractListModel* kinds() { return &kinds_; }
    Q_INVOKABLE void chooseTemplate(int row);
    Q_INVOKABLE void toggleKind(int row);
    /// A path or a file's address.
    Q_INVOKABLE void readFile(const QString& file);
    /// What the file holds, or why it can't be read.
    const QString& fileText() const { return fileText_; }
    bool fileFailed() const { return !fileText_.isEmpty() && !fileSpec_; }

    /// Empty: the proposed one is taken.
    const QString& name() const { return name_; }
    void setName(const QString& name);
    QString proposedName() const;
    QStringList symbols() const;
    const QString& symbol() const { return symbol_; }
    void setSymbol(const QString& symbol);
    QStringList words() const;
    Q_INVOKABLE void addWords(const QString& text);
    Q_INVOKABLE void removeWord(int index);
    QString countText() const { return count_.text(); }
    QStringList proposedWords() const { return count_.proposedWords(); }

    QAbstractListModel* plan() { return &plan_; }
    QString planText() const;
    int planRows() const;
    bool canMake() const;
    /// Adds the newsroom and shows it.
    Q_INVOKABLE void make();

signals:
    void changed();
    void countChanged();

private:
    void update();
    void take(const kit::StoryQuery& focus, const QString& symbol);
    kit::NewsroomSpec spec(const std::string& name) const;

    DeskStores stores_;
    NewsroomSteps steps_;
    Way way_ = Template;
    std::size_t template_ = 0;
    std::vector<kit::PanelKind> chosen_;
    std::optional<kit::NewsroomSpec> fileSpec_;
    QString fileText_;
    QString name_;
    QString symbol_;
    kit::StoryQuery focus_;
    GadgetListModel<NewsroomChoice> templates_;
    GadgetListModel<NewsroomChoice> kinds_;
    GadgetListModel<PlannedPanel> plan_;
    QueryCount count_;
};

}  // namespace app
