#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Feeds/HTMLText.h"
#include "NewsroomKit/Text/Unicode.h"

// Any HTML: the limits hold, lines are never empty, and a headline is one line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::size_t limit = data[0];
    const std::string_view html(reinterpret_cast<const char*>(data + 1), size - 1);

    if (kit::characterCount(kit::excerpt(html, limit)) > limit) std::abort();
    if (kit::characterCount(kit::postTitle(html)) > 120) std::abort();
    const auto text = kit::plainText(html);
    if (text.find("\n\n") != std::string::npos || text.starts_with('\n')) std::abort();
    if (kit::cleanHeadline(html).find('\n') != std::string::npos) std::abort();
    return 0;
}
