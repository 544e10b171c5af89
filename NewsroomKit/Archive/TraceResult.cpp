#include "NewsroomKit/Archive/TraceResult.h"

namespace kit {

std::string_view TraceNode::relationWording() const {
    if (relation == "linked") return kLinkedAs;
    if (relation == "named") return kNamedAs;
    return {};
}

}  // namespace kit
