#include "BrellSharedSync/Session.h"

namespace shared {

Session::Session(LocalRecords& here, SessionSettings settings)
    : here_(here), settings_(std::move(settings)), place_(here.place()) {}

std::optional<Question> Session::next() {
    if (outcome_ != Outcome::running) return std::nullopt;
    return question_;
}

void Session::take(const Answer& answer) {
    std::visit([&](const auto& given) { on(given); }, answer);
}

void Session::on(const answer::Library& answer) {
    if (!answer.epoch) {
        if (settings_.unknown == SessionSettings::Unknown::startAnew) {
            question_ = ask::NewLibrary{settings_.freshID()};
        } else {
            outcome_ = Outcome::noLibrary;
        }
        return;
    }
    if (*answer.epoch != place_.epoch) {
        if (settings_.unknown == SessionSettings::Unknown::ask) {
            outcome_ = Outcome::otherLibrary;
            return;
        }
        enter(*answer.epoch);
    }
    question_ = ask::FindWitness{place_.machine};
}

/// Compares everything with a library that this machine was no part of.
void Session::enter(const std::string& epoch) {
    place_.epoch = epoch;
    LocalChanges changes;
    compareAll(changes);
    here_.apply(changes);
}

void Session::compareAll(LocalChanges& changes) {
    place_.checkpoint.reset();
    place_.pending.reset();
    place_.lastComplete = 0;
    changes.place = place_;
    changes.moves = {{RecordState::inStep, RecordState::toSend},
                     {RecordState::unwitnessed, RecordState::toSend}};
    changes.forgetRevisions = true;
}

/// The store holds the pending witness, and so what was there when it was left.
void Session::confirm(LocalChanges& changes) {
    place_.checkpoint = place_.pending;
    place_.pending.reset();
    changes.place = place_;
    changes.moves = {{RecordState::unwitnessed, RecordState::inStep}};
}

void Session::on(const answer::FoundWitness& answer) {
    const auto isOf = [&](const std::optional<Checkpoint>& point) {
        return answer.witness && point && answer.witness->token == point->token;
    };
    if (answer.witness) witnessRevision_ = answer.witness->revision;
    LocalChanges changes;
    if (isOf(place_.pending)) {
        confirm(changes);
    } else if (isOf(place_.checkpoint)) {
        // What was sent since may be there or not.
        changes.moves = {{RecordState::unwitnessed, RecordState::toSend}};
    } else {
        if (answer.witness || place_.checkpoint || place_.pending) {
            place_.machine = settings_.freshID();
            witnessRevision_.clear();
        }
        compareAll(changes);
    }
    here_.apply(changes);
    beginPull();
}

void Session::beginPull() {
    phase_ = Phase::pulling;
    isRejoin_ = place_.checkpoint && place_.lastComplete > 0 &&
                settings_.now - place_.lastComplete > kLongestAbsence;
    cursor_ = place_.checkpoint && !isRejoin_ ? place_.checkpoint->cursor : "";
    question_ = ask::Changes{cursor_};
}

void Session::on(const answer::Changes& answer) {
    Arrivals arrivals(here_, author());
    for (const auto& record : answer.records) {
        // In a rejoin what was deleted counts as absent.
        if (isRejoin_ && !record.body) continue;
        arrivals.take(record);
        seen_.insert(record.id);
    }
    here_.apply(arrivals.changes());
    held_.insert(arrivals.held().begin(), arrivals.held().end());
    // Stores may name one place differently each time.
    if (!answer.records.empty()) cursor_ = answer.cursor;
    ++pages_;
    question_ = ask::Changes{cursor_};
    if (answer.isLast) {
        endPull();
    } else if (pages_ >= kPagesOfWitness && !isRejoin_ && held_.empty()) {
        leaveWitness();
    }
}

void Session::endPull() {
    if (isRejoin_) dropAbsent();
    if (!held_.empty()) {
        Arrivals arrivals(here_, author());
        arrivals.judge(held_);
        here_.apply(arrivals.changes());
        held_.clear();
    }
    phase_ = Phase::sending;
    sendMore();
}

/// What was in step and is in the store no more was removed so long ago that the removal is
/// forgotten.
void Session::dropAbsent() {
    LocalChanges changes;
    for (const auto& id : here_.idsIn(RecordState::inStep)) {
        if (!seen_.contains(id)) changes.dropped.push_back(id);
    }
    here_.apply(changes);
}

void Session::sendMore() {
    ask::Write write;
    LocalChanges changes;
    std::size_t bytes = 0;
    sent_.clear();
    for (const auto& id : here_.idsIn(RecordState::toSend)) {
        if (attempts_[id] >= kMostAttempts) continue;
        auto record = *here_.find(id);
        auto body = record.fields.text();
        if (body.size() > kMostBytesOfRecord) {
            record.state = RecordState::incomplete;
            record.reason = "it is larger than 512 KB";
            changes.records.push_back(std::move(record));
            continue;
        }
        if (!sent_.empty() && bytes + body.size() > kMostBytesOfRecord) break;
        bytes += body.size();
        ++attempts_[id];
        write.records.push_back({id, record.revision, std::move(body)});
        sent_.push_back(std::move(record));
        if (sent_.size() == kMostRecordsOfWrite) break;
    }
    if (!changes.records.empty()) here_.apply(changes);
    if (sent_.empty()) return purgeMore();
    phase_ = Phase::sending;
    question_ = std::move(write);
}

void Session::on(const answer::Written& answer) {
    if (phase_ == Phase::purging) {
        notePurged(answer);
    } else {
        noteSent(answer);
    }
}

void Session::noteSent(const answer::Written& answer) {
    LocalChanges changes;
    refused_.clear();
    for (std::size_t i = 0; i < sent_.size() && i < answer.revisions.size(); ++i) {
        if (!answer.revisions[i]) {
            refused_.push_back(sent_[i].id);
            continue;
        }
        // Who uses the desk meanwhile changes records that are on their way.
        auto record = here_.find(sent_[i].id);
        if (!record) continue;
        record->revision = *answer.revisions[i];
        const bool isSame = record->fields == sent_[i].fields;
        if (isSame && record->state == RecordState::toSend) {
            agree(*record, settings_.now);
        } else {
            record->base = textsOf(*kindOfRecord(record->id), sent_[i].fields);
        }
        changes.records.push_back(std::move(*record));
    }
    here_.apply(changes);
    if (refused_.empty()) return sendMore();
    phase_ = Phase::settling;
    question_ = ask::Read{refused_};
}

void Session::on(const answer::Found& answer) {
    Arrivals arrivals(here_, author());
    std::set<std::string> missing(refused_.begin(), refused_.end());
    for (const auto& record : answer.records) {
        arrivals.settle(record);
        if (record.body) missing.erase(record.id);
    }
    auto changes = arrivals.changes();
    if (phase_ == Phase::settlingPurge) {
        changes.dropped.insert(changes.dropped.end(), missing.begin(), missing.end());
        here_.apply(changes);
        return leaveWitness();
    }
    here_.apply(changes);
    // What the store does not have any more is sent as new.
    LocalChanges anew;
    for (const auto& id : missing) {
        auto record = here_.find(id);
        if (!record) continue;
        record->revision.clear();
        anew.records.push_back(std::move(*record));
    }
    here_.apply(anew);
    sendMore();
}

void Session::purgeMore() {
    ask::Write write;
    sent_.clear();
    for (const auto& id : here_.goneBefore(settings_.now - kTombstoneAge)) {
        sent_.push_back(*here_.find(id));
        write.records.push_back({id, sent_.back().revision, std::nullopt});
        if (sent_.size() == kMostRecordsOfWrite) break;
    }
    if (sent_.empty()) return leaveWitness();
    phase_ = Phase::purging;
    question_ = std::move(write);
}

void Session::notePurged(const answer::Written& answer) {
    LocalChanges changes;
    refused_.clear();
    for (std::size_t i = 0; i < sent_.size() && i < answer.revisions.size(); ++i) {
        (answer.revisions[i] ? changes.dropped : refused_).push_back(sent_[i].id);
    }
    here_.apply(changes);
    if (refused_.empty()) return purgeMore();
    phase_ = Phase::settlingPurge;
    question_ = ask::Read{refused_};
}

void Session::leaveWitness() {
    const bool isPulled = phase_ != Phase::pulling;
    const bool isKnown = place_.checkpoint && place_.checkpoint->cursor == cursor_;
    if (isPulled && isKnown && here_.idsIn(RecordState::unwitnessed).empty()) return end();
    place_.pending = Checkpoint{settings_.freshID(), cursor_};
    LocalChanges changes;
    changes.place = place_;
    here_.apply(changes);
    if (isPulled) phase_ = Phase::witnessing;
    question_ = ask::PutWitness{place_.machine, {place_.pending->token, cursor_, witnessRevision_}};
}

void Session::on(const answer::PutWitness& answer) {
    if (!answer.revision) {
        outcome_ = Outcome::interrupted;
        return;
    }
    witnessRevision_ = *answer.revision;
    LocalChanges changes;
    confirm(changes);
    here_.apply(changes);
    if (phase_ == Phase::witnessing) return end();
    pages_ = 0;
    question_ = ask::Changes{cursor_};
}

void Session::end() {
    place_.lastComplete = settings_.now;
    LocalChanges changes;
    changes.place = place_;
    here_.apply(changes);
    outcome_ = Outcome::done;
}

}  // namespace shared
