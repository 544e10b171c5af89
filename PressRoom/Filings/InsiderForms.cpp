#include <fmt/format.h>

#include "PressRoom/Filings/FilingDates.h"
#include "PressRoom/Filings/FilingPages.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

using std::chrono::sys_seconds;

std::string formValue(std::string_view name, const std::string& text,
                      const std::string& note = {}) {
    const auto inside = (text.empty() ? std::string() : element("value", text)) + note;
    return fmt::format("<{0}>{1}</{0}>", name, inside);
}

std::string formCIK(std::int64_t cik) { return fmt::format("{:010}", cik); }

std::string numberText(double number) { return fmt::format("{:.10g}", number); }

std::string ownerXML(const WorldInsider& owner) {
    const auto role = owner.title ? "<isDirector>0</isDirector><isOfficer>1</isOfficer>" +
                                        element("officerTitle", *owner.title)
                                  : std::string("<isDirector>1</isDirector>");
    return fmt::format(
        "<reportingOwner><reportingOwnerId>{}{}</reportingOwnerId>"
        "<reportingOwnerRelationship>{}</reportingOwnerRelationship></reportingOwner>\n",
        element("rptOwnerCik", formCIK(owner.cik)), element("rptOwnerName", owner.name), role);
}

std::string tradeXML(const WorldFiling& filing, const WorldTrade& trade, sys_seconds anchor) {
    const auto note =
        trade.note ? fmt::format("<footnoteId id=\"F{}\"/>", *trade.note) : std::string();
    const auto nature = trade.trust ? formValue("natureOfOwnership", *trade.trust) : std::string();
    return fmt::format(
        "<nonDerivativeTransaction>{}{}<transactionCoding><transactionFormType>4"
        "</transactionFormType>{}<equitySwapInvolved>0</equitySwapInvolved></transactionCoding>"
        "<transactionAmounts>{}{}{}</transactionAmounts><postTransactionAmounts>{}"
        "</postTransactionAmounts><ownershipNature>{}{}</ownershipNature>"
        "</nonDerivativeTransaction>\n",
        formValue("securityTitle", "Common Stock"),
        formValue("transactionDate",
                  trade.date.value_or(dayBefore(filing, anchor, trade.daysBefore))),
        element("transactionCode", trade.code),
        formValue("transactionShares", numberText(trade.shares)),
        formValue("transactionPricePerShare", trade.price ? numberText(*trade.price) : "", note),
        formValue("transactionAcquiredDisposedCode", trade.acquired ? "A" : "D"),
        trade.after ? formValue("sharesOwnedFollowingTransaction", numberText(*trade.after)) : "",
        formValue("directOrIndirectOwnership", trade.trust ? "I" : "D"), nature);
}

std::string ownershipXML(const WorldFiler& filer, const WorldFiling& filing, sys_seconds anchor) {
    const auto& form = *filing.insiders;
    std::string owners, trades, notes;
    for (const auto& owner : form.owners) owners += ownerXML(owner);
    for (const auto& trade : form.trades) trades += tradeXML(filing, trade, anchor);
    for (std::size_t at = 0; at < form.notes.size(); ++at)
        notes +=
            fmt::format("<footnote id=\"F{}\">{}</footnote>\n", at + 1, escaped(form.notes[at]));
    const bool isOwn = !form.issuer || *form.issuer == filer.cik;
    return fmt::format(
        "<?xml version=\"1.0\"?>\n<ownershipDocument>\n<schemaVersion>X0508</schemaVersion>{}{}\n"
        "<issuer>{}{}{}</issuer>\n{}{}<nonDerivativeTable>\n{}</nonDerivativeTable>\n"
        "<footnotes>{}</footnotes>\n<remarks></remarks>\n</ownershipDocument>\n",
        element("documentType", filing.form),
        element("periodOfReport", periodOf(filing, anchor).value_or(dayBefore(filing, anchor, 1))),
        element("issuerCik", formCIK(form.issuer.value_or(filer.cik))),
        element("issuerName", isOwn ? filer.name : "Fig Bakeries, Inc."),
        element("issuerTradingSymbol", isOwn ? filer.symbol : "FIGB"), owners,
        form.plan ? element("aff10b5One", *form.plan ? "1" : "0") : std::string(), trades, notes);
}

std::string noticeXML(const WorldFiler& filer, const WorldFiling& filing, sys_seconds anchor) {
    const auto& notice = *filing.notice;
    const auto sale = slashedDay(dayBefore(filing, anchor, -notice.daysAhead));
    return fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><ns2:edgarSubmission "
        "xmlns:com=\"http://www.sec.gov/edgar/common\" "
        "xmlns:ns2=\"http://www.sec.gov/edgar/ownership\">\n<ns2:headerData>{}</ns2:headerData>\n"
        "<ns2:formData><ns2:issuerInfo>{}{}{}<ns2:relationshipsToIssuer>"
        "<ns2:relationshipToIssuer>Officer</ns2:relationshipToIssuer></ns2:relationshipsToIssuer>"
        "</ns2:issuerInfo>\n<ns2:securitiesInformation>{}{}{}{}</ns2:securitiesInformation>\n"
        "<ns2:nothingToReportFlagOnSecuritiesSoldInPast3Months>Y"
        "</ns2:nothingToReportFlagOnSecuritiesSoldInPast3Months>{}<ns2:noticeSignature>{}"
        "<ns2:planAdoptionDates>{}</ns2:planAdoptionDates></ns2:noticeSignature></ns2:formData>\n"
        "</ns2:edgarSubmission>\n",
        element("ns2:submissionType", filing.form), element("ns2:issuerCik", formCIK(filer.cik)),
        element("ns2:issuerName", filer.name),
        element("ns2:nameOfPersonForWhoseAccountTheSecuritiesAreToBeSold", notice.person),
        element("ns2:securitiesClassTitle", "Common"),
        element("ns2:noOfUnitsSold", numberText(notice.shares)),
        element("ns2:aggregateMarketValue", fmt::format("{:.2f}", notice.value)),
        element("ns2:approxSaleDate", sale), element("ns2:remarks", notice.remarks),
        element("ns2:noticeDate", slashedDay(dayBefore(filing, anchor, 0))),
        element("ns2:planAdoptionDate", slashedDay(dayBefore(filing, anchor, 200))));
}

}  // namespace

std::string formXML(const WorldFiler& filer, const WorldFiling& filing, sys_seconds anchor) {
    if (filing.insiders) return ownershipXML(filer, filing, anchor);
    if (filing.notice) return noticeXML(filer, filing, anchor);
    return {};
}

}  // namespace pressroom
