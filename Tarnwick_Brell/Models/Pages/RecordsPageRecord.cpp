#include <algorithm>

#include "Tarnwick_Brell/Models/Pages/RecordsPageModel.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Storage/Settings/Defaults.h"

// The chosen record.
namespace app {

void RecordsPageModel::showChosen() {
    sheet_ = {};
    if (row_ < 0) {
        lines_.setRows({});
        entries_.setRows({});
        caseNote_.clear();
        entriesFact_.clear();
        return;
    }
    const auto place = static_cast<std::size_t>(row_);
    if (tab_ == Court) {
        showCase();
        return;
    }
    if (tab_ == Filings) {
        const auto& accession = filingRows_[place].filing.accession;
        const auto* filing = filingOf(accession);
        const auto record = recordIn(content_, accession);
        if (record && filing)
            sheet_ = filingSheet(
                *record,
                [&](const kit::FilingDocument& document) { return textOf(*filing, document); },
                now());
    } else if (tab_ == Insiders) {
        const auto& row = insiderRows_[insiderPlaces_[place]];
        std::vector<kit::FilingRecord> records;
        for (const auto& accession : row.accessions) {
            if (auto record = recordIn(content_, accession)) records.push_back(std::move(*record));
        }
        sheet_ = insiderSheet(row, records, now());
    } else {
        sheet_ = pressSheet(pressRows_[place], now());
    }
    lines_.setRows(sheet_.lines);
}

const kit::FollowedFiling* RecordsPageModel::filingOf(const std::string& accession) const {
    const auto found =
        std::ranges::find_if(content_.held.filings, [&](const kit::FollowedFiling& followed) {
            return followed.filing.accession == accession;
        });
    return found == content_.held.filings.end() ? nullptr : &*found;
}

/// The begin of an exhibit 99 came with the filing; everything else is fetched once it is unfolded.
std::optional<UnfoldedText> RecordsPageModel::textOf(const kit::FollowedFiling& filing,
                                                     const kit::FilingDocument& document) const {
    const bool isRelease = filing.release && filing.release->url == document.url;
    const bool isOpen =
        isRelease ? !folded_.contains(document.url) : unfolded_.contains(document.url);
    if (!isOpen) return std::nullopt;
    const auto& read = trackers().filingText(filing, document);
    if (read.value) return UnfoldedText{.lines = read.value->lines};
    if (read.error) return UnfoldedText{.message = titleText(*read.error, kExcerptCharacters)};
    if (isRelease) return UnfoldedText{.lines = filing.release->lines};
    return UnfoldedText{.message = tr("The text is being fetched…")};
}

void RecordsPageModel::readDocument(const QString& url) {
    if (tab_ != Filings || row_ < 0) return;
    const auto* filing = filingOf(filingRows_[static_cast<std::size_t>(row_)].filing.accession);
    if (filing == nullptr) return;
    const auto document =
        std::ranges::find(filing->documents, url.toStdString(), &kit::FilingDocument::url);
    if (document == filing->documents.end()) return;
    const bool isOpen = textOf(*filing, *document).has_value();
    const bool isRelease = filing->release && filing->release->url == document->url;
    auto& moved = isRelease ? folded_ : unfolded_;
    if (isOpen == isRelease) {
        moved.insert(document->url);
    } else {
        moved.erase(document->url);
    }
    if (!isOpen) trackers().readFilingText(*filing, *document);
    showChosen();
    emit changed();
}

void RecordsPageModel::actOnLine(int line) {
    const auto* found = lines_.row(line);
    if (found == nullptr) return;
    if (found->kind == SheetLineKind::Document) {
        readDocument(found->link);
    } else if (!found->link.isEmpty()) {
        openLink(found->link);
    }
}

void RecordsPageModel::openRow(int row) {
    setRow(row);
    if (row == row_ && !sheet_.link.isEmpty()) openLink(sheet_.link);
}

}  // namespace app
