#include "Tarnwick_Brell/Models/Actions/PaletteMatch.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <QStringList>

#include "NewsroomKit/Text/Folding.h"
#include "NewsroomKit/Text/Unicode.h"
#include "NewsroomKit/Text/Utf8.h"

namespace app {

namespace {

/// A text and its folded form, with the way back.
class FoldedText {
public:
    explicit FoldedText(std::string_view text) {
        bool inWord = false;
        for (std::size_t at = 0; at < text.size();) {
            const auto decoded = kit::decodeUTF8(text, at);
            const auto before = folded_.size();
            kit::appendFolded(text.substr(at, decoded.length), folded_);
            // A mark that folding drops belongs to the letter before it.
            if (folded_.size() > before) {
                const bool isWord = kit::isLetter(decoded.value) || kit::isNumber(decoded.value);
                if (isWord && !inWord) wordStarts_.push_back(before);
                inWord = isWord;
            }
            origins_.resize(folded_.size(), at);
            at += decoded.length;
        }
        origins_.push_back(text.size());
    }

    struct Destination {
        std::size_t at = 0;
        bool isWordStart = false;
    };
    std::optional<Destination> find(std::string_view word) const {
        for (const auto start : wordStarts_) {
            if (std::string_view(folded_).substr(start).starts_with(word))
                return Destination{start, true};
        }
        const auto inside = folded_.find(word);
        return inside == std::string::npos ? std::nullopt
                                           : std::optional(Destination{inside, false});
    }

    /// The bytes of the text that folded to these; whole characters.
    std::pair<std::size_t, std::size_t> origin(std::size_t begin, std::size_t end) const {
        while (end + 1 < origins_.size() && origins_[end] == origins_[end - 1]) ++end;
        return {origins_[begin], origins_[end]};
    }

private:
    std::string folded_;
    std::vector<std::size_t> origins_;  ///< of each folded byte, and of the end
    std::vector<std::size_t> wordStarts_;
};

QString qt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The ranges may overlap.
QList<PalettePart> cut(std::string_view text,
                       std::vector<std::pair<std::size_t, std::size_t>> ranges) {
    std::ranges::sort(ranges);
    QList<PalettePart> parts;
    std::size_t told = 0;
    for (auto [begin, end] : ranges) {
        begin = std::max(begin, told);
        if (end <= begin) continue;
        if (begin > told) parts.append({qt(text.substr(told, begin - told)), false});
        const auto piece = qt(text.substr(begin, end - begin));
        if (!parts.empty() && parts.last().isMatch) {
            parts.last().text += piece;
        } else {
            parts.append({piece, true});
        }
        told = end;
    }
    if (told < text.size()) parts.append({qt(text.substr(told)), false});
    return parts;
}

}  // namespace

PaletteQuery::PaletteQuery(const QString& typed) {
    const auto words = typed.simplified().split(u' ', Qt::SkipEmptyParts);
    for (const auto& word : words) {
        auto folded = kit::fold(word.toStdString());
        if (!folded.empty()) words_.push_back(std::move(folded));
    }
}

std::optional<PaletteQuery::Match> PaletteQuery::match(const QString& text) const {
    const auto utf8 = text.toStdString();
    const FoldedText folded(utf8);
    std::vector<std::pair<std::size_t, std::size_t>> ranges;
    int rank = 0;
    for (const auto& word : words_) {
        const auto place = folded.find(word);
        if (!place) return std::nullopt;
        if (!place->isWordStart) ++rank;
        ranges.push_back(folded.origin(place->at, place->at + word.size()));
    }
    return Match{rank, cut(utf8, std::move(ranges))};
}

QList<PalettePart> unmatched(const QString& text) { return {{text, false}}; }

}  // namespace app
