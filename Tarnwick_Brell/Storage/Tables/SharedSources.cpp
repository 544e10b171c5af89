#include "Tarnwick_Brell/Storage/Tables/SharedSources.h"

#include "NewsroomKit/Sources/SourceJSON.h"
#include "NewsroomKit/Stories/CanonicalLink.h"
#include "NewsroomKit/Stories/StoryIdentity.h"
#include "Tarnwick_Brell/Storage/Tables/SyncRecorder.h"

namespace app {

std::string sharedSourceName(const kit::NewsSource& source) {
    return "f:" + kit::storyID(kit::canonicalLink(source.feedURL));
}

void recordSource(Database& database, const kit::NewsSource& source, kit::Instant addedAt) {
    auto record = kit::encode(source).get_object();
    record["addedAt"] = kit::encode(addedAt);
    SyncRecorder(database).changed(sharedSourceName(source), record);
}

void recordSourceChange(Database& database, const kit::NewsSource& former,
                        const kit::NewsSource& source, kit::Instant now) {
    const auto name = sharedSourceName(source);
    if (name != sharedSourceName(former)) {
        recordSourceRemoval(database, former);
        return recordSource(database, source, now);
    }
    // One by one: as a whole record it would lose when it was added.
    SyncRecorder recorder(database);
    recorder.fieldChanged(name, "name", source.name);
    recorder.fieldChanged(name, "feedURL", source.feedURL);
    recorder.fieldChanged(name, "siteURL", source.siteURL);
}

void recordSourceRemoval(Database& database, const kit::NewsSource& source) {
    SyncRecorder(database).removed(sharedSourceName(source));
}

}  // namespace app
