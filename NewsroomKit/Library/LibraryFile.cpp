#include "NewsroomKit/Library/LibraryFile.h"

#include <algorithm>
#include <set>

#include "NewsroomKit/Library/LineText.h"
#include "NewsroomKit/Library/UnknownKeys.h"
#include "NewsroomKit/Text/Unicode.h"

namespace kit {

namespace {

constexpr std::string_view kFormOfLibrary = "brell library";
constexpr std::size_t kMostBytesOfID = 200;

template <class R>
json::value withExtras(const R& record, const std::string& key, const LibraryContents& contents) {
    auto value = encode(record);
    if (const auto found = contents.extras.find(key); found != contents.extras.end()) {
        for (const auto& extra : found->second)
            value.get_object().emplace(extra.key(), extra.value());
    }
    return value;
}

void appendPart(std::string_view name, const std::vector<json::value>& records, std::string& file) {
    file += ",\n" + json::serialize(json::string(name)) + ":[";
    for (const auto& record : records) {
        file += &record == &records.front() ? "\n" : ",\n";
        file += json::serialize(record);
    }
    file += ']';
}

template <class R>
void appendRecords(std::string_view name, const std::string& prefix, const std::vector<R>& records,
                   const LibraryContents& contents, std::string& file) {
    std::vector<json::value> values;
    values.reserve(records.size());
    for (const auto& record : records)
        values.push_back(withExtras(record, prefix + record.id, contents));
    appendPart(name, values, file);
}

void appendTexts(const LibraryContents& contents, std::string& file) {
    std::vector<json::value> values;
    for (const auto& [story, text] : contents.texts) {
        auto value = withExtras(text, "text:" + story, contents);
        value.get_object().emplace("story", story);
        values.push_back(std::move(value));
    }
    appendPart("texts", values, file);
}

void makeSet(std::vector<std::string>& items) {
    std::ranges::sort(items);
    items.erase(std::unique(items.begin(), items.end()), items.end());
}

void require(bool isSound, const char* reason) {
    if (!isSound) throw RecordError("", reason);
}

void requireSoundID(const std::string& id) {
    require(!id.empty() && id.size() <= kMostBytesOfID, "the id is empty or too long");
}

void settle(SavedStory& story) {
    requireSoundID(story.id);
    require(isWebLink(story.link), "the link is not a web address");
    makeSet(story.tags);
    makeSet(story.projectIDs);
}

void settle(Clip& clip) {
    requireSoundID(clip.id);
    require(clip.quote.size() <= kMostBytesOfQuote, "the quote is longer than the library takes");
    makeSet(clip.tags);
    makeSet(clip.projectIDs);
}

void settle(Note& note) {
    requireSoundID(note.id);
    require(note.text.size() <= kMostBytesOfNote, "the note is longer than the library takes");
    makeSet(note.storyIDs);
    makeSet(note.projectIDs);
    makeSet(note.tags);
}

void settle(Project& project) {
    requireSoundID(project.id);
    require(!project.name.empty(), "the project has no name");
}

/// Reads the parts of one file.
class FileReading {
public:
    explicit FileReading(json::object& file) : file_(file) {}

    template <class R>
    void readPart(std::string_view name, std::string_view prefix, std::vector<R>& records) {
        std::set<std::string> ids;
        forEach(name, [&](const json::value& value) {
            auto record = decode<R>(value);
            settle(record);
            if (!ids.insert(record.id).second) throw RecordError("", "the id is there twice");
            keepExtras(std::string(prefix) + record.id, unknownKeys<R>(value.get_object()));
            records.push_back(std::move(record));
        });
    }

    void readTexts() {
        forEach("texts", [&](const json::value& value) {
            auto text = decode<SavedText>(value);
            auto unknown = unknownKeys<SavedText>(value.get_object());
            const auto* story = unknown.if_contains("story");
            if (!story) throw RecordError("story", "the key is missing");
            const auto id = decode<std::string>(*story);
            requireSoundID(id);
            unknown.erase("story");
            keepExtras("text:" + id, std::move(unknown));
            result_.contents.texts.insert_or_assign(id, std::move(text));
        });
    }

    LibraryFileReading take() && {
        for (const auto& pair : file_) result_.contents.unknownParts.insert(pair);
        return std::move(result_);
    }
    LibraryContents& contents() { return result_.contents; }

private:
    /// Takes the part out of the file, so that what is left is unknown.
    template <class Read>
    void forEach(std::string_view name, Read read) {
        const auto found = file_.find(name);
        if (found == file_.end()) return;
        const auto part = std::move(found->value());
        file_.erase(found);
        if (!part.is_array()) return addProblem(std::string(name), "a list is expected");
        for (std::size_t i = 0; i < part.get_array().size(); ++i) {
            try {
                read(part.get_array()[i]);
            } catch (const RecordError& error) {
                addProblem(std::string(name) + '[' + std::to_string(i) + ']', error.what());
            }
        }
    }

    void addProblem(std::string where, std::string detail) {
        result_.problems.push_back({.obstacle = ImportObstacle::unreadable,
                                    .text = std::move(where),
                                    .detail = std::move(detail)});
    }

    void keepExtras(std::string key, json::object unknown) {
        if (!unknown.empty()) result_.contents.extras.emplace(std::move(key), std::move(unknown));
    }

    json::object& file_;
    LibraryFileReading result_;
};

boost::outcome_v2::unchecked<json::object, ImportRefusal> parsedObject(std::string_view utf8) {
    boost::json::parser parser;
    boost::system::error_code error;
    const auto read = parser.write_some(utf8.data(), utf8.size(), error);
    if (error || utf8.find_first_not_of(" \t\r\n", read) != std::string_view::npos) {
        const auto lines = std::ranges::count(utf8.substr(0, read), '\n');
        return ImportRefusal{.fault = ImportFault::damaged,
                             .line = static_cast<std::size_t>(lines) + 1};
    }
    auto value = parser.release();
    if (!value.is_object()) return ImportRefusal{.fault = ImportFault::foreignJSON};
    return std::move(value.get_object());
}

std::optional<ImportRefusal> refusalOf(const json::object& file) {
    const auto* form = file.if_contains("form");
    if (!form || !form->is_string() || form->get_string() != kFormOfLibrary)
        return ImportRefusal{.fault = ImportFault::foreignJSON};
    const auto* version = file.if_contains("version");
    if (!version || !version->is_int64() || version->get_int64() < 1)
        return ImportRefusal{.fault = ImportFault::damaged};
    if (version->get_int64() <= kLibraryFileVersion) return std::nullopt;
    return ImportRefusal{.fault = ImportFault::newerForm,
                         .detail = "form " + std::to_string(version->get_int64()) +
                                   ", and this version reads up to form " +
                                   std::to_string(kLibraryFileVersion)};
}

}  // namespace

std::string libraryFile(const LibraryContents& contents, Instant madeAt, std::string_view program) {
    const json::object head{{"form", kFormOfLibrary},
                            {"version", kLibraryFileVersion},
                            {"program", program},
                            {"madeAt", iso8601Text(madeAt)}};
    auto file = json::serialize(head);
    file.pop_back();
    appendRecords("stories", "story:", contents.stories, contents, file);
    appendTexts(contents, file);
    appendRecords("clips", "clip:", contents.clips, contents, file);
    appendRecords("notes", "note:", contents.notes, contents, file);
    appendRecords("projects", "project:", contents.projects, contents, file);
    for (const auto& part : contents.unknownParts) {
        file +=
            ",\n" + json::serialize(json::string(part.key())) + ':' + json::serialize(part.value());
    }
    // Bytes that are no UTF-8 would make the whole file unreadable.
    return validUTF8(file + "}\n");
}

boost::outcome_v2::unchecked<LibraryFileReading, ImportRefusal> readLibraryFile(
    std::string_view utf8) {
    if (utf8.starts_with("\xEF\xBB\xBF")) utf8.remove_prefix(3);
    auto file = parsedObject(utf8);
    if (!file) return file.error();
    if (auto refusal = refusalOf(file.value())) return *std::move(refusal);
    for (const auto* key : {"form", "version", "program", "madeAt"}) file.value().erase(key);
    FileReading reading(file.value());
    auto& contents = reading.contents();
    reading.readPart("stories", "story:", contents.stories);
    reading.readTexts();
    reading.readPart("clips", "clip:", contents.clips);
    reading.readPart("notes", "note:", contents.notes);
    reading.readPart("projects", "project:", contents.projects);
    return std::move(reading).take();
}

}  // namespace kit
