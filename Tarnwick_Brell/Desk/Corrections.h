#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QObject>

#include "NewsroomKit/Attribution/CorrectionOverlay.h"
#include "NewsroomKit/Records/Instant.h"

namespace app {

class DeskJobs;

/// The user's corrections as the library has them.
struct CorrectionState {
    std::vector<kit::Correction> all{};  ///< in the order in which they were made
    /// What they say in the end; never null.
    std::shared_ptr<const kit::CorrectionOverlay> overlay{};

    bool operator==(const CorrectionState& other) const { return all == other.all; }
};

/// What the user says the rules got wrong, on the main thread. A change is written by the worker;
/// the corrected stories and clusters and the list come back together, in one update of the desk.
/// When it can't be written, nothing changes and the desk reports the failure.
class Corrections : public QObject {
    Q_OBJECT
public:
    Corrections(DeskJobs& jobs, kit::Clock clock);

    const std::vector<kit::Correction>& all() const { return state_.all; }
    /// For readers on any thread; never null.
    const std::shared_ptr<const kit::CorrectionOverlay>& overlay() const { return state_.overlay; }

    /// A new correction made now, with an id of its own, which is returned. Throws RecordError when
    /// it says nothing.
    std::string add(kit::Correction correction);
    /// Undoes it.
    void remove(const std::string& id);
    /// Redoes it.
    void restore(const std::string& id);

    void apply(CorrectionState state);

signals:
    void changed();

private:
    DeskJobs& jobs_;
    kit::Clock clock_;
    CorrectionState state_;
};

/// The corrections as the text of a file, which can be read again.
std::string exportedCorrections(const std::vector<kit::Correction>& corrections);

}  // namespace app
