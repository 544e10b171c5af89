#include "Tarnwick_Brell/Models/Stories/StoryDocument.h"

#include <algorithm>
#include <array>

#include <QBuffer>
#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTextDocument>

namespace app {

namespace {

struct StoryDocumentText {
    Q_DECLARE_TR_FUNCTIONS(StoryDocument)
};

constexpr double kPrintedPoints = 10.5;
constexpr QMarginsF kPrintedMargins{20, 20, 20, 20};  // millimetres

/// Classes of paragraphs, since Qt enlarges what headings are given as their size.
constexpr const char* kStyle =
    ".title { font-size: 17pt; font-weight: 700; margin-bottom: 8px; }"
    ".heading { font-size: 12pt; font-weight: 700; margin-top: 18px; margin-bottom: 6px; }"
    "p { margin-top: 0px; margin-bottom: 5px; }"
    ".quiet { color: #555555; }"
    "a { color: #0b4f9e; }";

/// A parenthesis would end the address in the PDF, where Qt writes it as it is.
QString linkAddress(QString link) {
    link.replace(u'(', QStringLiteral("%28")).replace(u')', QStringLiteral("%29"));
    return link.replace(u'\\', QStringLiteral("%5C")).toHtmlEscaped();
}

QString linked(const QString& link, const QString& text) {
    if (link.isEmpty()) return text.toHtmlEscaped();
    return QStringLiteral("<a href=\"%1\">%2</a>").arg(linkAddress(link), text.toHtmlEscaped());
}

QString paragraph(const QString& html, bool isQuiet = false) {
    if (html.isEmpty()) return {};
    return QStringLiteral("<p%1>%2</p>\n")
        .arg(isQuiet ? QStringLiteral(" class=\"quiet\"") : QString(), html);
}

QString heading(const QString& text) {
    return QStringLiteral("<p class=\"heading\">%1</p>\n").arg(text.toHtmlEscaped());
}

/// "Tide Post → Harbour Times, by Ann". A name that is written from the right would swap places
/// with its neighbour unless it is isolated.
QString origin(const StoryDocument& document) {
    const auto isolated = [](const QString& name) { return QChar(0x2068) + name + QChar(0x2069); };
    auto text = isolated(document.source);
    if (!document.destination.isEmpty())
        text += QStringLiteral(" → ") + isolated(document.destination);
    if (!document.author.isEmpty()) text += QStringLiteral(", ") + isolated(document.author);
    return text.toHtmlEscaped();
}

QString excerpt(const StoryDocument& document) {
    if (document.text.isEmpty())
        return paragraph(StoryDocumentText::tr("The feed has no excerpt of this story."), true);
    QString html;
    for (const auto& line : document.text.split(u'\n')) html += paragraph(line.toHtmlEscaped());
    return html;
}

QString wordings(const StoryDocument& document) {
    if (document.wordings.empty()) return {};
    auto html = heading(StoryDocumentText::tr("Earlier headlines"));
    for (const auto& [until, title] : document.wordings)
        html += paragraph(StoryDocumentText::tr("%1: “%2”").arg(until, title).toHtmlEscaped());
    return html;
}

QString credits(const StoryDocument& document) {
    if (document.credits.empty()) return {};
    auto html = heading(StoryDocumentText::tr("Credits"));
    for (const auto& [name, link, detail] : document.credits) {
        const auto rest = detail.isEmpty() ? QString() : u' ' + detail.toHtmlEscaped();
        html += paragraph(linked(link, name) + rest);
    }
    return html;
}

QString timeline(const StoryDocument& document) {
    if (document.timelineTitle.isEmpty()) return {};
    auto html = heading(document.timelineTitle) +
                paragraph(document.timelineFact.toHtmlEscaped(), true) +
                QStringLiteral("<table cellpadding=\"4\">");
    const auto cell = [](const QString& text) {
        return QStringLiteral("<td>%1</td>").arg(text.toHtmlEscaped());
    };
    for (const auto& row : document.timeline)
        html += QStringLiteral("<tr>") + cell(row.time) + cell(row.outlet) + cell(row.title) +
                cell(row.lead) + QStringLiteral("</tr>");
    return html + QStringLiteral("</table>\n");
}

}  // namespace

QString htmlOf(const StoryDocument& document) {
    auto html = QStringLiteral("<p class=\"title\">%1</p>\n").arg(document.title.toHtmlEscaped());
    html += paragraph(origin(document));
    html += paragraph(document.published.toHtmlEscaped(), true);
    html += paragraph(linked(document.link, document.link));
    for (const auto& label : document.labels) html += paragraph(label.toHtmlEscaped(), true);
    html += QStringLiteral("<hr>") + excerpt(document) + wordings(document) + credits(document) +
            timeline(document) + QStringLiteral("<hr>");
    return html + paragraph(document.made.toHtmlEscaped(), true);
}

QPageSize paperOf(const QLocale& locale) {
    // Of the countries in the Common Locale Data Repository whose paper is not A4.
    static constexpr std::array kLetter{
        QLocale::Belize,       QLocale::Canada,     QLocale::Chile,       QLocale::Colombia,
        QLocale::CostaRica,    QLocale::ElSalvador, QLocale::Guatemala,   QLocale::Mexico,
        QLocale::Nicaragua,    QLocale::Panama,     QLocale::Philippines, QLocale::PuertoRico,
        QLocale::UnitedStates, QLocale::Venezuela};
    const bool isLetter = std::ranges::find(kLetter, locale.territory()) != kLetter.end();
    return QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4);
}

void print(const StoryDocument& document, QPagedPaintDevice& device) {
    QTextDocument text;
    auto font = QGuiApplication::font();
    font.setPointSizeF(kPrintedPoints);
    text.setDefaultFont(font);
    text.setDefaultStyleSheet(QString::fromLatin1(kStyle));
    text.setHtml(htmlOf(document));
    text.print(&device);
}

QByteArray pdfOf(const StoryDocument& document, const QPageSize& paper) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(paper);
    writer.setPageMargins(kPrintedMargins, QPageLayout::Millimeter);
    writer.setTitle(document.title);
    writer.setCreator(QStringLiteral("Tarnwick Brell"));
    print(document, writer);
    return bytes;
}

}  // namespace app
