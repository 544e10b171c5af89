#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "NewsroomKit/Pages/FollowedPage.h"
#include "Tarnwick_Brell/CommandLine/Session.h"
#include "Tarnwick_Brell/Trackers/PageRounds.h"

/// What the subcommands of `brell pages` do.
namespace cli {

struct PagesOptions {
    std::string page;
    std::string name;
    bool urgent = false;
    bool suggested = false;
    bool stored = false;
    bool inOrder = false;
    std::optional<std::int64_t> from;
    std::optional<std::int64_t> to;
    std::int64_t muted = 0;
};

/// The page that the user names, followed by the user or by a panel. Throws WrongUsage.
kit::PageStatus pageIn(app::LocalStore& store, const std::string& text);

/// Looks at the pages that `choose` takes from those that are followed.
using ChoosePages = std::vector<kit::FollowedPage> (*)(app::LocalStore&, const PagesOptions&);
std::vector<app::VisitedPage> lookAtPages(Session& session, const PagesOptions& options,
                                          ChoosePages choose);

/// Throws WorkFailed when a page could not be read.
int finishLooks(const std::vector<app::VisitedPage>& visited);

int addPage(Session& session, const PagesOptions& options);
int removePage(Session& session, const PagesOptions& options);
int unmutePage(Session& session, const PagesOptions& options);
int checkPages(Session& session, const PagesOptions& options);
int showPage(Session& session, const PagesOptions& options);
int diffPage(Session& session, const PagesOptions& options);

}  // namespace cli
