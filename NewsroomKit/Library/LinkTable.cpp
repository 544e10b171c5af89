#include <algorithm>
#include <array>

#include "NewsroomKit/Library/CSV.h"
#include "NewsroomKit/Library/ImportedLink.h"
#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Text/ASCII.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

enum class Column { title, url, addedAt, tags, status, excerpt };
constexpr std::size_t kColumns = 6;

struct ColumnName {
    std::string_view name;
    Column column;
};

constexpr std::array kColumnNames{
    ColumnName{"title", Column::title},
    ColumnName{"name", Column::title},
    ColumnName{"url", Column::url},
    ColumnName{"link", Column::url},
    ColumnName{"href", Column::url},
    ColumnName{"address", Column::url},
    ColumnName{"time_added", Column::addedAt},
    ColumnName{"added", Column::addedAt},
    ColumnName{"created", Column::addedAt},
    ColumnName{"created_at", Column::addedAt},
    ColumnName{"saved_at", Column::addedAt},
    ColumnName{"timestamp", Column::addedAt},
    ColumnName{"date", Column::addedAt},
    ColumnName{"tags", Column::tags},
    ColumnName{"labels", Column::tags},
    ColumnName{"folder", Column::tags},
    ColumnName{"status", Column::status},
    ColumnName{"state", Column::status},
    ColumnName{"excerpt", Column::excerpt},
    ColumnName{"description", Column::excerpt},
    ColumnName{"selection", Column::excerpt},
};

/// Where each column stands in a row; npos for one that the table does not have.
class ColumnPlaces {
public:
    explicit ColumnPlaces(const std::vector<std::string>& names) {
        places_.fill(std::string::npos);
        for (std::size_t i = 0; i < names.size(); ++i) {
            const auto name = lowercasedASCII(trimWhitespaceAndNewlines(names[i]));
            for (const auto& row : kColumnNames) {
                auto& place = places_[static_cast<std::size_t>(row.column)];
                if (row.name == name && place == std::string::npos) place = i;
            }
        }
    }

    bool has(Column column) const {
        return places_[static_cast<std::size_t>(column)] != std::string::npos;
    }
    std::string_view cell(const std::vector<std::string>& row, Column column) const {
        const auto place = places_[static_cast<std::size_t>(column)];
        return place < row.size() ? std::string_view(row[place]) : std::string_view();
    }

private:
    std::array<std::size_t, kColumns> places_{};
};

ImportedLink linkOfRow(const std::vector<std::string>& row, const ColumnPlaces& places) {
    ImportedLink link;
    link.link = trimWhitespaceAndNewlines(places.cell(row, Column::url));
    link.title = singleLine(places.cell(row, Column::title));
    link.excerpt = withoutControls(places.cell(row, Column::excerpt));
    const auto tags = places.cell(row, Column::tags);
    appendTags(tags, tags.find('|') == std::string_view::npos ? ',' : '|', link.tags);
    readAddedAt(places.cell(row, Column::addedAt), link);
    const auto status =
        lowercasedASCII(trimWhitespaceAndNewlines(places.cell(row, Column::status)));
    link.isRead = status == "read" || status == "archive" || status == "archived";
    return link;
}

}  // namespace

bool isLinkTable(std::string_view utf8) {
    CSVReader reader(utf8);
    std::vector<std::string> names;
    return reader.next(names) && ColumnPlaces(names).has(Column::url);
}

boost::outcome_v2::unchecked<std::vector<ImportedLink>, ImportRefusal> readLinkTable(
    std::string_view utf8, std::size_t most) {
    CSVReader reader(utf8);
    std::vector<std::string> row;
    reader.next(row);
    const ColumnPlaces places(row);
    if (!places.has(Column::url))
        return ImportRefusal{.fault = ImportFault::noAddresses, .line = 1};
    std::vector<ImportedLink> links;
    while (links.size() <= most && reader.next(row)) {
        auto link = linkOfRow(row, places);
        link.line = reader.line();
        link.isUnclosed = reader.isUnclosed();
        links.push_back(std::move(link));
    }
    return links;
}

}  // namespace kit
