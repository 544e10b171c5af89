#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "Tarnwick_Brell/Storage/SQLite/Database.h"
#include "Tarnwick_Brell/Storage/Tables/RecordTable.h"

namespace app {

/// The user's corrections. A change stamps its stories, so that every desk that follows the library
/// reads them again.
class CorrectionTable {
public:
    explicit CorrectionTable(Database& database);

    /// In the order in which they were made. Those that this version can't read are left out, and
    /// stay as they are.
    std::vector<kit::Correction> all();
    /// Those that were undone, the last one first.
    std::vector<kit::Correction> removed();

    /// What they say in the end; never null. Kept until this program changes them or reload().
    const std::shared_ptr<const kit::CorrectionOverlay>& overlay();
    void reload() { overlay_.reset(); }

    // Within a transaction of LocalStore; each returns its stamp.

    std::int64_t put(const kit::Correction& correction);
    /// Does nothing where there is none with that id.
    std::int64_t remove(std::string_view id, kit::Instant now);
    std::int64_t restore(std::string_view id);

private:
    std::int64_t stampStoriesOf(const std::vector<kit::Correction>& corrections,
                                std::string_view id);

    Database& database_;
    RecordTable records_;
    std::shared_ptr<const kit::CorrectionOverlay> overlay_;
};

}  // namespace app
