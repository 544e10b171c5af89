#include "NewsroomKit/Backend/BackendFinding.h"

namespace kit {
namespace {

FindingMeaning meaningOfArrival(WatchedSource source) {
    switch (source) {
        case WatchedSource::gdmf:
            return {"Managed devices can be told to install this build.",
                    "That everyone is offered it, or will be."};
        case WatchedSource::assets:
            return {"Devices can fetch this asset.",
                    "Which devices do, or that a feature uses it."};
        case WatchedSource::catalogue:
            return {"Macs that ask this catalogue can fetch it.",
                    "That it is for everyone, or what is new in it."};
        case WatchedSource::aasa:
            return {"Links with this path open in the app where it is installed.",
                    "That the path leads to anything yet."};
        case WatchedSource::robots:
            return {"Apple tells search engines how to treat these addresses.",
                    "What is at these addresses, or why."};
        case WatchedSource::sitemap:
            return {"Apple wants search engines to find this page.",
                    "That the page is new; a site map can list it late."};
        case WatchedSource::configuration:
        case WatchedSource::json:
        case WatchedSource::plist: break;
    }
    return {"Software that reads this file can act on it.",
            "Which versions read it, or that anybody notices."};
}

FindingMeaning meaningOfRemoval(WatchedSource source) {
    switch (source) {
        case WatchedSource::gdmf:
            return {
                "Managed devices are no longer told to install it. It usually leaves the list "
                "when a newer build replaces it.",
                "That devices that have it are affected."};
        case WatchedSource::assets:
        case WatchedSource::catalogue:
            return {"It can no longer be found in this list. A newer one often replaces it.",
                    "That copies that are installed stop working."};
        case WatchedSource::aasa:
            return {"Links with this path open in the browser again.", "That the app can do less."};
        case WatchedSource::robots:
            return {"The rule no longer holds for search engines.",
                    "That the pages are new, or that there are any."};
        case WatchedSource::sitemap:
            return {"Apple no longer lists this page for search engines.",
                    "That the page is gone."};
        case WatchedSource::configuration:
        case WatchedSource::json:
        case WatchedSource::plist: break;
    }
    return {"Software that reads this file goes back to what is built into it.",
            "What that is, or that anybody notices."};
}

}  // namespace

FindingMeaning meaningOf(WatchedSource source, FindingKind kind) {
    switch (kind) {
        case FindingKind::added: return meaningOfArrival(source);
        case FindingKind::removed: return meaningOfRemoval(source);
        case FindingKind::changed:
            if (source == WatchedSource::gdmf)
                return {"The build is meant for other devices than before.",
                        "That these devices are offered it."};
            return {"Software that reads this file can act on the new value.",
                    "Which versions read it, or that anybody notices."};
        case FindingKind::identifier:
            return {"A device that can take this build exists in Apple's files.",
                    "That it will be sold, when, or under which name."};
        case FindingKind::wentBack:
            return {"Apple took the change back, or one of its servers still has an earlier copy.",
                    "Which of the two it is."};
        case FindingKind::rebuilt:
            return {"The file was made anew, with other addresses for pages.",
                    "That the pages changed."};
    }
    return {};
}

}  // namespace kit
