#pragma once

#include <string>

#include <QAbstractListModel>
#include <QList>
#include <QStringList>

#include "NewsroomKit/Panels/BoardContent.h"
#include "Tarnwick_Brell/Models/Charts/MoveLines.h"
#include "Tarnwick_Brell/Models/Charts/MoveLoader.h"
#include "Tarnwick_Brell/Models/Charts/QuoteChartModel.h"
#include "Tarnwick_Brell/Models/Pages/PageModel.h"
#include "Tarnwick_Brell/Models/Panels/TrackerLabels.h"
#include "Tarnwick_Brell/Models/Rows/GadgetListModel.h"

namespace kit {
struct QuoteContent;
}

namespace app {

/// A share of the board.
struct MarketRow {
    Q_GADGET
    Q_PROPERTY(QString heading MEMBER heading)
    Q_PROPERTY(QString symbol MEMBER symbol)
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString price MEMBER price)
    Q_PROPERTY(QString change MEMBER change)
    Q_PROPERTY(app::PriceMove::Value move MEMBER move)
    Q_PROPERTY(bool isOld MEMBER isOld)
    Q_PROPERTY(bool isCharted MEMBER isCharted)
    Q_PROPERTY(bool isCompared MEMBER isCompared)
    Q_PROPERTY(QList<QPointF> line MEMBER line)
    Q_PROPERTY(QString spokenText MEMBER spokenText)

public:
    std::string id{};   ///< the symbol as the service has it
    QString heading{};  ///< of the group, above its first share
    QString symbol{};
    QString name{};
    QString price{};
    QString change{};  ///< of the day, in per cent; empty when not known
    PriceMove::Value move = PriceMove::Unknown;
    bool isOld = false;  ///< the service itself has only old figures
    bool isCharted = false;
    bool isCompared = false;
    QList<QPointF> line{};
    QString spokenText{};

    bool operator==(const MarketRow&) const = default;
};

/// A figure below the chart.
struct MarketFigure {
    Q_GADGET
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString value MEMBER value)

public:
    QString label{};
    QString value{};

    bool operator==(const MarketFigure&) const = default;
};

/// The chart of one symbol, compared with others when the user wants that, with its moves and the
/// rules on its price, and the board that symbols are chosen from.
class MarketsPageModel final : public app::PageModel {
    Q_OBJECT
    QML_NAMED_ELEMENT(MarketsPageModel)
    QML_UNCREATABLE("The window makes its pages.")
    Q_PROPERTY(QString symbol READ symbol NOTIFY changed)
    Q_PROPERTY(QString price READ price NOTIFY changed)
    Q_PROPERTY(QString change READ change NOTIFY changed)
    Q_PROPERTY(app::PriceMove::Value move READ move NOTIFY changed)
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(QString market READ market NOTIFY changed)
    Q_PROPERTY(QList<QString> ranges READ ranges CONSTANT)
    Q_PROPERTY(int range READ range NOTIFY changed)
    Q_PROPERTY(app::QuoteChartModel* chart READ chart CONSTANT)
    Q_PROPERTY(bool isComparing READ isComparing NOTIFY changed)
    Q_PROPERTY(QString comparison READ comparison NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* figures READ figures CONSTANT)
    Q_PROPERTY(QAbstractListModel* moves READ moves CONSTANT)
    Q_PROPERTY(QString movesFact READ movesFact NOTIFY changed)
    Q_PROPERTY(QString movesMessage READ movesMessage NOTIFY changed)
    Q_PROPERTY(QAbstractListModel* board READ board CONSTANT)
    Q_PROPERTY(int chartedRow READ chartedRow NOTIFY changed)
    Q_PROPERTY(QString boardFact READ boardFact NOTIFY changed)
    Q_PROPERTY(QString boardMessage READ boardMessage NOTIFY changed)
    Q_PROPERTY(bool boardIsOld READ boardIsOld NOTIFY changed)

public:
    static constexpr std::size_t kMostCompared = 2;

    explicit MarketsPageModel(const DeskStores& stores);

    QString symbol() const;
    const QString& price() const { return price_; }
    const QString& change() const { return change_; }
    PriceMove::Value move() const { return move_; }
    bool isOpen() const { return isOpen_; }
    const QString& market() const { return market_; }  ///< "Open, 17:05"
    QStringList ranges() const { return {tr("1D"), tr("1W"), tr("1M"), tr("1Y")}; }
    int range() const { return static_cast<int>(trackers().quoteRange()); }
    QuoteChartModel* chart() { return &chart_; }
    bool isComparing() const { return !trackers().compared().empty(); }
    QString comparison() const;  ///< "Compare: TSM, ARM"
    GadgetListModel<MarketFigure>* figures() { return &figures_; }
    /// The moves of the chart's range, the newest first.
    GadgetListModel<MoveLine>* moves() { return &moves_; }
    /// "AAPL, at least 1.5% and twice the usual day"
    QString movesFact() const;
    /// Instead of moves: that there are none, that they come, or why they don't.
    const QString& movesMessage() const { return movesMessage_; }
    GadgetListModel<MarketRow>* board() { return &board_; }
    int chartedRow() const;  ///< -1 when the board does not have the symbol
    QString boardFact() const;
    /// Why there are no rows, or none newer.
    const QString& boardMessage() const { return boardMessage_; }
    bool boardIsOld() const { return trackers().board().error.has_value(); }

    /// Its place in `ranges`.
    Q_INVOKABLE void chooseRange(int range);
    Q_INVOKABLE void chartRow(int row);
    /// Compares the share of that row with the charted one, or no longer. A third one takes the
    /// place of the first.
    Q_INVOKABLE void compareRow(int row);
    Q_INVOKABLE void compareNothing();

    /// The line of a marked move; -1 when there is none.
    Q_INVOKABLE int moveLine(const QString& letter) const;
    /// The story that gave the reason of that line.
    Q_INVOKABLE void openMove(int line);
    /// Sets the price that a rule waits for, so that it can be undone.
    Q_INVOKABLE void setLevel(const QString& rule, double price);
    Q_INVOKABLE void newRule() { emit sheetWanted(QStringLiteral("alert-rule:")); }

    void tick() override { update(); }
    void retry() override;

protected:
    bool hasBar() const override { return true; }

private:
    using Quote = kit::CachedValue<kit::StockQuote>;

    void update();
    const Quote& priced() const;
    void showPrice(const kit::StockQuote& quote, const kit::QuoteContent& content);
    void showChart(const Quote& quote);
    void readMoves();
    void showMoves();
    void showBoard();
    MarketRow rowOf(const kit::BoardRow& share) const;

    QString price_;
    QString change_;
    PriceMove::Value move_ = PriceMove::Unknown;
    bool isOpen_ = false;
    QString market_;
    QuoteChartModel chart_;
    GadgetListModel<MarketFigure> figures_;
    GadgetListModel<MarketRow> board_;
    QString boardMessage_;
    GadgetListModel<MoveLine> moves_;
    QString movesMessage_;
    MoveLoader moveLoader_;
};

}  // namespace app
