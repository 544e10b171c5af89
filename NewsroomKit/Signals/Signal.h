#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "NewsroomKit/Records/Codec.h"

namespace kit {

/// Where something happened.
enum class SignalKind {
    release,
    service,
    signing,
    update,
    chart,
    filing,
    insiderTrade,
    docket,
    pressRelease,
    page,
    backend,
    price
};

struct SignalKindRow {
    SignalKind value;
    std::string_view raw;
    std::string_view label;
    std::string_view symbol;  ///< of its icon
};

template <>
inline constexpr std::array<SignalKindRow, 12> enumTable<SignalKind>{{
    {SignalKind::release, "release", "Software", "iphone.gen3"},
    {SignalKind::service, "service", "Service status", "waveform.path.ecg"},
    {SignalKind::signing, "signing", "Firmware signing", "shield"},
    {SignalKind::update, "update", "Update catalogue", "arrow.down.to.line"},
    {SignalKind::chart, "chart", "App Store charts", "list.number"},
    {SignalKind::filing, "filing", "Filings", "doc.text"},
    {SignalKind::insiderTrade, "insiderTrade", "Insiders", "person"},
    {SignalKind::docket, "docket", "Court", "building.columns"},
    {SignalKind::pressRelease, "pressRelease", "Press", "newspaper"},
    {SignalKind::page, "page", "Pages", "doc.text.magnifyingglass"},
    {SignalKind::backend, "backend", "Back end", "server.rack"},
    {SignalKind::price, "price", "Markets", "chart.line.uptrend.xyaxis"},
}};

constexpr std::string_view symbol(SignalKind kind) {
    return enumTable<SignalKind>[static_cast<std::size_t>(kind)].symbol;
}

/// How much it matters, the least first.
enum class SignalWeight { routine, notable, major };

template <>
inline constexpr std::array<EnumRow<SignalWeight>, 3> enumTable<SignalWeight>{{
    {SignalWeight::routine, "routine", "Routine"},
    {SignalWeight::notable, "notable", "Notable"},
    {SignalWeight::major, "major", "Major"},
}};

/// Something that happened outside the wire, as the log keeps it.
struct Signal {
    /// Made from what happened, so that the same happening seen twice is one signal:
    /// "signing|iPhone18,3|24B83|0|2026-11-21".
    std::string id{};
    SignalKind kind{};
    std::string subject{};  ///< the device, service, company, page or symbol
    std::string title{};    ///< one sentence, ready for a notification
    std::string detail{};   ///< may be empty
    std::optional<std::string> link{};
    std::optional<Instant> happenedAt{};  ///< by the source; absent when it gives no time
    bool dayOnly = false;                 ///< the source gives the day alone
    Instant seenAt{};
    SignalWeight weight = SignalWeight::routine;
    /// What it was before and after, and where it was read: "before", "after", "readAt". Times in
    /// it are seconds since 1970.
    json::object evidence{};

    bool operator==(const Signal&) const = default;
};

/// A signal in its place in the log.
struct LoggedSignal {
    std::int64_t number = 0;  ///< rises as signals are logged
    Signal signal{};

    bool operator==(const LoggedSignal&) const = default;
};

/// "2026-11-21", the day in UTC: ids of what can happen again on another day end with it.
std::string signalDay(Instant instant);

template <>
struct Codec<json::object> {
    static json::value encode(const json::object& object, DateStyle) { return object; }
    static json::object decode(const json::value& value);
};

template <>
struct JSONFields<Signal> {
    static constexpr auto fields = std::tuple{
        field("id", &Signal::id),
        field("kind", &Signal::kind),
        field("subject", &Signal::subject),
        field("title", &Signal::title),
        field("detail", &Signal::detail),
        field("link", &Signal::link),
        field("happenedAt", &Signal::happenedAt),
        field("dayOnly", &Signal::dayOnly),
        field("seenAt", &Signal::seenAt),
        field("weight", &Signal::weight),
        field("evidence", &Signal::evidence),
    };
};

}  // namespace kit
