#include "Tarnwick_Brell/Desk/AddSourceError.h"

namespace app {

std::string AddSourceError::description() const {
    switch (kind) {
        case Kind::alreadyAdded: return detail + " is already one of your sources.";
        case Kind::invalidAddress: return "That doesn't look like a web address or a handle.";
        case Kind::empty: return "That feed has no stories in it.";
        case Kind::fetchFailed: return detail;
    }
    return {};
}

}  // namespace app
