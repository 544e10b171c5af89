#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Ingestion/CreditExtraction.h"

// Any HTML: credits are few, named, and only cited ones have words for it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view html(reinterpret_cast<const char*>(data), size);
    const auto credits = kit::extractCredits(html, html, "https://blog.example/", "Blog");
    if (credits.size() > kit::kCreditLimit) std::abort();
    for (const auto& credit : credits) {
        if (credit.name.empty() || (credit.detail && credit.detail->empty())) std::abort();
    }
    return 0;
}
