#include "NewsroomKit/Filings/OwnershipWords.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include <fmt/format.h>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Filings/TradeCode.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

// A sentence with more is no longer read.
constexpr std::size_t mostActs = 6;

constexpr std::array<std::string_view, 12> monthNames{
    "January", "February", "March",     "April",   "May",      "June",
    "July",    "August",   "September", "October", "November", "December"};

std::string_view digitsAt(std::string_view text, std::size_t at) {
    std::size_t count = 0;
    while (at + count < text.size() && isASCIIDigit(text[at + count])) ++count;
    return text.substr(at, count);
}

/// The day in "August 16, 2021 …" where the month's name ends at the text's begin.
std::optional<std::string> dayBehindMonth(std::size_t month, std::string_view text) {
    if (!text.starts_with(' ')) return std::nullopt;
    const auto day = digitsAt(text, 1);
    auto rest = text.substr(1 + day.size());
    if (rest.starts_with(',')) rest.remove_prefix(1);
    if (day.empty() || day.size() > 2 || !rest.starts_with(' ')) return std::nullopt;
    const auto year = digitsAt(rest, 1);
    if (year.size() != 4) return std::nullopt;
    return formDay(fmt::format("{}-{:02}-{:0>2}", year, month + 1, day));
}

/// Shares are whole or fractional; a price has two to four decimals.
std::string grouped(std::string digits) {
    const auto point = digits.find('.');
    auto at = static_cast<std::ptrdiff_t>(point == std::string::npos ? digits.size() : point) - 3;
    const std::ptrdiff_t first = digits.starts_with('-') ? 1 : 0;
    for (; at > first; at -= 3) digits.insert(static_cast<std::size_t>(at), ",");
    return digits;
}

/// "159.94"; more decimals only where the form itself has them.
std::string priceInWords(double price) {
    auto digits = fmt::format("{:.2f}", price);
    auto exact = fmt::format("{:.4f}", price);
    exact.erase(exact.find_last_not_of('0') + 1);
    return grouped(exact.size() > digits.size() ? exact : digits);
}

/// Titles of derivatives say what they are; ordinary shares have many titles.
std::string amountOf(const TradeSum& sum, bool isDerivative) {
    if (!isDerivative) {
        return amountInWords(sum.shares) + (sum.shares == 1 ? " share" : " shares");
    }
    return fmt::format("{} of \"{}\"", amountInWords(sum.shares), sum.security);
}

bool isDerivative(const OwnershipForm& form, const TradeSum& sum) {
    return std::ranges::any_of(form.trades, [&](const Trade& trade) {
        return trade.table == TradeTable::derivative && trade.security == sum.security &&
               trade.code == sum.code;
    });
}

std::string actOf(const OwnershipForm& form, const TradeSum& sum) {
    const auto* const code = tradeCode(sum.code);
    const auto verb = code == nullptr                              ? std::string_view("reported")
                      : sum.acquired.value_or(code->letter != 'S') ? code->acquired
                                                                   : code->disposed;
    std::string words = fmt::format("{} {}", verb, amountOf(sum, isDerivative(form, sum)));
    if (code == nullptr && !sum.code.empty()) words += fmt::format(" (code {})", sum.code);
    if (sum.averagePrice && isDecision(sum.code)) {
        const auto rows = std::ranges::count_if(form.trades, [&](const Trade& trade) {
            return trade.code == sum.code && trade.security == sum.security &&
                   trade.acquired == sum.acquired && trade.direct == sum.direct;
        });
        words += fmt::format(" at {}${}", rows > 1 ? "an average of " : "",
                             priceInWords(*sum.averagePrice));
    }
    return words;
}

std::string ownersInWords(const OwnershipForm& form) {
    if (form.owners.empty() || form.owners[0].name.empty()) return "An insider";
    if (form.owners.size() == 1) return form.owners[0].name;
    return fmt::format("{} and {} other{}", form.owners[0].name, form.owners.size() - 1,
                       form.owners.size() == 2 ? "" : "s");
}

std::string planInWords(const OwnershipForm& form) {
    if (form.plan != TradingPlan::yes) return {};
    const auto day = planAdoption(form);
    return day ? " under a plan adopted on " + dayInWords(*day) : " under a plan";
}

}  // namespace

std::string amountInWords(double amount) {
    auto digits = fmt::format("{:.4f}", amount);
    digits.erase(digits.find_last_not_of('0') + 1);
    if (digits.ends_with('.')) digits.pop_back();
    return grouped(std::move(digits));
}

std::string dayInWords(std::string_view day) {
    if (day.size() != 10) return std::string(day);
    const auto month = static_cast<std::size_t>((day[5] - '0') * 10 + day[6] - '0') - 1;
    return fmt::format("{} {} {}", (day[8] - '0') * 10 + day[9] - '0', monthNames.at(month),
                       day.substr(0, 4));
}

std::optional<std::size_t> planMention(std::string_view note) {
    constexpr std::string_view rule = "10b5-1";
    for (std::size_t at = 0; at + rule.size() <= note.size(); ++at) {
        if (!standsAt(note, at, rule)) continue;
        const auto end = at + rule.size();
        const bool begins = at == 0 || !isASCIIAlphanumeric(note[at - 1]);
        if (begins && (end == note.size() || !isASCIIAlphanumeric(note[end]))) return end;
    }
    return std::nullopt;
}

std::optional<std::string> writtenDay(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (auto day = noticeDay(text.substr(at, 10))) return day;
        for (std::size_t month = 0; month < monthNames.size(); ++month) {
            if (!text.substr(at).starts_with(monthNames[month])) continue;
            if (auto day = dayBehindMonth(month, text.substr(at + monthNames[month].size()))) {
                return day;
            }
        }
    }
    return std::nullopt;
}

std::string ownershipSentence(const OwnershipForm& form) {
    const auto who = ownersInWords(form);
    std::string acts;
    bool hasDecision = false;
    const auto shown = std::min(form.summary.size(), mostActs);
    for (std::size_t i = 0; i < shown; ++i) {
        if (i > 0) acts += i + 1 == form.summary.size() ? " and " : ", ";
        acts += actOf(form, form.summary[i]);
        hasDecision = hasDecision || isDecision(form.summary[i].code);
    }
    if (shown < form.summary.size()) {
        acts += fmt::format(" and more ({} kinds of trades)", form.summary.size());
    }
    std::string sentence;
    if (!acts.empty()) {
        sentence = fmt::format("{} {}{}", who, acts, hasDecision ? planInWords(form) : "");
    } else if (form.holdings.empty()) {
        sentence = fmt::format("{} holds no shares of {}", who, form.issuer.name);
    } else {
        sentence = fmt::format("{} reported holdings in {}", who, form.issuer.name);
    }
    if (form.late == true) sentence += ", reported late";
    std::ranges::replace_if(
        sentence, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
    return sentence.ends_with('.') ? sentence : sentence + ".";
}

}  // namespace kit
