#include "NewsroomKit/Signals/Signal.h"

namespace kit {

json::object Codec<json::object>::decode(const json::value& value) {
    if (!value.is_object()) throw RecordError("", "an object is expected");
    return value.get_object();
}

}  // namespace kit
