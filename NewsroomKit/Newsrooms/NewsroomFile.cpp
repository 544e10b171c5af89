#include "NewsroomKit/Newsrooms/NewsroomFile.h"

#include "NewsroomKit/Newsrooms/NewsroomLimits.h"
#include "NewsroomKit/Newsrooms/PanelPlacement.h"

namespace kit {

namespace {

/// Runs before the rest is read, because a newer version may have any form.
void requireKnownVersion(const json::value& value) {
    if (!value.is_object()) return;
    const auto* version = value.get_object().if_contains("version");
    if (version && version->is_int64() && version->get_int64() > NewsroomSpec::kVersion)
        throw RecordError("version", "the newsroom was made by a newer version of the desk");
}

}  // namespace

std::string NewsroomFile::write(const NewsroomSpec& spec) {
    return json::serialize(encode(spec)) + "\n";
}

NewsroomSpec NewsroomFile::read(std::string_view bytes) {
    if (bytes.size() > NewsroomLimits::kFileBytes)
        throw RecordError("", "the file is larger than a newsroom can be");
    const auto value = parseJSON(bytes);
    requireKnownVersion(value);
    auto spec = decode<NewsroomSpec>(value);
    NewsroomLimits::require(spec);
    if (spec.origin == NewsroomSpec::Origin::builtIn) spec.origin = NewsroomSpec::Origin::manual;
    const auto tidy = PanelPlacement::tidied(PanelPlacement::of(spec.panels));
    for (std::size_t i = 0; i < tidy.size(); ++i) spec.panels[i].frame = tidy[i].frame;
    return spec;
}

}  // namespace kit
