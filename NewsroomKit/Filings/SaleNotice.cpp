#include "NewsroomKit/Filings/SaleNotice.h"

#include <cmath>

#include <fmt/format.h>

#include "NewsroomKit/Filings/FilingForms.h"
#include "NewsroomKit/Filings/OwnershipWords.h"

namespace kit {
namespace {

std::optional<std::string> noticeText(const XMLElement& group, std::string_view name) {
    const auto text = group.childText(name);
    return text.empty() ? std::nullopt : std::optional(std::string(text));
}

void add(std::optional<double>& sum, const std::optional<double>& amount) {
    if (amount) sum = sum.value_or(0) + *amount;
}

void readSecurities(const XMLElement& securities, SaleNotice& notice) {
    add(notice.shares, formNumber(securities.childText("noOfUnitsSold")));
    add(notice.value, formNumber(securities.childText("aggregateMarketValue")));
    if (!notice.saleDate) notice.saleDate = noticeDay(securities.childText("approxSaleDate"));
    const auto* const broker = securities.child("brokerOrMarketmakerDetails");
    if (!notice.broker && broker != nullptr) notice.broker = noticeText(*broker, "name");
}

void readIssuer(const XMLElement& info, SaleNotice& notice) {
    notice.issuer = {.cik = cikFrom(info.childText("issuerCik")).value_or(0),
                     .name = std::string(info.childText("issuerName"))};
    notice.person = info.childText("nameOfPersonForWhoseAccountTheSecuritiesAreToBeSold");
    const auto* const relationships = info.child("relationshipsToIssuer");
    if (relationships == nullptr) return;
    for (const auto& relationship : relationships->children) {
        notice.relationship.push_back(relationship.text);
    }
}

void readSignature(const XMLElement& signature, SaleNotice& notice) {
    notice.noticeDate = noticeDay(signature.childText("noticeDate"));
    const auto* const plans = signature.child("planAdoptionDates");
    if (plans == nullptr) return;
    for (const auto& plan : plans->children) {
        if (auto day = noticeDay(plan.text)) notice.planDates.push_back(std::move(*day));
    }
}

}  // namespace

SaleNoticeResult parseSaleNotice(std::string_view bytes) {
    const auto document = formDocument(bytes, "edgarSubmission");
    if (!document) return document.error();
    const auto& root = document.value();
    const auto* const header = root.child("headerData");
    const auto* const form = root.child("formData");
    const auto type = header == nullptr ? std::string_view() : header->childText("submissionType");
    if (form == nullptr || (type != "144" && type != "144/A")) return FilingsError::notFilings;
    SaleNotice notice{.amendment = type == "144/A"};
    for (const auto& part : form->children) {
        if (part.name == "issuerInfo") readIssuer(part, notice);
        if (part.name == "securitiesInformation") readSecurities(part, notice);
        if (part.name == "noticeSignature") readSignature(part, notice);
        if (part.name != "securitiesSoldInPast3Months") continue;
        notice.soldInThreeMonths.push_back(
            {.date = noticeDay(part.childText("saleDate")),
             .shares = formNumber(part.childText("amountOfSecuritiesSold")),
             .proceeds = formNumber(part.childText("grossProceeds"))});
    }
    notice.remarks = noticeText(*form, "remarks");
    if (notice.issuer.cik == 0) return FilingsError::malformed;
    return notice;
}

std::string noticeSentence(const SaleNotice& notice) {
    std::string sentence = notice.person.empty() ? "An insider" : notice.person;
    sentence += " will sell";
    if (notice.shares) sentence += fmt::format(" {} shares", amountInWords(*notice.shares));
    if (notice.value) {
        sentence += fmt::format(" for about ${}", amountInWords(std::round(*notice.value)));
    }
    if (notice.saleDate) sentence += " around " + dayInWords(*notice.saleDate);
    if (!notice.planDates.empty()) {
        sentence += " under a plan adopted on " + dayInWords(notice.planDates.front());
    }
    return sentence + ".";
}

}  // namespace kit
