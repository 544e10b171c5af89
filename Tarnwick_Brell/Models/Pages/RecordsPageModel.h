#pragma once

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <QAbstractListModel>
#include <QStringList>

#include "NewsroomKit/Panels/CourtContent.h"
#include "NewsroomKit/Panels/RowFilter.h"
#include "Tarnwick_Brell/Models/Pages/LibraryReading.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Pages/RecordRows.h"
#include "Tarnwick_Brell/Models/Pages/RecordSheet.h"
#include "Tarnwick_Brell/Models/Pages/RecordsContent.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace app {

/// What companies file with the SEC, what their insiders trade, what courts enter and what
/// companies send out: four tabs, each a list with the chosen record beside it.
class RecordsPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(RecordsPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QList<QString> tabs READ tabs CONSTANT)
    Q_PROPERTY(QList<int> counts READ counts NOTIFY changed)
    Q_PROPERTY(app::RecordsPageModel::Tab tab READ tab WRITE setTab NOTIFY changed)
    Q_PROPERTY(QString words READ words WRITE setWords NOTIFY changed)
    Q_PROPERTY(QString nameLabel READ nameLabel NOTIFY changed)
    Q_PROPERTY(QList<QString> names READ names NOTIFY changed)
    Q_PROPERTY(int name READ name WRITE setName NOTIFY changed)
    Q_PROPERTY(QString kindLabel READ kindLabel NOTIFY changed)
    Q_PROPERTY(QList<QString> kinds READ kinds NOTIFY changed)
    Q_PROPERTY(int kind READ kind WRITE setKind NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* filings READ filings CONSTANT)
    Q_PROPERTY(QAbstractListModel* insiders READ insiders CONSTANT)
    Q_PROPERTY(QAbstractListModel* cases READ cases CONSTANT)
    Q_PROPERTY(QAbstractListModel* press READ press CONSTANT)
    Q_PROPERTY(QString nothingShown READ nothingShown NOTIFY changed)
    Q_PROPERTY(QString nothingAction READ nothingAction NOTIFY changed)
    Q_PROPERTY(QString footText READ footText NOTIFY changed)
    Q_PROPERTY(int row READ row WRITE setRow NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* lines READ lines CONSTANT)
    Q_PROPERTY(QString sheetLead READ sheetLead NOTIFY changed)
    Q_PROPERTY(QString sheetBadge READ sheetBadge NOTIFY changed)
    Q_PROPERTY(QString sheetNote READ sheetNote NOTIFY changed)
    Q_PROPERTY(QString sheetWhen READ sheetWhen NOTIFY changed)
    Q_PROPERTY(QString sheetTitle READ sheetTitle NOTIFY changed)
    Q_PROPERTY(QString sheetLink READ sheetLink NOTIFY changed)
    Q_PROPERTY(QString sheetLinkText READ sheetLinkText NOTIFY changed)
    Q_PROPERTY(QString sheetCopy READ sheetCopy NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* entries READ entries CONSTANT)
    Q_PROPERTY(bool isFollowed READ isFollowed NOTIFY changed)
    Q_PROPERTY(bool canFollow READ canFollow NOTIFY changed)
    Q_PROPERTY(QString caseNote READ caseNote NOTIFY changed)
    Q_PROPERTY(QString entriesFact READ entriesFact NOTIFY changed)
    Q_PROPERTY(bool showsRoutine READ showsRoutine WRITE setShowsRoutine NOTIFY changed)

public:
    enum Tab { Filings, Insiders, Court, Press };
    Q_ENUM(Tab)

    explicit RecordsPageModel(const DeskStores& stores);

    QStringList tabs() const;
    /// Records of each tab that came after its last look.
    QList<int> counts() const { return {counts_.begin(), counts_.end()}; }
    Tab tab() const { return tab_; }
    void setTab(Tab tab);
    const QString& words() const { return words_; }
    void setWords(const QString& words);
    /// Two filters of the tab, of each the first choice filters nothing; without a label there is
    /// none.
    QString nameLabel() const;
    const QStringList& names() const { return names_; }
    int name() const { return name_; }
    void setName(int place);
    QString kindLabel() const;
    const QStringList& kinds() const { return kinds_; }
    int kind() const { return kind_; }
    void setKind(int place);

    QAbstractListModel* filings() { return &filings_; }
    QAbstractListModel* insiders() { return &insiders_; }
    QAbstractListModel* cases() { return &cases_; }
    QAbstractListModel* press() { return &press_; }
    /// Instead of rows, and what helps.
    const QString& nothingShown() const { return nothingShown_; }
    const QString& nothingAction() const { return nothingAction_; }
    Q_INVOKABLE void actOnNothing();
    const QString& footText() const { return footText_; }

    int row() const { return row_; }
    void setRow(int row);
    QAbstractListModel* lines() { return &lines_; }
    const QString& sheetLead() const { return sheet_.lead; }
    const QString& sheetBadge() const { return sheet_.badge; }
    const QString& sheetNote() const { return sheet_.note; }
    const QString& sheetWhen() const { return sheet_.when; }
    const QString& sheetTitle() const { return sheet_.title; }
    const QString& sheetLink() const { return sheet_.link; }
    const QString& sheetLinkText() const { return sheet_.linkText; }
    const QString& sheetCopy() const { return sheet_.copy; }
    /// Enter: the record at its source.
    Q_INVOKABLE void openRow(int row);
    /// Opens a link, unfolds a document or folds it again.
    Q_INVOKABLE void actOnLine(int line);

    QAbstractListModel* entries() { return &entries_; }
    bool isFollowed() const;
    bool canFollow() const;
    const QString& caseNote() const { return caseNote_; }
    const QString& entriesFact() const { return entriesFact_; }
    bool showsRoutine() const { return showsRoutine_; }
    void setShowsRoutine(bool shows);
    Q_INVOKABLE void openEntry(int row);
    /// The case at the row, or one whose address or number at CourtListener the user has typed.
    Q_INVOKABLE void followCase();
    Q_INVOKABLE void addCase(const QString& address);
    Q_INVOKABLE void unfollowCase();
    Q_INVOKABLE void setCaseNote(const QString& note);

    void tick() override { update(); }
    void retry() override;

protected:
    bool hasBar() const override { return true; }

private:
    using Looks = std::array<std::optional<kit::Instant>, 4>;

    void load();
    void show(RecordsContent content);
    void readLooks();
    void look();
    void update();
    void updateFilings();
    void updateInsiders();
    void updateCourt();
    void updatePress();
    void updateCounts();
    static kit::RowFilter filterOf(const QString& words) {
        return kit::RowFilter(words.toStdString());
    }
    void updateNothing(bool isEmpty, bool hasAny);
    void updateFoot();
    std::vector<kit::FollowedDocket> dockets() const;
    void showFilter(std::vector<std::string> names, std::vector<std::string> kinds);
    void resetFilter();
    void choose();
    void showChosen();
    void showCase();
    std::optional<UnfoldedText> textOf(const kit::FollowedFiling& filing,
                                       const kit::FilingDocument& document) const;
    const kit::FollowedFiling* filingOf(const std::string& accession) const;
    void readDocument(const QString& url);
    void follow(std::int64_t docket, const std::optional<std::string>& note, const QString& step,
                const QString& notice);
    int rowCount() const;
    std::string keyOf(int row) const;

    RecordsContent content_;
    bool isRead_ = false;
    LibraryReading<RecordsContent> reading_;
    Tab tab_ = Filings;
    QString words_;
    std::vector<std::string> nameKeys_, kindKeys_;
    QStringList names_, kinds_;
    int name_ = 0;
    int kind_ = 0;
    Looks looks_;             ///< before the page was opened
    std::set<Tab> lookedAt_;  ///< since
    std::array<int, 4> counts_{};

    std::vector<kit::FilingRow> filingRows_;
    std::vector<kit::InsiderRow> insiderRows_;
    std::vector<std::size_t> insiderPlaces_;  ///< the row of each line
    std::vector<kit::CourtCaseRow> caseRows_;
    std::vector<SeenCase> newCases_;
    std::vector<kit::PressRow> pressRows_;
    GadgetListModel<RecordLine> filings_;
    GadgetListModel<InsiderLine> insiders_;
    GadgetListModel<CaseLine> cases_;
    GadgetListModel<RecordLine> press_;
    QString nothingShown_, nothingAction_, footText_;

    int row_ = -1;
    std::map<Tab, std::string> chosen_;  ///< what was chosen in each tab
    RecordSheet sheet_;
    std::set<std::string> unfolded_;  ///< addresses of documents
    std::set<std::string> folded_;    ///< of exhibits 99, which are unfolded at first
    GadgetListModel<SheetLine> lines_;
    GadgetListModel<EntryLine> entries_;
    QString caseNote_, entriesFact_;
    bool showsRoutine_ = false;
};

}  // namespace app
