#pragma once

#include <cstdint>
#include <string_view>

namespace kit {

/// The elements of HTML that the reading of pages tells apart.
enum class PageTag : std::uint8_t {
    text,   ///< a run of characters, not an element
    other,  ///< inline elements without a meaning of their own, and unknown ones
    html,
    head,
    body,
    title,
    meta,
    link,
    base,
    heading1,
    heading2,
    heading3,
    heading4,
    heading5,
    heading6,
    paragraph,
    division,
    section,
    article,
    mainContent,
    header,
    footer,
    navigation,
    aside,
    address,
    form,
    fieldset,
    center,
    list,
    item,
    definitions,
    term,
    description,
    table,
    row,
    cell,
    headerCell,
    caption,
    quote,
    preformatted,
    figure,
    figureCaption,
    details,
    summary,
    rule,
    lineBreak,
    anchor,
    superscript,
    strong,
    image,
    time,
    button,
    dropped,  ///< what never holds text to read: scripts, styles, pictures, controls
};

PageTag pageTag(std::string_view lowercaseName);

constexpr bool isHeading(PageTag tag) {
    return tag >= PageTag::heading1 && tag <= PageTag::heading6;
}

/// 1 to 6. Only for headings.
constexpr int headingLevel(PageTag tag) {
    return static_cast<int>(tag) - static_cast<int>(PageTag::heading1) + 1;
}

/// Elements that stand on lines of their own.
constexpr bool isBlockLevel(PageTag tag) { return tag >= PageTag::html && tag <= PageTag::rule; }

}  // namespace kit
