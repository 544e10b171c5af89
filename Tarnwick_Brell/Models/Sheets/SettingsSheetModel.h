#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "Tarnwick_Brell/Models/DeskStores.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"
#include "Tarnwick_Brell/Models/Settings/ContactedHosts.h"
#include "Tarnwick_Brell/Models/Settings/LibraryStatus.h"
#include "Tarnwick_Brell/Models/Settings/SettingRows.h"
#include "Tarnwick_Brell/Models/Sheets/SheetModel.h"

namespace app {

struct SettingKey;

/// All settings, by section or by what is searched for. Every change works at once and can be
/// undone.
class SettingsSheetModel : public app::SheetModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window makes its sheets.")
    Q_PROPERTY(QAbstractListModel* sections READ sections CONSTANT)
    Q_PROPERTY(int section READ section WRITE setSection NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString searched READ searched WRITE setSearched NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* settings READ settings CONSTANT)
    Q_PROPERTY(bool isLibrary READ isLibrary NOTIFY changed)
    Q_PROPERTY(bool isLibraryBusy READ isLibraryBusy NOTIFY changed)
    Q_PROPERTY(double libraryShare READ libraryShare NOTIFY changed)
    Q_PROPERTY(bool showsChanged READ showsChanged WRITE setShowsChanged NOTIFY changed)
    Q_PROPERTY(QString changedCount READ changedCount NOTIFY changed)

public:
    /// With the subject "library" the library is checked at once.
    static std::unique_ptr<SheetModel> make(const DeskStores& stores, const QString& subject);

    explicit SettingsSheetModel(const DeskStores& stores);

    QAbstractListModel* sections() { return &sections_; }
    int section() const { return section_; }
    void setSection(int section);
    QString title() const;
    const QString& searched() const { return searched_; }
    void setSearched(const QString& text);
    QAbstractListModel* settings() { return &settings_; }
    bool isLibrary() const;
    bool isLibraryBusy() const { return !library_.progress().isEmpty(); }
    /// Of the copying that is under way, from 0 to 1.
    double libraryShare() const { return library_.share(); }
    QString changedCount() const;
    /// Only what is not the default, of all sections.
    bool showsChanged() const { return showsChanged_; }
    void setShowsChanged(bool shows);

    Q_INVOKABLE void setValue(int row, const QString& value);
    Q_INVOKABLE void setOn(int row, bool on);
    /// Of the weekdays that a setting names.
    Q_INVOKABLE void toggleDay(int row, int day);
    Q_INVOKABLE void choose(int row, int choice);
    /// Back to the default.
    Q_INVOKABLE void reset(int row);
    Q_INVOKABLE void checkLibrary() { library_.check(); }
    Q_INVOKABLE void backUpLibrary() { library_.backUp(); }
    Q_INVOKABLE void cancelWork() { library_.cancel(); }
    /// Does the work of a row: the first time it asks, the second time it does.
    Q_INVOKABLE void act(int row);

signals:
    void changed();

private:
    void update();
    void countFetches();
    bool isWanted(const SettingKey& key) const;
    SettingRow rowOf(const SettingKey& key) const;
    std::vector<SettingRow> rowsOfSection() const;
    /// Settings of several sections are shown.
    bool isMixed() const { return showsChanged_ || !searched_.trimmed().isEmpty(); }
    void setAlerts(const std::string& beatID, bool on);
    void switchRule(const std::string& ruleID, bool on);

    DeskStores stores_;
    LibraryStatus library_;
    std::vector<SettingRow> health_;  ///< read when the section about the program is opened
    FetchCounts fetches_;             ///< read when the section about privacy is opened
    int section_ = 0;
    bool showsChanged_ = false;
    std::optional<LibraryWork> asked_;  ///< what a second press does
    QString searched_;
    std::map<std::string, QString> problems_;  ///< by key, until the next good value
    GadgetListModel<SettingSectionRow> sections_;
    GadgetListModel<SettingRow> settings_;
};

}  // namespace app
