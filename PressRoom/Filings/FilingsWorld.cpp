#include "PressRoom/Filings/FilingsWorld.h"

#include <set>
#include <tuple>

#include "PressRoom/World/DataFile.h"

namespace kit {

using namespace pressroom;

template <>
struct JSONFields<WorldFilingDocument> {
    static constexpr auto fields = std::tuple{
        field("type", &WorldFilingDocument::type), field("file", &WorldFilingDocument::file),
        field("title", &WorldFilingDocument::title),
        field("paragraphs", &WorldFilingDocument::paragraphs)};
};

template <>
struct JSONFields<WorldInsider> {
    static constexpr auto fields =
        std::tuple{field("cik", &WorldInsider::cik), field("name", &WorldInsider::name),
                   field("title", &WorldInsider::title)};
};

template <>
struct JSONFields<WorldTrade> {
    static constexpr auto fields = std::tuple{
        field("code", &WorldTrade::code),     field("acquired", &WorldTrade::acquired),
        field("shares", &WorldTrade::shares), field("price", &WorldTrade::price),
        field("after", &WorldTrade::after),   field("daysBefore", &WorldTrade::daysBefore),
        field("date", &WorldTrade::date),     field("trust", &WorldTrade::trust),
        field("note", &WorldTrade::note)};
};

template <>
struct JSONFields<WorldInsiderForm> {
    static constexpr auto fields = std::tuple{
        field("owners", &WorldInsiderForm::owners), field("issuer", &WorldInsiderForm::issuer),
        field("plan", &WorldInsiderForm::plan), field("trades", &WorldInsiderForm::trades),
        field("notes", &WorldInsiderForm::notes)};
};

template <>
struct JSONFields<WorldSaleNotice> {
    static constexpr auto fields = std::tuple{field("cik", &WorldSaleNotice::cik),
                                              field("person", &WorldSaleNotice::person),
                                              field("shares", &WorldSaleNotice::shares),
                                              field("value", &WorldSaleNotice::value),
                                              field("daysAhead", &WorldSaleNotice::daysAhead),
                                              field("remarks", &WorldSaleNotice::remarks)};
};

template <>
struct JSONFields<WorldFiling> {
    static constexpr auto fields =
        std::tuple{field("number", &WorldFiling::number),
                   field("agent", &WorldFiling::agent),
                   field("form", &WorldFiling::form),
                   field("minutesAgo", &WorldFiling::minutesAgo),
                   field("shownMinutesAgo", &WorldFiling::shownMinutesAgo),
                   field("periodDaysBefore", &WorldFiling::periodDaysBefore),
                   field("items", &WorldFiling::items),
                   field("documents", &WorldFiling::documents),
                   field("insiders", &WorldFiling::insiders),
                   field("notice", &WorldFiling::notice)};
};

template <>
struct JSONFields<WorldFiler> {
    static constexpr auto fields =
        std::tuple{field("cik", &WorldFiler::cik), field("name", &WorldFiler::name),
                   field("symbol", &WorldFiler::symbol), field("filings", &WorldFiler::filings)};
};

template <>
struct JSONFields<WorldFilings> {
    static constexpr auto fields = std::tuple{field("filers", &WorldFilings::filers)};
};

}  // namespace kit

namespace pressroom {
namespace {

void checkForm(const WorldInsiderForm& form) {
    if (form.owners.empty()) throw kit::RecordError("owners", "there are none");
    for (const auto& trade : form.trades) {
        const auto note = trade.note.value_or(1);
        const auto notes = static_cast<std::int64_t>(form.notes.size());
        if (trade.note && (note < 1 || note > notes))
            throw kit::RecordError("trades", "there is no note " + std::to_string(note));
    }
}

void checkFilings(const WorldFilings& world) {
    for (const auto& filer : world.filers) {
        inside(filer.name, [&] {
            std::set<std::int64_t> numbers;
            for (const auto& filing : filer.filings) {
                if (!numbers.insert(filing.number).second)
                    throw kit::RecordError("filings", "two have one number");
                if (filing.insiders) inside("insiders", [&] { checkForm(*filing.insiders); });
            }
        });
    }
}

}  // namespace

WorldFilings readFilingsWorld(const std::filesystem::path& directory) {
    return readDataFile<WorldFilings>(directory / "filings" / "filings.json", checkFilings);
}

}  // namespace pressroom
