#include "Tarnwick_Brell/Interface/Controls/NoteLook.h"

#include <array>
#include <utility>

#include <QRegularExpression>

namespace app {

namespace {

/// A line that is longer is data, not prose; regular expressions would take their time with it.
constexpr qsizetype kLongestMarkedLine = 5000;

/// States of a block, which Qt starts with -1.
enum NoteState { kProse = 0, kInCode = 1 };

}  // namespace

NoteLook::NoteLook(QObject* parent) : QSyntaxHighlighter(parent) {
    connect(this, &NoteLook::changed, this, &QSyntaxHighlighter::rehighlight);
}

void NoteLook::setTarget(QQuickTextDocument* target) {
    if (target_ == target) return;
    target_ = target;
    setDocument(target ? target->textDocument() : nullptr);
    emit changed();
}

void NoteLook::mark(const QString& text, const char* pattern, const QTextCharFormat& format) {
    const QRegularExpression expression(QString::fromLatin1(pattern));
    for (auto found = expression.globalMatch(text); found.hasNext();) {
        const auto match = found.next();
        const auto begin = static_cast<int>(match.capturedStart());
        const auto end = static_cast<int>(match.capturedEnd());
        // What other signs made of it stays: strong text in a link is both.
        for (int at = begin; at < end; ++at) {
            auto merged = this->format(at);
            merged.merge(format);
            setFormat(at, 1, merged);
        }
    }
}

void NoteLook::highlightBlock(const QString& text) {
    QTextCharFormat quiet, strong, emphasis, struck, code, link;
    quiet.setForeground(quiet_);
    strong.setFontWeight(QFont::DemiBold);
    emphasis.setFontItalic(true);
    struck.setFontStrikeOut(true);
    code.setFontFamilies({QStringLiteral("monospace")});
    code.setForeground(code_);
    link.setForeground(link_);

    const bool isFence = text.startsWith(QLatin1String("```"));
    const bool wasCode = previousBlockState() == kInCode;
    setCurrentBlockState(wasCode != isFence ? kInCode : kProse);
    if (wasCode || isFence) {
        setFormat(0, static_cast<int>(text.size()), isFence ? quiet : code);
        return;
    }
    if (text.size() > kLongestMarkedLine) return;
    const std::array looks{
        std::pair{R"(^#{1,6}\s.*)", strong},
        std::pair{R"((\*\*|__)(?=\S)(.+?)(?<=\S)\1)", strong},
        std::pair{R"((?<![\w*])(\*|_)(?=[^\s*_])([^*_]+?)(?<=\S)\1(?!\w))", emphasis},
        std::pair{R"(~~(?=\S).+?~~)", struck},
        std::pair{R"(`[^`]+`)", code},
        std::pair{R"(https?://[^\s<>)\]]+)", link},
        std::pair{R"(^#{1,6}\s|^\s*([-*+]|\d+[.)])\s(\[[ xX]\]\s)?|^\s*>+\s?|\*\*|~~)", quiet},
    };
    for (const auto& [pattern, format] : looks) mark(text, pattern, format);
}

}  // namespace app
