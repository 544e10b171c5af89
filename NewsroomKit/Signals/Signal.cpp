#include "NewsroomKit/Signals/Signal.h"

namespace kit {

std::string signalDay(Instant instant) {
    return iso8601Text(instant).substr(0, std::string_view("2026-11-21").size());
}

json::object Codec<json::object>::decode(const json::value& value) {
    if (!value.is_object()) throw RecordError("", "an object is expected");
    return value.get_object();
}

}  // namespace kit
