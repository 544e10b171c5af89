#include "Tarnwick_Brell/Storage/Tables/UntouchedNewsroom.h"

#include <cstddef>
#include <string>

#include <fmt/format.h>

#include "NewsroomKit/Newsrooms/NewsroomSpec.h"
#include "Tarnwick_Brell/Storage/Tables/RecordRank.h"

namespace app {

namespace {

kit::NewsroomSpec withFixedPanelIDs(kit::NewsroomSpec spec) {
    std::size_t number = 0;
    for (auto& panel : spec.panels) {
        panel.id =
            kit::UUID::parse(fmt::format("8B3D5F20-0000-4000-8001-{:012}", ++number)).value();
    }
    return spec;
}

kit::NewsroomSpec untouchedSpec() { return withFixedPanelIDs(kit::NewsroomSpec::builtIn()); }

}  // namespace

RecordTable::Row untouchedNewsroom() {
    return {.id = std::string(kit::NewsroomSpec::kBuiltInID),
            .record = kit::json::serialize(kit::encode(untouchedSpec())),
            .rank = rankBetween("", "")};
}

bool isUntouchedNewsroom(std::string_view record) {
    try {
        const auto spec = kit::decode<kit::NewsroomSpec>(kit::parseJSON(record));
        return withFixedPanelIDs(spec) == untouchedSpec();
    } catch (const kit::RecordError&) {
        return false;
    }
}

}  // namespace app
