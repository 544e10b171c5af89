#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "NewsroomKit/Filings/Filing.h"

namespace kit {

enum class OwnerRole { director, officer, tenPercentOwner, other };

template <>
inline constexpr std::array<EnumRow<OwnerRole>, 4> enumTable<OwnerRole>{{
    {OwnerRole::director, "director", "director"},
    {OwnerRole::officer, "officer", "officer"},
    {OwnerRole::tenPercentOwner, "tenPercentOwner", "owner of more than 10 %"},
    {OwnerRole::other, "other", "other"},
}};

/// Whether the trades follow a plan that was adopted before. Forms before 2023 have no box for it.
enum class TradingPlan { yes, no, unknown };

template <>
inline constexpr std::array<EnumRow<TradingPlan>, 3> enumTable<TradingPlan>{{
    {TradingPlan::yes, "yes", "Under a plan"},
    {TradingPlan::no, "no", "No plan"},
    {TradingPlan::unknown, "unknown", "Not said"},
}};

enum class TradeTable { nonDerivative, derivative };

template <>
inline constexpr std::array<EnumRow<TradeTable>, 2> enumTable<TradeTable>{{
    {TradeTable::nonDerivative, "nonDerivative", "Shares"},
    {TradeTable::derivative, "derivative", "Derivatives"},
}};

struct FormIssuer {
    std::int64_t cik = 0;
    std::string name{};
    std::optional<std::string> symbol{};  ///< as filed

    bool operator==(const FormIssuer&) const = default;
};

struct FormOwner {
    std::int64_t cik = 0;
    std::string name{};  ///< as filed: the last name first
    std::vector<OwnerRole> roles{};
    std::optional<std::string> title{};

    bool operator==(const FormOwner&) const = default;
};

/// One row of a form, as filed. Every value may be absent, with a note in its place. Days are
/// "2026-11-03".
struct Trade {
    TradeTable table = TradeTable::nonDerivative;
    std::string security{};
    std::optional<std::string> date{};
    std::optional<std::string> dateAsFiled{};  ///< when it cannot be right
    std::string code{};
    std::optional<bool> acquired{};
    std::optional<double> shares{};
    std::optional<double> price{};  ///< 0 for grants and gifts
    std::optional<double> value{};
    std::optional<double> after{};  ///< shares held after the trade
    std::optional<bool> direct{};
    std::optional<std::string> nature{};  ///< of indirect ownership: "By Trust"
    std::optional<bool> late{};
    std::vector<std::string> notes{};
    std::optional<double> exercisePrice{};
    std::optional<std::string> exercisable{};
    std::optional<std::string> expires{};
    std::optional<std::string> underlying{};
    std::optional<double> underlyingShares{};

    bool operator==(const Trade&) const = default;
};

struct Holding {
    TradeTable table = TradeTable::nonDerivative;
    std::string security{};
    std::optional<double> shares{};
    std::optional<bool> direct{};
    std::optional<std::string> nature{};
    std::vector<std::string> notes{};
    std::optional<double> exercisePrice{};
    std::optional<std::string> exercisable{};
    std::optional<std::string> expires{};
    std::optional<std::string> underlying{};
    std::optional<double> underlyingShares{};

    bool operator==(const Holding&) const = default;
};

/// The trades of one form with the same code, direction, security and kind of ownership.
struct TradeSum {
    std::string code{};
    std::optional<bool> acquired{};
    std::string security{};
    std::optional<bool> direct{};
    double shares = 0;
    std::optional<double> averagePrice{};  ///< over the rows that have a price
    std::optional<double> value{};

    bool operator==(const TradeSum&) const = default;
};

/// A Form 3, 4 or 5: what insiders hold and trade.
struct OwnershipForm {
    std::string form{};
    std::string period{};
    FormIssuer issuer{};
    std::vector<FormOwner> owners{};  ///< several persons may report the same trades together
    TradingPlan plan = TradingPlan::unknown;
    std::optional<bool> late{};
    std::vector<Trade> trades{};
    std::vector<Holding> holdings{};
    std::map<std::string, std::string> footnotes{};
    std::vector<TradeSum> summary{};
    std::string sentence{};

    bool operator==(const OwnershipForm&) const = default;
};

using OwnershipResult = boost::outcome_v2::unchecked<OwnershipForm, FilingsError>;

/// Reads the XML of a form, alone or inside a whole submission. `filed` is the day of filing where
/// it is known: dates behind it cannot be right, and it tells which trades were reported late.
OwnershipResult parseOwnership(std::string_view bytes,
                               const std::optional<std::string>& filed = std::nullopt);

/// The trades added up by code, direction, security and kind of ownership, in the order of the
/// first of each.
std::vector<TradeSum> sumsOf(std::span<const Trade> trades);

/// The day in a note that says when a plan under Rule 10b5-1 was adopted, as "2021-08-16".
std::optional<std::string> planAdoption(const OwnershipForm& form);

template <>
struct JSONFields<FormIssuer> {
    static constexpr auto fields =
        std::tuple{field("cik", &FormIssuer::cik), field("name", &FormIssuer::name),
                   field("symbol", &FormIssuer::symbol)};
};

template <>
struct JSONFields<FormOwner> {
    static constexpr auto fields =
        std::tuple{field("cik", &FormOwner::cik), field("name", &FormOwner::name),
                   field("roles", &FormOwner::roles), field("title", &FormOwner::title)};
};

template <>
struct JSONFields<Trade> {
    static constexpr auto fields = std::tuple{
        field("table", &Trade::table),
        field("security", &Trade::security),
        field("date", &Trade::date),
        field("dateAsFiled", &Trade::dateAsFiled),
        field("code", &Trade::code),
        field("acquired", &Trade::acquired),
        field("shares", &Trade::shares),
        field("price", &Trade::price),
        field("value", &Trade::value),
        field("after", &Trade::after),
        field("direct", &Trade::direct),
        field("nature", &Trade::nature),
        field("late", &Trade::late),
        field("notes", &Trade::notes),
        field("exercisePrice", &Trade::exercisePrice),
        field("exercisable", &Trade::exercisable),
        field("expires", &Trade::expires),
        field("underlying", &Trade::underlying),
        field("underlyingShares", &Trade::underlyingShares),
    };
};

template <>
struct JSONFields<Holding> {
    static constexpr auto fields = std::tuple{
        field("table", &Holding::table),
        field("security", &Holding::security),
        field("shares", &Holding::shares),
        field("direct", &Holding::direct),
        field("nature", &Holding::nature),
        field("notes", &Holding::notes),
        field("exercisePrice", &Holding::exercisePrice),
        field("exercisable", &Holding::exercisable),
        field("expires", &Holding::expires),
        field("underlying", &Holding::underlying),
        field("underlyingShares", &Holding::underlyingShares),
    };
};

template <>
struct JSONFields<TradeSum> {
    static constexpr auto fields = std::tuple{
        field("code", &TradeSum::code),         field("acquired", &TradeSum::acquired),
        field("security", &TradeSum::security), field("direct", &TradeSum::direct),
        field("shares", &TradeSum::shares),     field("averagePrice", &TradeSum::averagePrice),
        field("value", &TradeSum::value),
    };
};

template <>
struct JSONFields<OwnershipForm> {
    static constexpr auto fields = std::tuple{
        field("form", &OwnershipForm::form),           field("period", &OwnershipForm::period),
        field("issuer", &OwnershipForm::issuer),       field("owners", &OwnershipForm::owners),
        field("plan", &OwnershipForm::plan),           field("late", &OwnershipForm::late),
        field("trades", &OwnershipForm::trades),       field("holdings", &OwnershipForm::holdings),
        field("footnotes", &OwnershipForm::footnotes), field("summary", &OwnershipForm::summary),
        field("sentence", &OwnershipForm::sentence),
    };
};

}  // namespace kit
