#include "NewsroomKit/Newsrooms/PanelOptions.h"

#include "NewsroomKit/Addresses/WebAddress.h"

namespace kit {

namespace {

constexpr std::string_view kAppleDomain = "apple.com";

/// Missing and null both leave the default.
template <class Member>
void decodeGiven(const json::object& object, PanelOptions& options,
                 const Field<PanelOptions, Member>& f) {
    const auto* value = object.if_contains(f.key);
    if (value && !value->is_null()) codec::decodeField(object, options, f);
}

}  // namespace

bool isFollowablePage(std::string_view text) {
    // Browsers treat a backslash as a slash: "https://a.example\@apple.com/" leads to a.example.
    if (text.find('\\') != std::string_view::npos) return false;
    const auto address = WebAddress::parse(text);
    return address && address->scheme == "https" && isHostOrSubhost(address->host, kAppleDomain);
}

json::value Codec<PanelOptions>::encode(const PanelOptions& options, DateStyle dates) {
    json::object object;
    std::apply([&](const auto&... f) { (codec::encodeField(object, options, f, dates), ...); },
               JSONFields<PanelOptions>::fields);
    return object;
}

PanelOptions Codec<PanelOptions>::decode(const json::value& value) {
    if (!value.is_object()) throw RecordError("", "an object is expected");
    PanelOptions options;
    std::apply([&](const auto&... f) { (decodeGiven(value.get_object(), options, f), ...); },
               JSONFields<PanelOptions>::fields);
    std::erase_if(options.pages, [](const std::string& page) { return !isFollowablePage(page); });
    return options;
}

}  // namespace kit
