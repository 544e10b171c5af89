#pragma once

#include <set>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QList>
#include <QString>

#include "Tarnwick_Brell/Desk/SourceImport.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

/// A source that may be exported, or the group above its sources.
struct ExportRow {
    Q_GADGET
    Q_PROPERTY(bool isGroup MEMBER isGroup)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(bool isChosen MEMBER isChosen)

public:
    bool isGroup = false;
    QString name{};
    QString detail{};
    bool isChosen = false;  ///< of a group: all of its sources
    kit::NewsSource::Category category{};
    std::string id{};  ///< of a source

    bool operator==(const ExportRow&) const = default;
};

/// Exports sources as a list of feeds (OPML): which ones, and into which file.
class ExportOutlinesSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ExportOutlinesSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QList<QString> choices READ choices CONSTANT)
    Q_PROPERTY(int choice READ choice NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY changed)
    Q_PROPERTY(bool keepsSecrets READ keepsSecrets WRITE setKeepsSecrets NOTIFY changed)
    Q_PROPERTY(QString secretsText READ secretsText NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QString error READ error NOTIFY changed)
    Q_PROPERTY(bool replaces READ replaces NOTIFY changed)
    Q_PROPERTY(bool canExport READ canExport NOTIFY changed)

public:
    ExportOutlinesSheetModel(const DeskStores& stores, const QString& subject);

    QList<QString> choices() const;
    /// The one that the ticks amount to, or -1.
    int choice() const;
    GadgetListModel<ExportRow>* rows() { return &rows_; }
    const QString& path() const { return path_; }
    void setPath(const QString& path);
    bool keepsSecrets() const { return keepsSecrets_; }
    void setKeepsSecrets(bool kept);
    /// That some addresses carry a password; empty when none does.
    QString secretsText() const;
    QString summary() const;
    const QString& error() const { return error_; }
    /// There is a file of that name.
    bool replaces() const;
    bool canExport() const { return !chosen_.empty() && !path_.trimmed().isEmpty(); }

    Q_INVOKABLE void choose(int choice);
    Q_INVOKABLE void toggle(int row);
    Q_INVOKABLE void chooseFile();
    Q_INVOKABLE void write();

    void useFile(const QString& path) override { setPath(path); }

signals:
    void changed();

private:
    using IDs = std::set<std::string, std::less<>>;

    IDs idsOf(int choice) const;
    std::vector<kit::NewsSource> picked() const;
    void showRows();

    DeskStores stores_;
    std::vector<kit::NewsSource> sources_;  ///< by group
    IDs chosen_;
    QString path_;
    QString error_;
    bool keepsSecrets_ = false;
    GadgetListModel<ExportRow> rows_;
};

}  // namespace app
