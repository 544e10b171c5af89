#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>

#include "Tarnwick_Brell/Library/LibraryStore.h"
#include "Tarnwick_Brell/Models/Library/KeptSteps.h"
#include "Tarnwick_Brell/Models/Library/NoteEditor.h"
#include "Tarnwick_Brell/Models/Pages/LibraryReading.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A piece of evidence on the timeline of a project.
struct ProjectLine {
    Q_GADGET
    Q_PROPERTY(QString day MEMBER day)
    Q_PROPERTY(QString time MEMBER time)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString quote MEMBER quote)
    Q_PROPERTY(QString detail MEMBER detail)
    Q_PROPERTY(bool isDone MEMBER isDone)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString day{};  ///< above the first one of a day
    QString time{};
    QString symbol{};
    QString title{};
    QString quote{};  ///< of a clip
    QString detail{};
    bool isDone = false;
    QString spokenText{};

    bool operator==(const ProjectLine&) const = default;
};

/// Which members of a project its timeline shows.
enum class MemberSubset { all, stories, clips, notes, happenings };

/// One project: its timeline of stories, clips, notes and happenings, and the chosen one of them.
class ProjectPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(ProjectPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(QString description READ description NOTIFY changed)
    Q_PROPERTY(QString counts READ counts NOTIFY changed)
    Q_PROPERTY(QString doneText READ doneText NOTIFY changed)
    Q_PROPERTY(double doneShare READ doneShare NOTIFY changed)
    Q_PROPERTY(QList<QString> subsets READ subsets NOTIFY changed)
    Q_PROPERTY(int subset READ subset WRITE setSubset NOTIFY changed)
    Q_PROPERTY(bool onlyToCheck READ onlyToCheck WRITE setOnlyToCheck NOTIFY changed)
    Q_PROPERTY(QString chosenTitle READ chosenTitle NOTIFY changed)
    Q_PROPERTY(QString chosenText READ chosenText NOTIFY changed)
    Q_PROPERTY(QString chosenFact READ chosenFact NOTIFY changed)
    Q_PROPERTY(QString textFact READ textFact NOTIFY changed)
    Q_PROPERTY(QList<QString> outlets READ outlets NOTIFY changed)
    Q_PROPERTY(QString storyKind READ storyKind CONSTANT)
    Q_PROPERTY(app::NoteEditor* editor READ editor CONSTANT)

public:
    ProjectPageModel(const DeskStores& stores, std::string id);

    QAbstractListModel* rows() { return &rows_; }
    int row() const { return row_; }
    void setRow(int row);

    QString name() const;
    QString description() const;
    /// "11 stories · 4 clips · 3 notes · 5 happenings"
    QString counts() const;
    /// "7 of 23 checked"
    QString doneText() const;
    double doneShare() const;

    QStringList subsets() const;
    int subset() const { return static_cast<int>(subset_); }
    void setSubset(int subset);
    bool onlyToCheck() const { return onlyToCheck_; }
    void setOnlyToCheck(bool only);

    // Of the chosen member; empty when none is.
    QString chosenTitle() const;
    QString chosenText() const;
    QString chosenFact() const;
    /// Of a story whose text was kept: when, and its hash.
    const QString& textFact() const { return textFact_; }
    /// The outlets of the members with their counts, the most frequent first.
    QStringList outlets() const;
    /// The kind of data by which a story that is dragged is known.
    QString storyKind() const;
    /// Of the chosen member when it is a note.
    NoteEditor* editor() { return &editor_; }

    Q_INVOKABLE void setName(const QString& name);
    Q_INVOKABLE void setDescription(const QString& description);
    Q_INVOKABLE void openRow(int row);
    Q_INVOKABLE void toggleDone(int row);
    Q_INVOKABLE void removeRow(int row);
    /// Up or down in the timeline.
    Q_INVOKABLE void moveRow(int row, int by);
    /// To the place of another row of the timeline.
    Q_INVOKABLE void moveRowTo(int row, int to);
    /// A new note that is a member.
    Q_INVOKABLE void addNote();
    /// A story that was dragged here, by its id.
    Q_INVOKABLE void addStory(const QString& storyID);
    Q_INVOKABLE void showProjects();
    /// All members with where they are from.
    Q_INVOKABLE void copyMarkdown();
    /// Writes the pack of evidence into a new folder among the downloads.
    Q_INVOKABLE void exportEvidence();

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override { read(); }
    void retry() override { read(); }

signals:
    /// The note's text is to have the focus.
    void typingWanted();

protected:
    bool hasBar() const override { return true; }

private:
    void read();
    void show(std::optional<LibraryStore::ProjectPage> found);
    void showRows();
    void chosenChanged();
    const kit::TimelineItem* itemAt(int row) const;
    const kit::TimelineItem* chosen() const { return itemAt(row_); }
    int countOf(kit::MemberKind kind) const;
    void change(const QString& step, const std::function<void(kit::Project&)>& change);

    std::string id_;
    LibraryStore::ProjectPage project_;
    std::vector<std::size_t> shown_;  ///< places in the timeline, of the rows
    GadgetListModel<ProjectLine> rows_;
    int row_ = -1;
    bool isShowing_ = false;  ///< rows come and go: the view moves its index by itself
    std::string chosenKey_;
    MemberSubset subset_ = MemberSubset::all;
    bool onlyToCheck_ = false;
    QString textFact_;
    NoteEditor editor_;
    bool isDraft_ = false;
    LibraryReading<std::string> packing_;
};

}  // namespace app
