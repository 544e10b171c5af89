#include "Tarnwick_Brell/Models/Panels/ClaimsPanelModel.h"

#include <string>

#include "Tarnwick_Brell/Presentation/MentionText.h"
#include "Tarnwick_Brell/Models/Stories/StoryRowText.h"
#include "Tarnwick_Brell/Presentation/ShownText.h"
#include "Tarnwick_Brell/Presentation/TimeText.h"

namespace app {

namespace {

using kit::Claim;

StorySourcing::Value firmness(Claim::State state) {
    switch (state) {
        case Claim::State::rumored: return StorySourcing::Rumor;
        case Claim::State::reported: return StorySourcing::Report;
        case Claim::State::answered:
        case Claim::State::denied: return StorySourcing::OnRecord;
        case Claim::State::confirmed: return StorySourcing::Confirmed;
    }
    return StorySourcing::Unlabeled;
}

}  // namespace

ClaimsPanelModel::ClaimsPanelModel(const PanelStores& stores, const kit::PanelSpec& panel,
                                   const kit::StoryQuery& query)
    : QueryPanelModel(stores, panel, query) {
    gather([](const auto& gathered) { return kit::claims(gathered.news); },
           [this](const auto& claims, const auto& extent) { show(claims, extent); });
}

QString ClaimsPanelModel::standing(const Claim& claim, kit::Instant now) {
    QStringList parts;
    if (claim.outlets > 1) parts << tr("%n outlets", nullptr, static_cast<int>(claim.outlets));
    if (claim.answer) {
        const auto outlet = titleText(claim.answer->outlet);
        const auto moment = momentText(claim.answer->publishedAt, now);
        parts << (claim.state == Claim::State::confirmed ? tr("confirmed: %1 %2")
                  : claim.state == Claim::State::denied  ? tr("denied: %1 %2")
                                                         : tr("Apple's word: %1 %2"))
                     .arg(outlet, moment);
    } else {
        parts << tr("nothing from Apple");
    }
    auto text = parts.join(QStringLiteral(" · "));
    text[0] = text[0].toUpper();
    return text;
}

void ClaimsPanelModel::show(const std::vector<Claim>& claims, const Extent& extent) {
    std::vector<ClaimRow> rows;
    for (const auto& claim : claims) {
        ClaimRow row{.storyID = plainText(claim.first.storyID),
                     .outlet = titleText(claim.first.outlet),
                     .age = ageText(claim.first.publishedAt, extent.now),
                     .title = titleText(claim.first.title, kTitleCharacters),
                     .isRead = claim.first.isRead,
                     .firmness = firmness(claim.state),
                     .stateLabel = tr(std::string(label(claim.state)).c_str()),
                     .standing = standing(claim, extent.now)};
        row.spokenText = spokenRow({row.isRead ? QString() : tr("Unread"), row.title, row.outlet,
                                    row.stateLabel, row.standing, row.age});
        rows.push_back(std::move(row));
    }
    rows_.setRows(std::move(rows));
    setReady(rows_.rowCount(), spanFact(extent), extent);
}

void ClaimsPanelModel::open(int index) {
    if (const auto* row = rows_.row(index)) openStory(row->storyID);
}

}  // namespace app
