#pragma once

#include <string>
#include <string_view>

#include "NewsroomKit/Feeds/XMLAttributes.h"

namespace kit {

/// Write XHTML inside a feed back as HTML, so that it reads like the escaped HTML of other feeds.
/// Namespaces are dropped.
void appendStartTag(std::string_view name, const XMLAttributes& attributes, std::string& html);
void appendEndTag(std::string_view name, std::string& html);
void appendEscapedText(std::string_view text, std::string& html);

}  // namespace kit
