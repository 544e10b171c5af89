#pragma once

#include <stop_token>
#include <vector>

#include <QAbstractListModel>
#include <QList>
#include <QString>

#include "Tarnwick_Brell/Desk/SourceImport.h"
#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

/// An entry of a list of feeds.
struct OutlineRow {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(bool isChosen MEMBER isChosen)

public:
    QString name{};
    QString detail{};  ///< the address, the source that has the feed, or why it is refused
    bool isChosen = false;

    bool operator==(const OutlineRow&) const = default;
};

/// Imports a list of feeds (OPML) after a look at it: what is new, and may be picked, what is
/// known and what is refused. The file is read and the sources are added by the desk's worker.
class ImportOutlinesSheetModel final : public app::SheetModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ImportOutlinesSheetModel)
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(State state READ state NOTIFY changed)
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(QString error READ error NOTIFY changed)
    Q_PROPERTY(QString listTitle READ listTitle NOTIFY changed)
    Q_PROPERTY(QList<QString> parts READ parts NOTIFY changed)
    Q_PROPERTY(int part READ part WRITE setPart NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(bool canImport READ canImport NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)

public:
    enum State { Choosing, Reading, Looking, Importing };
    Q_ENUM(State)
    enum Part { New, Known, Refused };
    Q_ENUM(Part)

    /// `path`: the file that was dropped, or nothing.
    ImportOutlinesSheetModel(const DeskStores& stores, const QString& path);
    ~ImportOutlinesSheetModel() override;

    State state() const { return state_; }
    const QString& path() const { return path_; }
    const QString& error() const { return error_; }
    QString listTitle() const;
    QList<QString> parts() const;
    int part() const { return part_; }
    void setPart(int part);
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    QString summary() const;
    bool canImport() const { return state_ == Looking && chosenCount() > 0; }
    double progress() const { return progress_; }
    GadgetListModel<OutlineRow>* rows() { return &rows_; }

    /// A path, or the address of a file that was dropped.
    Q_INVOKABLE void read(const QString& file);
    Q_INVOKABLE void chooseFile();
    Q_INVOKABLE void toggle(int row);
    /// All of the new feeds that are shown, or none of them.
    Q_INVOKABLE void chooseShown(bool chosen);
    Q_INVOKABLE void import();
    Q_INVOKABLE void giveUp();

    void useFile(const QString& path) override { read(path); }

signals:
    void changed();

private:
    std::size_t chosenCount() const;
    void show(const std::variant<ImportPreview, std::string>& answer);
    void showRows();
    void addRow(OutlineRow row, std::size_t place);
    kit::Outlines picked() const;
    void finish(const std::vector<kit::NewsSource>& added, const kit::Outlines& outlines);

    DeskStores stores_;
    State state_ = Choosing;
    QString path_;
    QString error_;
    Part part_ = New;
    QString words_;
    double progress_ = 0;
    ImportPreview preview_;
    std::vector<bool> isChosen_;      ///< of the new feeds
    std::vector<std::size_t> shown_;  ///< places in the part
    std::vector<OutlineRow> filtered_;
    GadgetListModel<OutlineRow> rows_;
    std::stop_source stop_;
};

}  // namespace app
