#include "NewsroomKit/Archive/TraceResult.h"

namespace newsroom {

std::string_view TraceNode::relationWording() const {
    if (relation == "linked") return kLinkedAs;
    if (relation == "named") return kNamedAs;
    return {};
}

}  // namespace newsroom
