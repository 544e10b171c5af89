#include "Tarnwick_Brell/Storage/Tables/CorrectionTable.h"

#include <fmt/format.h>

#include "NewsroomKit/Records/Codec.h"
#include "Tarnwick_Brell/Storage/SQLite/Instants.h"
#include "Tarnwick_Brell/Storage/Tables/DeskState.h"

namespace app {

namespace {

std::vector<kit::Correction> readable(const std::vector<RecordTable::Row>& rows) {
    std::vector<kit::Correction> corrections;
    for (const auto& row : rows) {
        try {
            auto correction = kit::decode<kit::Correction>(kit::parseJSON(row.record));
            kit::requireSound(correction);
            corrections.push_back(std::move(correction));
        } catch (const kit::RecordError&) {
            // Of a newer version, which can still read it.
        }
    }
    return corrections;
}

}  // namespace

CorrectionTable::CorrectionTable(Database& database)
    : database_(database), records_(database, "corrections") {}

std::vector<kit::Correction> CorrectionTable::all() { return readable(records_.all()); }

std::vector<kit::Correction> CorrectionTable::removed() { return readable(records_.removed()); }

const std::shared_ptr<const kit::CorrectionOverlay>& CorrectionTable::overlay() {
    if (!overlay_) overlay_ = std::make_shared<const kit::CorrectionOverlay>(all());
    return overlay_;
}

std::int64_t CorrectionTable::put(const kit::Correction& correction) {
    // Ranks are compared as text. Corrections of one moment follow each other by their ids.
    records_.put({.id = correction.id,
                  .record = boost::json::serialize(kit::encode(correction)),
                  .rank = fmt::format("{:020}", microseconds(correction.madeAt))});
    return stampStoriesOf({correction}, correction.id);
}

std::int64_t CorrectionTable::remove(std::string_view id, kit::Instant now) {
    const auto known = all();
    records_.remove(id, now);
    return stampStoriesOf(known, id);
}

std::int64_t CorrectionTable::restore(std::string_view id) {
    const auto known = removed();
    records_.restore(id);
    return stampStoriesOf(known, id);
}

std::int64_t CorrectionTable::stampStoriesOf(const std::vector<kit::Correction>& corrections,
                                             std::string_view id) {
    reload();
    const auto stamp = DeskState(database_).nextStamp();
    Statement update(database_, "UPDATE stories SET stamp = ? WHERE id = ?");
    for (const auto& correction : corrections) {
        if (correction.id != id) continue;
        for (const auto& story : correction.stories) {
            update.bind(0, stamp).bind(1, story);
            update.run();
        }
    }
    return stamp;
}

}  // namespace app
