#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QList>
#include <QObject>
#include <QString>
#include <qqmlregistration.h>

namespace app {

/// A piece of a row's text: matched letters stand out.
struct PalettePart {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(bool isMatch MEMBER isMatch)

public:
    QString text{};
    bool isMatch = false;

    bool operator==(const PalettePart&) const = default;
};

/// What has been typed, as words that must all be found, whatever their case and accents.
class PaletteQuery {
public:
    PaletteQuery() = default;
    explicit PaletteQuery(const QString& typed);

    bool isEmpty() const { return words_.empty(); }

    struct Match {
        int rank = 0;  ///< the lower the better: words found inside other words
        QList<PalettePart> parts{};
    };
    /// Nothing when a word is missing. Where a word is found more than once, the beginning
    /// of a word counts.
    std::optional<Match> match(const QString& text) const;

private:
    std::vector<std::string> words_;  ///< folded
};

/// Text of which nothing was looked for.
QList<PalettePart> unmatched(const QString& text);

}  // namespace app
