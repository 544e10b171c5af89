#include "PressRoom/World/Edition.h"

#include <fmt/format.h>

#include "PressRoom/World/Markup.h"

namespace pressroom {

std::string Entry::author() const { return story().author.value_or(source().author.value_or("")); }

std::string Entry::publisher() const {
    return story().publisher.value_or(source().author.value_or(""));
}

std::string Entry::body() const {
    std::string html;
    const auto& picture = story().picture;
    if (picture && picture->place == PicturePlace::emojiThenText) {
        html +=
            "<img src=\"https://s.w.org/images/core/emoji/15.0.3/72x72/1f34e.png\" "
            "alt=\"\" class=\"wp-smiley\">";
    }
    if (picture &&
        (picture->place == PicturePlace::inText || picture->place == PicturePlace::emojiThenText)) {
        html += fmt::format("<figure><img src=\"{}\" alt=\"\"></figure>", escaped(picture->url));
    }
    html += item->html;
    if (source().footer) {
        html += fmt::format(
            "<p>The post <a href=\"{}\">{}</a> appeared first on <a href=\"{}\">{}</a>.</p>",
            escaped(item->page), escaped(title), escaped(source().home), escaped(*source().footer));
    }
    return html;
}

std::string Entry::pictureURL(PicturePlace place) const {
    const auto& picture = story().picture;
    return picture && picture->place == place ? picture->url : "";
}

}  // namespace pressroom
