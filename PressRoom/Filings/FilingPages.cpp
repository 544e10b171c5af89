#include "PressRoom/Filings/FilingPages.h"

#include <utility>
#include <vector>

#include <boost/json.hpp>
#include <fmt/format.h>

#include "PressRoom/Filings/FilingDates.h"
#include "PressRoom/World/Markup.h"

namespace pressroom {
namespace {

namespace json = boost::json;
using std::chrono::sys_seconds;

struct ArchivedDocument {
    std::string type;
    std::string file;
    std::string title;
};

std::string formFile(const WorldFiling& filing) {
    return filing.notice ? "primary_doc.xml" : "form4.xml";
}

bool hasForm(const WorldFiling& filing) { return filing.insiders || filing.notice; }

std::vector<WorldFilingDocument> writtenDocuments(const WorldFiling& filing) {
    return filing.documents.value_or(std::vector<WorldFilingDocument>());
}

std::vector<ArchivedDocument> archivedDocuments(const WorldFiling& filing) {
    std::vector<ArchivedDocument> documents;
    if (hasForm(filing))
        documents.push_back({filing.form, formFile(filing), "FORM " + filing.form});
    for (const auto& document : writtenDocuments(filing))
        documents.push_back({document.type, document.file, document.type});
    return documents;
}

/// Main documents have hidden numbers, exhibits have a head that says what they are.
std::string documentHTML(const WorldFilingDocument& document) {
    const bool isExhibit = document.type.starts_with("EX-");
    std::string body =
        isExhibit ? fmt::format("<p>Exhibit {}</p>\n", document.type.substr(3))
                  : std::string(
                        "<ix:header><ix:hidden><ix:nonNumeric name=\"dei:Hidden\">0000 hidden"
                        "</ix:nonNumeric></ix:hidden></ix:header>\n"
                        "<p>UNITED STATES SECURITIES AND EXCHANGE COMMISSION</p>\n");
    body += fmt::format("<p><b>{}</b></p>\n", escaped(document.title));
    for (const auto& paragraph : document.paragraphs) body += element("p", paragraph) + "\n";
    return fmt::format(
        "<html "
        "xmlns:ix=\"http://www.xbrl.org/2013/inlineXBRL\"><head><title>Document</title></head>"
        "<body><div>\n{}</div></body></html>\n",
        body);
}

std::string indexRow(const WorldFiler& filer, std::string_view folder,
                     const ArchivedDocument& document, std::size_t number) {
    const auto path =
        fmt::format("/Archives/edgar/data/{}/{}/{}", filer.cik, folder, document.file);
    const bool isInline = document.type == "8-K" || document.type.starts_with("10-");
    return fmt::format(
        "<tr><td scope=\"row\">{}</td><td scope=\"row\">{}</td><td scope=\"row\"><a "
        "href=\"{}{}\">{}"
        "</a></td><td scope=\"row\">{}</td><td scope=\"row\">9142</td></tr>\n",
        number, escaped(document.title), isInline ? "/ix?doc=" : "", path, document.file,
        escaped(document.type));
}

std::string partHead(const ArchivedDocument& document, std::size_t number) {
    return fmt::format(
        "<DOCUMENT>\n<TYPE>{}\n<SEQUENCE>{}\n<FILENAME>{}\n<DESCRIPTION>{}\n<TEXT>\n",
        document.type, number, document.file, document.title);
}

}  // namespace

std::string filingIndexPage(const WorldFiler& filer, const WorldFiling& filing,
                            sys_seconds anchor) {
    const auto accession = accessionOf(filer, filing, anchor);
    auto folder = accession;
    std::erase(folder, '-');
    auto time = newYorkTime(acceptanceOf(filing, anchor)).substr(0, 19);
    time[10] = ' ';
    std::string rows;
    std::size_t number = 0;
    for (const auto& document : archivedDocuments(filing))
        rows += indexRow(filer, folder, document, ++number);
    const auto period = periodOf(filing, anchor);
    return fmt::format(
        "<!DOCTYPE html>\n<html><head><title>EDGAR Filing Documents for {0}</title></head><body>"
        "<div id=\"formHeader\"><div id=\"secNum\"><strong>SEC Accession No.</strong> "
        "{0}</div></div>"
        "<div class=\"formContent\"><div class=\"formGrouping\"><div class=\"infoHead\">Filing Date"
        "</div><div class=\"info\">{1}</div><div class=\"infoHead\">Accepted</div>"
        "<div class=\"info\">{2}</div></div>{3}</div>\n<table class=\"tableFile\" "
        "summary=\"Document Format Files\"><tr><th>Seq</th><th>Description</th><th>Document</th>"
        "<th>Type</th><th>Size</th></tr>\n{4}<tr><td>&nbsp;</td><td>Complete submission text file"
        "</td><td><a href=\"/Archives/edgar/data/{5}/{6}/{0}.txt\">{0}.txt</a></td><td>&nbsp;</td>"
        "<td>31000</td></tr>\n</table></body></html>\n",
        accession, filingDay(filing, anchor), time,
        period ? fmt::format("<div class=\"formGrouping\"><div class=\"infoHead\">Period of Report"
                             "</div><div class=\"info\">{}</div></div>",
                             *period)
               : std::string(),
        rows, filer.cik, folder);
}

std::string filingFolder(const WorldFiling& filing) {
    json::array items;
    for (const auto& document : archivedDocuments(filing)) {
        items.push_back(json::object{{"last-modified", "2026-01-19 16:21:45"},
                                     {"name", document.file},
                                     {"type", "text.gif"},
                                     {"size", ""}});
    }
    return json::serialize(json::object{{"directory", json::object{{"item", std::move(items)}}}});
}

std::string submissionText(const WorldFiler& filer, const WorldFiling& filing, sys_seconds anchor) {
    const auto accession = accessionOf(filer, filing, anchor);
    const auto day = digitsOf(filingDay(filing, anchor));
    auto text = fmt::format(
        "<SEC-DOCUMENT>{0}.txt : {1}\n<SEC-HEADER>{0}.hdr.sgml : {1}\n<ACCEPTANCE-DATETIME>{2}\n"
        "ACCESSION NUMBER:\t\t{0}\nCONFORMED SUBMISSION TYPE:\t{3}\nFILED AS OF DATE:\t\t{1}\n"
        "</SEC-HEADER>\n",
        accession, day, digitsOf(newYorkTime(acceptanceOf(filing, anchor))), filing.form);
    std::size_t number = 0;
    if (hasForm(filing)) {
        // The form does not begin where the file does, which strict parsers dislike.
        text += partHead({filing.form, formFile(filing), "FORM " + filing.form}, ++number) +
                "<XML>\n" + formXML(filer, filing, anchor) + "</XML>\n</TEXT>\n</DOCUMENT>\n";
    }
    for (const auto& document : writtenDocuments(filing)) {
        text += partHead({document.type, document.file, document.type}, ++number) +
                documentHTML(document) + "</TEXT>\n</DOCUMENT>\n";
    }
    return text + "</SEC-DOCUMENT>\n";
}

std::optional<std::string> filingDocument(const WorldFiler& filer, const WorldFiling& filing,
                                          std::string_view file, sys_seconds anchor) {
    if (hasForm(filing) && file == formFile(filing)) return formXML(filer, filing, anchor);
    for (const auto& document : writtenDocuments(filing)) {
        if (file == document.file) return documentHTML(document);
    }
    return std::nullopt;
}

}  // namespace pressroom
