#include "tests/support/LabelledHeadlines.h"

#include <chrono>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <unordered_map>

namespace test {

namespace {

constexpr kit::Instant kStart{std::chrono::sys_days{std::chrono::year{2026} / 11 / 9}};

std::vector<std::string> columnsOf(const std::string& line) {
    std::vector<std::string> columns;
    std::istringstream text(line);
    for (std::string column; std::getline(text, column, '|');) {
        const auto first = column.find_first_not_of(' ');
        const auto last = column.find_last_not_of(' ');
        columns.push_back(first == std::string::npos ? "" : column.substr(first, last - first + 1));
    }
    columns.resize(5);
    return columns;
}

std::string articleNamed(const std::string& name) { return "https://origin.example/" + name; }

kit::Story storyOf(const std::string& line, std::size_t number) {
    const auto columns = columnsOf(line);
    if (columns[2].empty()) throw std::invalid_argument("no title: " + line);
    const auto hours = std::chrono::duration<double, std::ratio<3600>>(std::stod(columns[0]));
    kit::Story story{
        .id = "s" + std::to_string(number),
        .title = columns[2],
        .summary = columns[3],
        .publishedAt = kStart + std::chrono::duration_cast<kit::Instant::duration>(hours),
        .sourceID = columns[1],
        .sourceName = columns[1]};
    const auto& name = columns[4];
    story.link = name.starts_with('=') ? articleNamed(name.substr(1))
                                       : "https://" + columns[1] + ".example/" + story.id;
    if (name.starts_with('>')) {
        story.credits.push_back(
            {.name = "origin", .url = articleNamed(name.substr(1)), .detail = "according to"});
    }
    return story;
}

double shareOf(double part, double whole) { return whole > 0 ? part / whole : 1; }

}  // namespace

LabelledHeadlines LabelledHeadlines::read(const std::filesystem::path& file) {
    std::ifstream input(file);
    if (!input) throw std::runtime_error("can't read " + file.string());
    LabelledHeadlines labelled;
    std::string subject;
    std::string group;
    for (std::string line; std::getline(input, line);) {
        if (line.empty() || line.starts_with('#')) continue;
        if (line.starts_with('@')) {
            std::istringstream(line.substr(1)) >> subject >> group;
            continue;
        }
        labelled.stories.push_back(storyOf(line, labelled.stories.size()));
        labelled.subjects.push_back(subject);
        labelled.groups.push_back(group);
    }
    return labelled;
}

PartitionScores scoresOf(const LabelledHeadlines& labelled, const std::vector<std::size_t>& parts) {
    const std::size_t count = labelled.stories.size();
    std::vector<double> common(count, 0);
    std::map<std::string, double> subjectSizes;
    std::map<std::size_t, double> partSizes;
    double joined = 0, joinedRightly = 0, right = 0, hard = 0, hardJoined = 0;
    for (std::size_t i = 0; i < count; ++i) {
        ++subjectSizes[labelled.subjects[i]];
        ++partSizes[parts[i]];
        for (std::size_t j = 0; j < count; ++j) {
            const bool isSubject = labelled.subjects[i] == labelled.subjects[j];
            const bool isPart = parts[i] == parts[j];
            if (isSubject && isPart) ++common[i];
            if (j <= i) continue;
            joined += isPart ? 1 : 0;
            right += isSubject ? 1 : 0;
            joinedRightly += isPart && isSubject ? 1 : 0;
            const bool isHard = !isSubject && labelled.groups[i] == labelled.groups[j];
            hard += isHard ? 1 : 0;
            hardJoined += isHard && isPart ? 1 : 0;
        }
    }
    PartitionScores scores{.pairPrecision = shareOf(joinedRightly, joined),
                           .pairRecall = shareOf(joinedRightly, right),
                           .hardPairsJoined = hard > 0 ? hardJoined / hard : 0,
                           .hardPairs = static_cast<std::size_t>(hard)};
    for (std::size_t i = 0; i < count; ++i) {
        scores.precision += common[i] / partSizes[parts[i]] / static_cast<double>(count);
        scores.recall +=
            common[i] / subjectSizes[labelled.subjects[i]] / static_cast<double>(count);
    }
    scores.f1 = 2 * scores.precision * scores.recall / (scores.precision + scores.recall);
    return scores;
}

std::vector<std::size_t> partsOf(const LabelledHeadlines& labelled,
                                 const std::vector<kit::StoryCluster>& clusters) {
    std::unordered_map<std::string, std::size_t> partOf;
    for (std::size_t part = 0; part < clusters.size(); ++part) {
        for (const auto& id : clusters[part].storyIDs) partOf.emplace(id, part);
    }
    std::vector<std::size_t> parts;
    for (const auto& story : labelled.stories) {
        const auto row = partOf.find(story.id);
        parts.push_back(row != partOf.end() ? row->second : clusters.size() + parts.size());
    }
    return parts;
}

}  // namespace test
