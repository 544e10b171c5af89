#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>

#include "BrellSharedSync/Arrivals.h"

namespace shared {

/// What a session is told from outside.
struct SessionSettings {
    std::int64_t now = 0;                    ///< milliseconds since 1970
    std::function<std::string()> freshID{};  ///< lower-case letters and digits, never twice
    /// What to do where the store holds no library or another one than last time.
    enum class Unknown { ask, join, startAnew } unknown = Unknown::ask;
};

/// A session between this machine's records and a record store, without the network: `next` asks,
/// `take` gives the answer. Whoever runs it may stop between any two and begin another later.
///
/// 1. The store's library; then this machine's witness. Where that is neither the checkpoint's nor
///    the pending one, store or machine are not what they were: this machine takes a new id and
///    compares everything.
/// 2. All changes since the checkpoint are merged. One that was away for very long looks at all
///    records, and gives up those that were in step and that the store has no more.
/// 3. What changed here is sent.
/// 4. A new witness is left; with it the store is known to hold what was in step.
class Session {
public:
    enum class Outcome {
        running,
        done,
        noLibrary,     ///< the store is empty; the user is to be asked
        otherLibrary,  ///< the store is another library's; the user is to be asked
        interrupted,   ///< another session of this machine came between: begin again
    };

    Session(LocalRecords& here, SessionSettings settings);

    /// Nothing when the session has ended.
    std::optional<Question> next();
    /// The answer to the last question.
    void take(const Answer& answer);

    Outcome outcome() const { return outcome_; }

private:
    enum class Phase { greeting, pulling, sending, settling, purging, settlingPurge, witnessing };

    Author author() const { return {place_.machine, settings_.now}; }

    void on(const answer::Library& answer);
    void on(const answer::FoundWitness& answer);
    void on(const answer::PutWitness& answer);
    void on(const answer::Changes& answer);
    void on(const answer::Written& answer);
    void on(const answer::Found& answer);

    void enter(const std::string& epoch);
    void compareAll(LocalChanges& changes);
    void confirm(LocalChanges& changes);
    void beginPull();
    void endPull();
    void dropAbsent();
    void sendMore();
    void noteSent(const answer::Written& answer);
    void purgeMore();
    void notePurged(const answer::Written& answer);
    void leaveWitness();
    void end();

    LocalRecords& here_;
    SessionSettings settings_;
    SyncPlace place_;
    Outcome outcome_ = Outcome::running;
    Phase phase_ = Phase::greeting;
    Question question_ = ask::Library{};

    std::string witnessRevision_;
    std::string cursor_;
    bool isRejoin_ = false;
    std::size_t pages_ = 0;       ///< since the last witness
    std::set<std::string> seen_;  ///< in a rejoin
    std::set<std::string> held_;  ///< arrived in this session
    std::vector<LocalRecord> sent_;
    std::vector<std::string> refused_;
    std::map<std::string, int> attempts_;
};

/// Beyond this a record stays here, incomplete.
inline constexpr std::size_t kMostBytesOfRecord = 512 * 1024;
inline constexpr std::size_t kMostRecordsOfWrite = 100;
/// A record that was refused this often waits for the next session.
inline constexpr int kMostAttempts = 4;
/// So many pages of a long pull are kept by a witness on the way.
inline constexpr std::size_t kPagesOfWitness = 20;

inline constexpr std::int64_t kDay = 86'400'000;
/// Removals are forgotten after this time.
inline constexpr std::int64_t kTombstoneAge = 400 * kDay;
/// Who was away longer may have missed removals. A month less, for clocks that are wrong.
inline constexpr std::int64_t kLongestAbsence = 365 * kDay;

}  // namespace shared
