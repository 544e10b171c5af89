#pragma once

#include <span>
#include <string_view>
#include <vector>

#include <QString>

#include "NewsroomKit/Queries/TermMarks.h"

namespace app {

/// A piece of a text whose matches are marked.
struct MarkedPiece {
    QString text{};
    bool isMatch = false;

    bool operator==(const MarkedPiece&) const = default;
};

/// The text as titleText shows it, in pieces. Where the first mark lies far behind the beginning,
/// the pieces begin shortly before it, with "…", so that a line shows the mark.
std::vector<MarkedPiece> markedPieces(std::string_view text, std::span<const kit::TextRange> marks,
                                      int longest);

}  // namespace app
