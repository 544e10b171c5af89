#include "Tarnwick_Brell/Window/PseudoTranslator.h"

#include <string_view>

#include <QtGlobal>

namespace app {

namespace {

constexpr QChar kRightToLeftOverride(0x202E);
constexpr QChar kEndOfOverride(0x202C);

QChar accented(QChar letter) {
    static const QString kPlain = QStringLiteral("aceginorsuyACEGINORSUY");
    static const QString kAccented = QStringLiteral("áçéğíñóřšúýÁÇÉĞÍÑÓŘŠÚÝ");
    const auto place = kPlain.indexOf(letter);
    return place < 0 ? letter : kAccented[place];
}

/// Leaves "%1" and "%n" as they are.
QString lengthened(const QString& text) {
    QString longer;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'%' && i + 1 < text.size()) {
            longer += text[i];
            longer += text[++i];
        } else {
            longer += accented(text[i]);
        }
    }
    return longer + QString(text.size() / 2, u'~');
}

}  // namespace

PseudoTranslator::Language PseudoTranslator::ofEnvironment() {
    for (const auto* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const auto locale = qgetenv(name);
        if (locale.isEmpty()) continue;
        if (locale.startsWith("en_XA")) return Language::accented;
        return locale.startsWith("ar_XB") ? Language::mirrored : Language::none;
    }
    return Language::none;
}

PseudoTranslator::PseudoTranslator(Language language, const QTranslator& english, QObject* parent)
    : QTranslator(parent), language_(language), english_(english) {}

QString PseudoTranslator::translate(const char* context, const char* source, const char* note,
                                    int count) const {
    // With this text Qt asks for the direction of the language.
    if (source == std::string_view("QT_LAYOUT_DIRECTION"))
        return language_ == Language::mirrored ? QStringLiteral("RTL") : QStringLiteral("LTR");
    auto text = english_.translate(context, source, note, count);
    if (text.isEmpty()) text = QString::fromUtf8(source);
    if (language_ == Language::accented) return u'[' + lengthened(text) + u']';
    return kRightToLeftOverride + QStringLiteral("[") + text + u']' + kEndOfOverride;
}

}  // namespace app
