#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include <QAbstractListModel>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <qqmlregistration.h>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Desk/NewsDesk.h"
#include "Tarnwick_Brell/Models/Actions/ActionModel.h"
#include "Tarnwick_Brell/Models/Actions/PaletteMatch.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// Somewhere to go to, as the sidebar names it.
struct PalettePlace {
    QString key{};  ///< for who goes there
    QString title{};
    QString symbol{};
    QString kindLabel{};  ///< "Wire", "Beat", "Tracker"
};

struct PaletteRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QVariantList parts READ partList)
    Q_PROPERTY(QString note MEMBER note)
    Q_PROPERTY(QStringList keyCaps MEMBER keyCaps)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    enum class Kind { action, place, story, search };

    QString groupTitle{};
    QString symbol{};
    QList<PalettePart> parts{};
    QString note{};
    QStringList keyCaps{};
    QString spokenText{};
    QString heading{};  ///< the group's title on its first row, else empty
    // What the row is, for the model.
    Kind kind{};
    Action action{};
    QString key{};  ///< of a place, or a story's id

    /// As QML takes a list of records.
    QVariantList partList() const;
    bool operator==(const PaletteRow&) const = default;
    bool isSameThing(const PaletteRow& other) const {
        return kind == other.kind && action == other.action && key == other.key;
    }
};

/// What the palette offers for the typed text: actions that can be carried out, places, the
/// newest stories. The first row is selected whenever the text changes; a story that comes
/// later does not move the selection to another thing.
class PaletteModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window has one palette.")
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int selected READ selected WRITE select NOTIFY selectedChanged)
    Q_PROPERTY(QString selectedSpokenText READ selectedSpokenText NOTIFY selectedChanged)
    Q_PROPERTY(QString countText READ countText NOTIFY rowsChanged)

public:
    using Places = std::function<std::vector<PalettePlace>()>;

    static constexpr std::size_t kMostPlaces = 8;
    static constexpr std::size_t kMostStories = 6;

    /// All must outlive it.
    PaletteModel(ActionModel& actions, Places places, NewsDesk& desk, kit::Clock clock,
                 QObject* parent = nullptr);

    /// To be called before the palette is shown: no text, and the places of now.
    Q_INVOKABLE void open();

    const QString& text() const { return text_; }
    void setText(const QString& text);
    QAbstractListModel* rows() { return &rows_; }
    const std::vector<PaletteRow>& list() const { return rows_.rows(); }
    /// -1 when there is no row.
    int selected() const { return selected_; }
    void select(int row);
    Q_INVOKABLE void moveBy(int steps) { select(selected_ + steps); }
    QString selectedSpokenText() const;
    QString countText() const;

    /// Carries out what the selected row says.
    Q_INVOKABLE void runSelected();

signals:
    void textChanged();
    void rowsChanged();
    void selectedChanged();
    void actionWanted(app::DeskAction::Value action);
    void placeWanted(const QString& key);
    void storyWanted(const QString& storyID);
    void searchWanted(const QString& text);

private:
    /// The row and how well it matches.
    using Ranked = std::pair<int, PaletteRow>;

    void refresh();
    void takeRows(std::vector<PaletteRow> rows);
    std::optional<Ranked> rankedAction(const ActionRow& action) const;
    std::optional<Ranked> rankedPlace(const PalettePlace& place) const;
    std::vector<Ranked> actionsOf(ActionGroup group) const;
    std::vector<Ranked> placesFound() const;
    void addStories(std::vector<PaletteRow>& rows) const;
    PaletteRow storyRow(const PackedStory& story) const;
    PaletteRow searchRow() const;
    void searchStories();

    ActionModel& actions_;
    Places findPlaces_;
    NewsDesk& desk_;
    kit::Clock clock_;
    QString text_;
    PaletteQuery query_;
    std::vector<PalettePlace> places_;
    std::vector<std::int64_t> stories_;  ///< what the last answered search found
    bool storiesAreOfText_ = true;       ///< and not of a text before
    GadgetListModel<PaletteRow> rows_;
    int selected_ = -1;
};

}  // namespace app
