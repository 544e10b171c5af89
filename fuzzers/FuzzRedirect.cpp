#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Links/RedirectLink.h"
#include "NewsroomKit/Links/RedirectPage.h"

// Any identifier, page or answer: what it names is an article's link in its final form.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto check = [](std::string_view link) {
        if (kit::articleLinkOf(link) != link) std::abort();
    };
    if (const auto address = kit::addressInIdentifier(bytes)) {
        if (const auto link = kit::articleLinkOf(*address)) check(*link);
    }
    const auto page = kit::readRedirectPage(bytes);
    for (const auto& link : page.articles) check(link);
    if (page.signature) kit::batchRequestBody(*page.signature);
    if (const auto link = kit::articleInBatchAnswer(bytes)) check(*link);
    return 0;
}
