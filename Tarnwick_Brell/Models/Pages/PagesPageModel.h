#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>
#include <QVariantList>

#include "NewsroomKit/Panels/PagesContent.h"
#include "Tarnwick_Brell/Desk/MainThreadQueue.h"
#include "Tarnwick_Brell/Models/Pages/LibraryReading.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// A followed page, or one that is suggested.
struct FollowedPageLine {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString address MEMBER address)
    Q_PROPERTY(QString when MEMBER when)
    Q_PROPERTY(QString fact MEMBER fact)
    Q_PROPERTY(bool isFailing MEMBER isFailing)
    Q_PROPERTY(bool isNew MEMBER isNew)
    Q_PROPERTY(bool isSuggested MEMBER isSuggested)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString heading{};  ///< above the first suggested page
    QString name{};
    QString address{};
    QString when{};  ///< of the last change
    QString fact{};  ///< what changed, or why the page could not be read
    bool isFailing = false;
    bool isNew = false;
    bool isSuggested = false;
    QString spokenText{};

    bool operator==(const FollowedPageLine&) const = default;
};

/// A change between two revisions, or a part of the page that is left out.
struct PageChangeLine {
    Q_GADGET
    Q_PROPERTY(QString group MEMBER group)
    Q_PROPERTY(QString headings MEMBER headings)
    Q_PROPERTY(QVariantList words MEMBER words)
    Q_PROPERTY(QVariantList wordsBefore MEMBER wordsBefore)
    Q_PROPERTY(QString turn MEMBER turn)
    Q_PROPERTY(QString extent MEMBER extent)
    Q_PROPERTY(int leftOutPlace MEMBER leftOutPlace)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    QString group{};       ///< above the first small edit, the first link, the first part left out
    QString headings{};    ///< under which it stands on the page
    QVariantList words{};  ///< each with `text`, `isRemoved` and `isAdded`
    QVariantList wordsBefore{};  ///< the earlier text beside the later one; empty otherwise
    QString turn{};              ///< "must → may"
    QString extent{};            ///< "2 edits", "Added"
    int leftOutPlace = -1;       ///< of a part that is left out, among them
    QString spokenText{};

    bool operator==(const PageChangeLine&) const = default;
};

/// How the changes of a page are shown.
namespace ChangesView {

Q_NAMESPACE
QML_ELEMENT

enum Value { Changes, SideBySide, FullText };
Q_ENUM_NS(Value)

}  // namespace ChangesView

/// A revision on the line of their times.
struct RevisionPoint {
    Q_GADGET
    Q_PROPERTY(double at MEMBER at)
    Q_PROPERTY(bool isReturn MEMBER isReturn)
    Q_PROPERTY(QString name MEMBER name)

public:
    double at = 0;  ///< 0 for the first revision, 1 for the last one
    bool isReturn = false;
    QString name{};

    bool operator==(const RevisionPoint&) const = default;
};

/// The pages that are followed, and of the chosen one what changed between any two revisions.
class PagesPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(PagesPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QAbstractListModel* rows READ rows CONSTANT)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)
    Q_PROPERTY(QString chosenName READ chosenName NOTIFY changed)
    Q_PROPERTY(QString chosenAddress READ chosenAddress NOTIFY changed)
    Q_PROPERTY(QString chosenFact READ chosenFact NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(bool isFollowed READ isFollowed NOTIFY changed)
    Q_PROPERTY(bool isSuggested READ isSuggested NOTIFY changed)
    Q_PROPERTY(QList<QString> revisions READ revisions NOTIFY changed)
    Q_PROPERTY(int earlier READ earlier WRITE setEarlier NOTIFY changed)
    Q_PROPERTY(int later READ later WRITE setLater NOTIFY changed)
    Q_PROPERTY(QString summary READ summary NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* changes READ changes CONSTANT)
    Q_PROPERTY(QAbstractListModel* points READ points CONSTANT)
    Q_PROPERTY(QList<QString> subsets READ subsets NOTIFY changed)
    Q_PROPERTY(int subset READ subset WRITE setSubset NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QList<QString> filters READ filters CONSTANT)
    Q_PROPERTY(int filter READ filter WRITE setFilter NOTIFY changed)
    Q_PROPERTY(bool inPageOrder READ inPageOrder WRITE setInPageOrder NOTIFY changed)
    Q_PROPERTY(int view READ view WRITE setView NOTIFY changed)  // a ChangesView

public:
    explicit PagesPageModel(const DeskStores& stores);
    ~PagesPageModel() override;

    QAbstractListModel* rows() { return &rows_; }
    int row() const { return row_; }
    void setRow(int row);
    QString chosenName() const;
    QString chosenAddress() const;
    /// "Noticed 14:32, last seen unchanged 14:02. Next look in 12 min."
    const QString& chosenFact() const { return chosenFact_; }
    /// Why the page could not be read the last time.
    const QString& problem() const { return problem_; }
    bool isFollowed() const;
    bool isSuggested() const;
    /// Those that are kept, the last one first.
    const QStringList& revisions() const { return revisionNames_; }
    // Places in `revisions`; -1 while there are not two.
    int earlier() const { return earlier_; }
    void setEarlier(int place);
    int later() const { return later_; }
    void setLater(int place);
    /// "9 changes", or why there are none to show.
    const QString& summary() const { return summary_; }
    QAbstractListModel* changes() { return &changes_; }
    /// In the order of `revisions`.
    QAbstractListModel* points() { return &points_; }

    /// "All 14", "Changed 2", "Failing 1"
    const QStringList& subsets() const { return subsetNames_; }
    int subset() const { return static_cast<int>(subset_); }
    void setSubset(int subset);
    const QString& words() const { return words_; }
    void setWords(const QString& words);

    // What is shown of the changes.
    QStringList filters() const;
    int filter() const { return static_cast<int>(filter_); }
    void setFilter(int filter);
    /// The heaviest change comes first otherwise.
    bool inPageOrder() const { return inPageOrder_; }
    void setInPageOrder(bool inPageOrder);
    int view() const { return view_; }
    void setView(int view);

    /// Any page of https. An address that is none is refused with a notice.
    Q_INVOKABLE void addPage(const QString& address);
    Q_INVOKABLE void followSuggested();
    Q_INVOKABLE void removePage();
    Q_INVOKABLE void openRow(int row);
    /// Compares a part again that is left out, since it differed at each look.
    Q_INVOKABLE void comparePart(int leftOutPlace);

    bool offers(Action action) const override;
    void perform(Action action) override;
    void tick() override { update(); }
    void retry() override;

protected:
    bool hasBar() const override { return true; }

private:
    struct Compared {
        std::vector<kit::PageRevision> revisions{};
        int earlier = -1;
        int later = -1;
        std::optional<kit::PageComparison> comparison{};
        std::vector<kit::PageChangeRow> whole{};  ///< only for that view
    };

    void update();
    void showChosen();
    void forgetComparison();
    void compare(int earlier, int later);
    void show(Compared compared);
    void showRevisions();
    void showChanges();
    std::vector<PageChangeLine> changeLines() const;
    void follow(const kit::FollowedPage& page);
    void pushStep(const kit::FollowedPage& page, bool follows, const QString& step,
                  const QString& notice);
    /// The places to compare after the action, the earlier text first.
    std::pair<int, int> placesAfter(Action action) const;
    const kit::PageRow* chosen() const;
    std::size_t suggestedPlace() const;

    std::vector<kit::PageRow> pages_;     ///< all that are followed
    std::vector<kit::PageRow> followed_;  ///< those of the list
    std::vector<kit::SuggestedPage> suggested_;
    GadgetListModel<FollowedPageLine> rows_;
    int row_ = -1;
    std::string chosenKey_;  ///< its address
    QString chosenFact_, problem_, summary_;
    QStringList revisionNames_;
    int earlier_ = -1;
    int later_ = -1;
    /// The places that are being compared: when the pages change meanwhile, the user's choice
    /// stands.
    std::pair<int, int> wanted_{-1, -1};
    GadgetListModel<PageChangeLine> changes_;
    GadgetListModel<RevisionPoint> points_;
    kit::PageSubset subset_ = kit::PageSubset::all;
    QStringList subsetNames_;
    QString words_;
    kit::PageChangeFilter filter_ = kit::PageChangeFilter::all;
    bool inPageOrder_ = false;
    ChangesView::Value view_ = ChangesView::Changes;
    Compared compared_;
    LibraryReading<Compared> reading_;
    std::shared_ptr<MainThreadQueue> queue_;
};

}  // namespace app
