#include "NewsroomKit/Archive/ArchiveFetch.h"

namespace kit {

json::value archiveJSON(std::string_view body) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (body.starts_with(byteOrderMark)) body.remove_prefix(byteOrderMark.size());
    return parseJSON(body);
}

}  // namespace kit
