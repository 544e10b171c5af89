#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "NewsroomKit/Filings/Filing.h"

namespace kit {

struct NoticeIssuer {
    std::int64_t cik = 0;
    std::string name{};

    bool operator==(const NoticeIssuer&) const = default;
};

struct PastSale {
    std::optional<std::string> date{};
    std::optional<double> shares{};
    std::optional<double> proceeds{};

    bool operator==(const PastSale&) const = default;
};

/// A Form 144: somebody's intention to sell. Days are "2026-11-03".
struct SaleNotice {
    NoticeIssuer issuer{};
    std::string person{};                     ///< for whose account is sold
    std::vector<std::string> relationship{};  ///< in the form's words, which may be wrong
    std::optional<double> shares{};           ///< to be sold, over all classes
    std::optional<double> value{};
    std::optional<std::string> saleDate{};  ///< about
    std::optional<std::string> noticeDate{};
    std::vector<std::string> planDates{};  ///< when the plans of sale were adopted
    std::vector<PastSale> soldInThreeMonths{};
    std::optional<std::string> broker{};
    bool amendment = false;
    std::optional<std::string> remarks{};

    bool operator==(const SaleNotice&) const = default;
};

using SaleNoticeResult = boost::outcome_v2::unchecked<SaleNotice, FilingsError>;

SaleNoticeResult parseSaleNotice(std::string_view bytes);

/// "Jane Doe will sell 34,821 shares for about $10,900,000 around 24 November 2026."
std::string noticeSentence(const SaleNotice& notice);

template <>
struct JSONFields<NoticeIssuer> {
    static constexpr auto fields =
        std::tuple{field("cik", &NoticeIssuer::cik), field("name", &NoticeIssuer::name)};
};

template <>
struct JSONFields<PastSale> {
    static constexpr auto fields =
        std::tuple{field("date", &PastSale::date), field("shares", &PastSale::shares),
                   field("proceeds", &PastSale::proceeds)};
};

template <>
struct JSONFields<SaleNotice> {
    static constexpr auto fields = std::tuple{
        field("issuer", &SaleNotice::issuer),
        field("person", &SaleNotice::person),
        field("relationship", &SaleNotice::relationship),
        field("shares", &SaleNotice::shares),
        field("value", &SaleNotice::value),
        field("saleDate", &SaleNotice::saleDate),
        field("noticeDate", &SaleNotice::noticeDate),
        field("planDates", &SaleNotice::planDates),
        field("soldInThreeMonths", &SaleNotice::soldInThreeMonths),
        field("broker", &SaleNotice::broker),
        field("amendment", &SaleNotice::amendment),
        field("remarks", &SaleNotice::remarks),
    };
};

}  // namespace kit
