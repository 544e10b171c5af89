#include "Tarnwick_Brell/Models/Pages/RecordSheet.h"

#include <algorithm>
#include <set>

#include <QCoreApplication>
#include <QLocale>

#include "Tarnwick_Brell/Models/Pages/RecordLines.h"
#include "Tarnwick_Brell/Presentation/FilingText.h"
#include "Tarnwick_Brell/Presentation/PriceText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

struct RecordSheetText {
    Q_DECLARE_TR_FUNCTIONS(RecordSheetText)
};

constexpr int kLongestField = 160;
constexpr int kLongestParagraph = 4'000;
// A filing can have hundreds of pages; the SEC shows the rest.
constexpr std::size_t kMostParagraphs = 400;

void add(RecordSheet& sheet, SheetLine line) {
    QStringList parts{line.lead, line.text, line.note};
    parts.removeAll(QString());
    line.spokenText = parts.join(QStringLiteral(", "));
    sheet.lines.push_back(std::move(line));
}

void addHeading(RecordSheet& sheet, const QString& text, const QString& note = {}) {
    add(sheet, {.kind = SheetLineKind::Heading, .text = text, .note = note});
}

void addFact(RecordSheet& sheet, const QString& lead, const QString& text) {
    if (!text.isEmpty()) add(sheet, {.kind = SheetLineKind::Fact, .lead = lead, .text = text});
}

QString acceptedHere(const kit::FilingRow& row, kit::Instant now) {
    if (!row.acceptedClock || !row.filing.accepted)
        return RecordSheetText::tr("The list does not say for sure");
    return RecordSheetText::tr("%1 in New York · %2 here")
        .arg(plainText(*row.acceptedClock), momentText(*row.filing.accepted, now));
}

void addTimes(RecordSheet& sheet, const kit::FilingRow& row, kit::Instant now) {
    addFact(sheet, RecordSheetText::tr("Accepted"), acceptedHere(row, now));
    auto dated = recordDayText(row.filing.filed, now);
    if (row.filing.period)
        dated =
            RecordSheetText::tr("%1 · for %2").arg(dated, recordDayText(*row.filing.period, now));
    addFact(sheet, RecordSheetText::tr("Dated"), dated);
    addFact(sheet, RecordSheetText::tr("Seen by us"), momentText(row.seenAt, now));
}

void addItems(RecordSheet& sheet, const kit::FilingRow& row) {
    if (row.items.empty()) return;
    addHeading(sheet, RecordSheetText::tr("Items"));
    for (const auto& [code, words] : row.items) {
        add(sheet, {.kind = SheetLineKind::Row,
                    .lead = titleText(code, kLongestField),
                    .text = titleText(words, kLongestField)});
    }
}

QString exhibitName(const std::string& type) {
    constexpr std::string_view kExhibit = "EX-";
    const auto name = type.starts_with(kExhibit) ? type.substr(kExhibit.size()) : type;
    return titleText(name, kLongestField);
}

void addText(RecordSheet& sheet, const UnfoldedText& text) {
    if (!text.message.isEmpty()) add(sheet, {.kind = SheetLineKind::Text, .text = text.message});
    const auto count = std::min(text.lines.size(), kMostParagraphs);
    for (std::size_t i = 0; i < count; ++i)
        add(sheet,
            {.kind = SheetLineKind::Text, .text = bodyText(text.lines[i], kLongestParagraph)});
    if (text.lines.size() > count)
        add(sheet, {.kind = SheetLineKind::Text,
                    .text = RecordSheetText::tr("The text goes on at the SEC.")});
}

std::string documentTitle(const kit::FilingDocument& document, const std::string& headline) {
    if (!document.title.empty()) return document.title;
    return kit::isPressExhibit(document) ? headline : std::string();
}

void addDocuments(RecordSheet& sheet, const kit::FilingRecord& record, const DocumentTexts& texts) {
    const auto& documents = record.documents;
    if (documents.empty()) return;
    addHeading(sheet, RecordSheetText::tr("Exhibits and documents"),
               QLocale().toString(static_cast<qulonglong>(documents.size())));
    for (const auto& document : documents) {
        const auto text = texts(document);
        add(sheet, {.kind = SheetLineKind::Document,
                    .lead = exhibitName(document.type),
                    .text = titleText(documentTitle(document, record.row.headline), kLongestField),
                    .link = plainText(document.url),
                    .isOpen = text.has_value()});
        if (text) addText(sheet, *text);
    }
}

QString tradeText(const kit::NotedTrade& noted) {
    const auto& trade = noted.trade;
    auto text = RecordSheetText::tr("%1 %2").arg(
        titleText(noted.verb, kLongestField),
        trade.shares ? sharesText(*trade.shares) : RecordSheetText::tr("(see the note)"));
    if (trade.price && *trade.price > 0)
        text += RecordSheetText::tr(" at %1").arg(priceText(*trade.price));
    if (!trade.price && !trade.notes.empty())
        text += RecordSheetText::tr(" at a price in the note");
    if (trade.nature) text += QStringLiteral(" · ") + titleText(*trade.nature, kLongestField);
    if (trade.dateAsFiled)
        text += RecordSheetText::tr(" · dated %1 as filed")
                    .arg(titleText(*trade.dateAsFiled, kLongestField));
    return text;
}

/// Each note once: many rows share one.
void addNotes(RecordSheet& sheet, const std::vector<kit::FormNote>& notes,
              std::set<std::string>& told) {
    for (const auto& note : notes) {
        if (!told.insert(note.name).second) continue;
        add(sheet, {.kind = SheetLineKind::Text,
                    .text = RecordSheetText::tr("(%1) “%2”")
                                .arg(titleText(note.name, kLongestField),
                                     bodyText(note.text, kLongestParagraph))});
    }
}

void addTrades(RecordSheet& sheet, const kit::FilingRecord& record, kit::Instant now) {
    if (record.trades.empty() && record.holdings.empty()) return;
    addHeading(
        sheet, RecordSheetText::tr("As filed"),
        RecordSheetText::tr("form %1").arg(titleText(record.row.filing.form, kLongestField)));
    std::set<std::string> told;
    for (const auto& noted : record.trades) {
        const auto& trade = noted.trade;
        add(sheet,
            {.kind = SheetLineKind::Row,
             .lead = trade.date ? recordDayText(*trade.date, now) : RecordSheetText::tr("No date"),
             .text = tradeText(noted),
             .note = trade.after ? RecordSheetText::tr("%1 left").arg(sharesText(*trade.after))
                                 : QString()});
        addNotes(sheet, noted.notes, told);
    }
    for (const auto& noted : record.holdings) {
        const auto& holding = noted.holding;
        add(sheet, {.kind = SheetLineKind::Row,
                    .lead = RecordSheetText::tr("Holds"),
                    .text = titleText(holding.security, kLongestField),
                    .note = holding.shares ? sharesText(*holding.shares)
                                           : RecordSheetText::tr("see the note")});
        addNotes(sheet, noted.notes, told);
    }
}

void addNotice(RecordSheet& sheet, const kit::SaleNotice& notice, kit::Instant now) {
    addHeading(sheet, RecordSheetText::tr("Notice of a coming sale"),
               RecordSheetText::tr("form 144"));
    const auto sale = notice.saleDate.value_or("");
    addFact(sheet, RecordSheetText::tr("For"), titleText(notice.person, kLongestField));
    if (notice.shares) addFact(sheet, RecordSheetText::tr("Shares"), sharesText(*notice.shares));
    if (notice.value) addFact(sheet, RecordSheetText::tr("Worth"), valueText(*notice.value));
    if (!sale.empty()) addFact(sheet, RecordSheetText::tr("About"), recordDayText(sale, now));
    for (const auto& day : notice.planDates)
        addFact(sheet, RecordSheetText::tr("Plan of"), recordDayText(day, now));
    if (notice.broker)
        addFact(sheet, RecordSheetText::tr("Through"), titleText(*notice.broker, kLongestField));
    if (notice.remarks)
        add(sheet, {.kind = SheetLineKind::Text,
                    .text = RecordSheetText::tr("“%1”").arg(
                        bodyText(*notice.remarks, kLongestParagraph))});
}

void addRelated(RecordSheet& sheet, const QString& relation, const kit::RelatedFiling& related,
                kit::Instant now) {
    add(sheet, {.kind = SheetLineKind::Link,
                .lead = relation,
                .text = titleText(related.form + " " + related.accession, kLongestField),
                .note = related.filed.empty() ? QString() : recordDayText(related.filed, now),
                .link = openableLink(related.link.value_or(""))});
}

}  // namespace

RecordSheet filingSheet(const kit::FilingRecord& record, const DocumentTexts& texts,
                        kit::Instant now) {
    const auto& row = record.row;
    RecordSheet sheet{
        .lead = titleText(row.company, kLongestField),
        .badge = titleText(row.filing.form, kLongestField),
        .when = row.filing.accepted ? agoText(*row.filing.accepted, now) : QString(),
        .title = titleText(row.headline.empty() ? row.words : row.headline, kTitleCharacters),
        .link = openableLink(row.filing.indexURL.value_or("")),
        .linkText = RecordSheetText::tr("Opens at the SEC")};
    if (!row.headline.empty()) sheet.note = titleText(row.words, kLongestField);
    sheet.copy =
        QStringList{sheet.lead, sheet.badge, filingWordsText(row), filingTimesText(row), sheet.link}
            .join(QStringLiteral(" · "));
    addTimes(sheet, row, now);
    if (record.amends) addRelated(sheet, RecordSheetText::tr("Amends"), *record.amends, now);
    for (const auto& other : record.amendedBy)
        addRelated(sheet, RecordSheetText::tr("Amended by"), other, now);
    addItems(sheet, row);
    addDocuments(sheet, record, texts);
    addTrades(sheet, record, now);
    if (record.notice) addNotice(sheet, *record.notice, now);
    if (row.release) {
        add(sheet, {.kind = SheetLineKind::Link,
                    .lead = RecordSheetText::tr("Press release"),
                    .text = titleText(row.release->title, kTitleCharacters),
                    .link = openableLink(row.release->link.value_or(""))});
    }
    addFact(sheet, RecordSheetText::tr("Accession"), plainText(row.filing.accession));
    return sheet;
}

RecordSheet insiderSheet(const kit::InsiderRow& row, const std::vector<kit::FilingRecord>& records,
                         kit::Instant now) {
    RecordSheet sheet{.lead = titleText(row.person, kLongestField),
                      .note = titleText(row.title.value_or(row.company), kLongestField),
                      .when = recordDayText(row.lastDay, now),
                      .link = openableLink(row.link.value_or("")),
                      .linkText = RecordSheetText::tr("Opens at the SEC")};
    std::vector<std::size_t> places;
    const auto lines = insiderLines({row}, true, now, places);
    if (!lines.empty()) {
        const auto decision = std::ranges::find(lines, false, &InsiderLine::isQuiet);
        const auto& main = decision == lines.end() ? lines.front() : *decision;
        sheet.title = RecordSheetText::tr("%1 %2 shares").arg(main.did, main.shares);
    }
    for (const auto& line : lines) {
        add(sheet, {.kind = SheetLineKind::Row,
                    .lead = line.did,
                    .text = line.shares,
                    .note = line.average.isEmpty()
                                ? line.value
                                : RecordSheetText::tr("%1 at %2").arg(line.value, line.average)});
    }
    if (row.shareOfHolding)
        addFact(sheet, RecordSheetText::tr("Of holding"),
                RecordSheetText::tr("%1 % of what was held directly")
                    .arg(QLocale().toString(*row.shareOfHolding, 'f', 0)));
    if (row.heldAfter) addFact(sheet, RecordSheetText::tr("Remain"), sharesText(*row.heldAfter));
    addFact(sheet, RecordSheetText::tr("Plan"), tradingPlanText(row.plan, row.planDay, now));
    if (!lines.empty()) addFact(sheet, RecordSheetText::tr("Also"), lines.back().note);
    for (const auto& record : records) addTrades(sheet, record, now);
    if (row.notice) addNotice(sheet, *row.notice, now);
    add(sheet, {.kind = SheetLineKind::Text,
                .text = RecordSheetText::tr(
                    "Sums and averages are the desk’s. Dollars as the form gives them.")});
    sheet.copy = QStringList{sheet.lead, sheet.note, sheet.title, sheet.when, sheet.link}.join(
        QStringLiteral(" · "));
    return sheet;
}

RecordSheet pressSheet(const kit::PressRow& row, kit::Instant now) {
    const auto& release = row.item.release;
    RecordSheet sheet{.lead = titleText(row.company, kLongestField),
                      .badge = titleText(release.symbol.value_or(""), kLongestField),
                      .when = agoText(release.published.value_or(row.item.firstSeen), now),
                      .title = titleText(release.title, kTitleCharacters),
                      .link = openableLink(release.link.value_or("")),
                      .linkText = RecordSheetText::tr("Open the release")};
    sheet.copy = QStringList{sheet.lead, sheet.title, sheet.link}.join(QStringLiteral(" · "));
    if (release.published)
        addFact(sheet, RecordSheetText::tr("Published"), momentText(*release.published, now));
    addFact(sheet, RecordSheetText::tr("Seen by us"), momentText(row.item.firstSeen, now));
    addFact(sheet, RecordSheetText::tr("From"), titleText(row.item.feed, kLongestField));
    if (!release.summary.empty())
        add(sheet,
            {.kind = SheetLineKind::Text, .text = bodyText(release.summary, kLongestParagraph)});
    if (row.filing) {
        add(sheet, {.kind = SheetLineKind::Link,
                    .lead = RecordSheetText::tr("Also filed with the SEC"),
                    .text = titleText(row.filing->form, kLongestField),
                    .note = recordDayText(row.filing->filed, now),
                    .link = openableLink(row.filing->indexURL.value_or(""))});
    }
    return sheet;
}

}  // namespace app
