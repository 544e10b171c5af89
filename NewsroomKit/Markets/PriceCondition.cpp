#include "NewsroomKit/Markets/PriceCondition.h"

#include <cmath>
#include <string_view>

namespace kit {

namespace {

using ConditionKind = PriceCondition::Kind;

bool hasPrice(ConditionKind kind) {
    return kind == ConditionKind::above || kind == ConditionKind::below;
}

bool hasPercent(ConditionKind kind) {
    return kind == ConditionKind::dayMove || kind == ConditionKind::move ||
           kind == ConditionKind::gap;
}

template <class Number>
Number positiveFigure(const json::object& object, std::string_view key) {
    try {
        const auto* value = object.if_contains(key);
        if (!value) throw RecordError("", "the key is missing");
        const auto number = decode<Number>(*value);
        if (!(number > 0) || !std::isfinite(static_cast<double>(number))) {
            throw RecordError("", "a number above zero is expected");
        }
        return number;
    } catch (const RecordError& error) {
        throw error.inside(std::string(key));
    }
}

}  // namespace

json::value Codec<PriceCondition>::encode(const PriceCondition& condition, DateStyle dates) {
    json::object object;
    object.emplace("kind", kit::encode(condition.kind, dates));
    if (condition.price) object.emplace("price", numberValue(*condition.price));
    if (condition.percent) object.emplace("percent", numberValue(*condition.percent));
    if (condition.minutes) object.emplace("minutes", *condition.minutes);
    return object;
}

PriceCondition Codec<PriceCondition>::decode(const json::value& value) {
    if (!value.is_object()) throw RecordError("", "an object is expected");
    const auto& object = value.get_object();
    PriceCondition condition;
    codec::decodeField(object, condition, field("kind", &PriceCondition::kind));
    if (hasPrice(condition.kind)) condition.price = positiveFigure<double>(object, "price");
    if (hasPercent(condition.kind)) condition.percent = positiveFigure<double>(object, "percent");
    if (condition.kind == ConditionKind::move) {
        condition.minutes = positiveFigure<std::int64_t>(object, "minutes");
    }
    return condition;
}

}  // namespace kit
