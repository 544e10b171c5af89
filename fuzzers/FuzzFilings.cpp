#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "NewsroomKit/Filings/Filing.h"
#include "NewsroomKit/Filings/OwnershipForm.h"
#include "NewsroomKit/Filings/SaleNotice.h"

// Any bytes: no crash. A filing has its number, a form its sentence in one line.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto filings = kit::parseFilings(bytes);
    if (filings) {
        for (const auto& filing : filings.value()) {
            if (filing.accession.size() != 20) std::abort();
        }
    }
    const auto form = kit::parseOwnership(bytes, "2026-11-20");
    if (form) {
        const auto& sentence = form.value().sentence;
        if (sentence.empty() || sentence.find('\n') != std::string_view::npos) std::abort();
    }
    static_cast<void>(kit::parseSaleNotice(bytes));
    return 0;
}
