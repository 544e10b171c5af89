#pragma once

#include <functional>
#include <vector>

#include "NewsroomKit/Panels/FilingsContent.h"
#include "NewsroomKit/Panels/InsidersContent.h"
#include "NewsroomKit/Panels/PressContent.h"
#include "Tarnwick_Brell/Models/Pages/RecordRows.h"

/// One record in full.
namespace app {

struct RecordSheet {
    QString lead{};   ///< who
    QString badge{};  ///< the form
    QString note{};   ///< beside the lead
    QString when{};
    QString title{};
    QString link{};
    QString linkText{};  ///< "Opens at the SEC"
    QString copy{};      ///< as a line of plain text
    std::vector<SheetLine> lines{};
};

/// The text of a document that is unfolded: its lines, or why there are none yet.
struct UnfoldedText {
    std::vector<std::string> lines{};
    QString message{};
};

/// Nothing for a document that is folded.
using DocumentTexts =
    std::function<std::optional<UnfoldedText>(const kit::FilingDocument& document)>;

RecordSheet filingSheet(const kit::FilingRecord& record, const DocumentTexts& texts,
                        kit::Instant now);

/// `records` are those of the row's forms, as far as they are known.
RecordSheet insiderSheet(const kit::InsiderRow& row, const std::vector<kit::FilingRecord>& records,
                         kit::Instant now);

RecordSheet pressSheet(const kit::PressRow& row, kit::Instant now);

}  // namespace app
