#include "NewsroomKit/Text/TimeZone.h"

#include <stdexcept>
#include <utility>

#include <unicode/basictz.h>
#include <unicode/timezone.h>
#include <unicode/tztrans.h>
#include <unicode/unistr.h>

namespace kit {

using namespace std::chrono;

struct TimeZone::Zone {
    explicit Zone(icu::TimeZone* made) : zone(dynamic_cast<icu::BasicTimeZone*>(made)) {
        if (zone) return;
        delete made;
        throw std::runtime_error("The Unicode library has no rules for this time zone.");
    }
    std::unique_ptr<const icu::BasicTimeZone> zone;
};

namespace {

UDate dateOf(TimeZone::Moment moment) {
    return static_cast<UDate>(floor<milliseconds>(moment).time_since_epoch().count());
}

TimeZone::Moment momentAt(UDate date) {
    return TimeZone::Moment(milliseconds(static_cast<std::int64_t>(date)));
}

void requireSuccess(UErrorCode error) {
    if (U_FAILURE(error)) throw std::runtime_error("The Unicode library has no time zones.");
}

}  // namespace

TimeZone::TimeZone(std::string_view name) {
    const auto id = icu::UnicodeString::fromUTF8(
        icu::StringPiece(name.data(), static_cast<std::int32_t>(name.size())));
    std::unique_ptr<icu::TimeZone> made(icu::TimeZone::createTimeZone(id));
    if (!made || *made == icu::TimeZone::getUnknown()) {
        throw std::invalid_argument("There is no time zone \"" + std::string(name) + "\".");
    }
    zone_ = std::make_shared<Zone>(made.release());
}

TimeZone TimeZone::here() {
    return TimeZone(std::make_shared<const Zone>(icu::TimeZone::detectHostTimeZone()));
}

TimeZone::Shown TimeZone::shownAt(Moment moment) const {
    std::int32_t standard = 0, summer = 0;
    UErrorCode error = U_ZERO_ERROR;
    zone_->zone->getOffset(dateOf(moment), false, standard, summer, error);
    requireSuccess(error);
    return Shown(floor<seconds>(moment.time_since_epoch() + milliseconds(standard + summer)));
}

TimeZone::Moment TimeZone::momentOf(Shown shown, Twice which) const {
    std::int32_t standard = 0, summer = 0;
    UErrorCode error = U_ZERO_ERROR;
    const auto twice = which == Twice::first ? UCAL_TZ_LOCAL_FORMER : UCAL_TZ_LOCAL_LATTER;
    const milliseconds local = shown.time_since_epoch();
    zone_->zone->getOffsetFromLocal(static_cast<UDate>(local.count()), UCAL_TZ_LOCAL_FORMER, twice,
                                    standard, summer, error);
    requireSuccess(error);
    const Moment moment(local - milliseconds(standard + summer));
    if (shownAt(moment) == shown) return moment;
    icu::TimeZoneTransition skipping;
    if (!zone_->zone->getPreviousTransition(dateOf(moment), true, skipping)) return moment;
    return momentAt(skipping.getTime());
}

TimeZone::Moment TimeZone::firstOf(Shown shown) const { return momentOf(shown, Twice::first); }

TimeZone::Moment TimeZone::lastOf(Shown shown) const { return momentOf(shown, Twice::last); }

std::string TimeZone::name() const {
    icu::UnicodeString id;
    std::string name;
    zone_->zone->getID(id).toUTF8String(name);
    return name;
}

}  // namespace kit
