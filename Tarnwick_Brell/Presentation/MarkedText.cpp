#include "Tarnwick_Brell/Presentation/MarkedText.h"

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

/// Bytes before the first mark that are shown in any case, and that are left when it is further
/// away.
constexpr std::size_t kLeadMost = 70;
constexpr std::size_t kLead = 30;

/// Where to begin so that the first mark is seen: behind a space.
std::size_t shownFrom(std::string_view text, std::span<const kit::TextRange> marks) {
    if (marks.empty() || marks.front().begin <= kLeadMost) return 0;
    const auto space = text.rfind(' ', marks.front().begin - kLead);
    return space == std::string_view::npos ? 0 : space + 1;
}

class PieceList {
public:
    explicit PieceList(int longest) : left_(longest) {}

    void add(std::string_view text, bool isMatch) {
        if (left_ <= 0) return;
        // titleText trims; the letters around keep the spaces at both ends.
        const auto guard = QStringLiteral("|");
        auto shown = titleText("|" + std::string(text) + "|", left_ + 2);
        const bool isCut = !shown.endsWith(guard);
        shown = shown.mid(1, shown.size() - (isCut ? 1 : 2));
        if (pieces_.empty() || pieces_.back().text.endsWith(u' ')) {
            while (shown.startsWith(u' ')) shown.remove(0, 1);
        }
        left_ = isCut ? 0 : left_ - static_cast<int>(shown.size());
        if (!shown.isEmpty()) pieces_.push_back({.text = shown, .isMatch = isMatch});
    }

    std::vector<MarkedPiece> take() { return std::move(pieces_); }

private:
    int left_;
    std::vector<MarkedPiece> pieces_;
};

}  // namespace

std::vector<MarkedPiece> markedPieces(std::string_view text, std::span<const kit::TextRange> marks,
                                      int longest) {
    PieceList pieces(longest);
    std::size_t at = shownFrom(text, marks);
    if (at > 0) pieces.add("…", false);
    for (const auto& mark : marks) {
        pieces.add(text.substr(at, mark.begin - at), false);
        pieces.add(text.substr(mark.begin, mark.end - mark.begin), true);
        at = mark.end;
    }
    pieces.add(text.substr(at), false);
    return pieces.take();
}

}  // namespace app
