#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Instant.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"

namespace app {

/// Single facts of the desk that outlive a run.
class DeskState {
public:
    explicit DeskState(Database& database) : database_(database) {}

    static constexpr std::string_view kLastRefresh = "lastRefresh";
    static constexpr std::string_view kLastArrival = "lastArrival";
    static constexpr std::string_view kNewSince = "newSince";
    /// When servers last agreed with this computer's clock.
    static constexpr std::string_view kClockConfirmed = "clockConfirmed";

    /// The last change of signing, and of offers, and the last signal, that has been told.
    static constexpr std::string_view kToldSigning = "toldSigning";
    static constexpr std::string_view kToldSignals = "toldSignals";
    static constexpr std::string_view kToldOffers = "toldOffers";

    /// The last signal that was in the log when the user last looked at it.
    static constexpr std::string_view kLookedAtSignal = "lookedAtSignal";

    /// What the delivery of alerts remembers: what is held back, what has been told.
    static constexpr std::string_view kAlertDelivery = "alertDelivery";
    /// What rules on prices have seen.
    static constexpr std::string_view kPriceRules = "priceRules";
    /// The last alert that was in the history when the user last looked at it.
    static constexpr std::string_view kLookedAtAlert = "lookedAtAlert";

    std::optional<kit::Instant> instant(std::string_view key);
    void set(std::string_view key, std::optional<kit::Instant> value);

    std::optional<std::string> text(std::string_view key);
    void setText(std::string_view key, std::optional<std::string_view> value);

    std::optional<std::int64_t> number(std::string_view key);
    void setNumber(std::string_view key, std::int64_t value);

    /// The mark of a writing transaction: every row that it changes carries it, and it is
    /// higher than all before. To be taken inside the transaction.
    std::int64_t nextStamp();
    std::int64_t lastStamp();

private:
    Database& database_;
};

}  // namespace app
