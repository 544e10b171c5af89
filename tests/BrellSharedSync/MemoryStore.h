#pragma once

#include <map>
#include <string>

#include "BrellSharedSync/RecordStore.h"

namespace shared::memory {

/// A record store that behaves as CouchDB does, in memory. Its state can be copied, as a snapshot.
class MemoryStore {
public:
    struct Document {
        StoredRecord record{};
        int generation = 0;
        std::size_t place = 0;  ///< in the list of changes
    };

    Answer ask(const Question& question) {
        return std::visit([&](const auto& asked) { return Answer(on(asked)); }, question);
    }

    /// Deleted records leave no trace any more.
    void vacuum() {
        std::erase_if(documents, [](const auto& item) { return !item.second.record.body; });
    }

    std::map<std::string, Document> documents{};
    std::map<std::string, Witness> witnesses{};
    std::optional<std::string> epoch{};
    std::size_t last = 0;
    std::size_t pageSize = 500;

private:
    answer::Library on(const ask::Library&) const { return {epoch}; }
    answer::Library on(const ask::NewLibrary& asked) {
        if (!epoch) epoch = asked.epoch;
        return {epoch};
    }
    answer::FoundWitness on(const ask::FindWitness& asked) const {
        const auto found = witnesses.find(asked.machine);
        if (found == witnesses.end()) return {};
        return {found->second};
    }
    answer::PutWitness on(const ask::PutWitness& asked) {
        auto& present = witnesses[asked.machine];
        if (present.revision != asked.witness.revision) return {};
        present = asked.witness;
        present.revision = "w" + std::to_string(++writes_);
        return {present.revision};
    }
    answer::Changes on(const ask::Changes& asked) const {
        const std::size_t since = asked.cursor.empty() ? 0 : std::stoul(asked.cursor);
        std::map<std::size_t, StoredRecord> changed;
        for (const auto& [id, document] : documents) {
            if (document.place > since) changed.emplace(document.place, document.record);
        }
        answer::Changes page{{}, std::to_string(std::max(since, last)), true};
        for (auto& [place, record] : changed) {
            if (page.records.size() == pageSize) return page.isLast = false, page;
            page.records.push_back(record);
            page.cursor = std::to_string(place);
        }
        return page;
    }
    answer::Written on(const ask::Write& asked) {
        answer::Written written;
        for (const auto& record : asked.records) written.revisions.push_back(write(record));
        return written;
    }
    answer::Found on(const ask::Read& asked) const {
        answer::Found found;
        for (const auto& id : asked.ids) {
            const auto document = documents.find(id);
            if (document != documents.end()) found.records.push_back(document->second.record);
        }
        return found;
    }

    std::optional<std::string> write(const StoredRecord& record) {
        const auto found = documents.find(record.id);
        if (found == documents.end() && !record.revision.empty()) return std::nullopt;
        if (found != documents.end()) {
            const auto& present = found->second.record;
            const bool isOver = !present.body && record.revision.empty();
            if (!isOver && present.revision != record.revision) return std::nullopt;
        }
        auto& document = documents[record.id];
        document.record = record;
        document.place = ++last;
        // As in the real one, equal writes give equal revisions, also after a snapshot came back.
        const auto content = std::hash<std::string>{}(record.body.value_or("deleted"));
        document.record.revision =
            std::to_string(++document.generation) + "-" + std::to_string(content);
        return document.record.revision;
    }

    std::size_t writes_ = 0;
};

}  // namespace shared::memory
