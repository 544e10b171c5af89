#include "NewsroomKit/Pages/VisitedText.h"

#include <utility>

#include "NewsroomKit/Addresses/WebAddress.h"
#include "NewsroomKit/Pages/PageReader.h"
#include "NewsroomKit/Pages/StatedDate.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {
namespace {

PageMiss missOf(PageProblem problem) {
    switch (problem) {
        case PageProblem::blocked: return PageMiss::blocked;
        case PageProblem::notHTML: return PageMiss::notHTML;
        case PageProblem::tooShort: return PageMiss::tooShort;
        case PageProblem::tooLarge: return PageMiss::tooLarge;
    }
    return PageMiss::notHTML;
}

std::string pageHost(std::string_view url) {
    const auto address = WebAddress::parse(url);
    return address ? address->host : std::string();
}

}  // namespace

void VisitedText::leaveOut(const std::vector<VolatileBlock>& volatileBlocks) {
    stable = withoutVolatile(blocks, volatileBlocks);
    keys = pageKeys(stable);
    linksKey = kit::linksKey(stable);
}

std::int64_t VisitedText::length() const {
    std::size_t bytes = 0;
    for (const auto& block : stable) bytes += block.text.size();
    return static_cast<std::int64_t>(bytes);
}

VisitedTextResult readVisit(const PageVisit& visit,
                            const std::vector<VolatileBlock>& volatileBlocks) {
    const PageAnswer answer{.bytes = visit.bytes,
                            .url = visit.url,
                            .contentType = visit.contentType,
                            .status = visit.status};
    if (visit.status != 200 && problemOf(answer) != PageProblem::blocked)
        return PageMiss::badStatus;
    auto page = readPage(answer);
    if (!page) return missOf(page.error());
    VisitedText text;
    text.blocks = std::move(page.value().blocks);
    text.language = lowercasedASCII(page.value().language);
    text.host = pageHost(visit.url);
    text.leaveOut(volatileBlocks);
    text.statedDay = statedDay(text.stable);
    return text;
}

}  // namespace kit
