#include "Tarnwick_Brell/Presentation/ShownText.h"

#include <QCoreApplication>
#include <QStringList>
#include <QTextBoundaryFinder>

#include "NewsroomKit/Addresses/WebAddress.h"

namespace app {

namespace {

/// Direction overrides and isolates left open would turn the text around that follows.
bool turnsText(QChar c) {
    const auto code = c.unicode();
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

bool isControl(QChar c) { return c.category() == QChar::Other_Control || c.isNull(); }

QString oneLine(QString text) {
    for (auto& c : text) {
        if (isControl(c)) c = u' ';
    }
    text.removeIf([](QChar c) { return turnsText(c); });
    return text.simplified();
}

QString cut(const QString& text, int longest) {
    // A letter may carry thousands of marks, so that characters alone don't bound the size.
    const qsizetype mostUnits = qsizetype{8} * longest;
    if (text.size() <= longest) return text;
    // QTextBoundaryFinder scans its whole input up front.
    const auto head = text.left(mostUnits);
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, head);
    qsizetype keep = 0;
    int count = 0;
    for (auto next = characters.toNextBoundary(); next >= 0; next = characters.toNextBoundary()) {
        if (++count < longest) keep = next;
    }
    const bool fits = count <= longest && text.size() <= mostUnits;
    return fits ? text : text.left(keep).trimmed() + u'…';
}

}  // namespace

QString plainText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString labelText(std::string_view label, int longest) {
    return cut(oneLine(QCoreApplication::translate("Label", std::string(label).c_str())), longest);
}

QString openableLink(std::string_view address) {
    return kit::isOpenable(address) ? plainText(address) : QString();
}

QString titleText(std::string_view text, int longest) {
    return cut(oneLine(plainText(text)), longest);
}

QString bodyText(std::string_view text, int longest) {
    QStringList lines;
    for (const auto& line : plainText(text).split(u'\n')) {
        if (const auto clean = oneLine(line); !clean.isEmpty()) lines.push_back(clean);
    }
    return cut(lines.join(u'\n'), longest);
}

}  // namespace app
