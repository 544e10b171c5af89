#include <optional>
#include <string>
#include <vector>

#include <QByteArray>

#include "NewsroomKit/Backend/RecordDiff.h"
#include "NewsroomKit/Backend/WatchedRecord.h"
#include "Tarnwick_Brell/CommandLine/Inspect/Kind.h"

namespace cli::inspect {

namespace {

/// A side of a comparison: as text, or in Base64 where it is binary.
std::string stateBytes(const json::object& input, const std::string& side) {
    const auto packed = optional<std::string>(input, side + "Base64");
    if (!packed) return required<std::string>(input, side);
    const auto bytes = QByteArray::fromBase64Encoding(QByteArray::fromStdString(*packed),
                                                      QByteArray::AbortOnBase64DecodingErrors);
    if (!bytes) throw kit::RecordError(side + "Base64", "the text is not Base64");
    return bytes.decoded.toStdString();
}

}  // namespace

json::object backend(const json::object& input) {
    const auto source = required<kit::WatchedSource>(input, "source");
    const auto before = kit::readWatchedRecords(source, stateBytes(input, "before"));
    if (!before) return {{"error", "malformed"}, {"side", "before"}};
    const auto after = kit::readWatchedRecords(source, stateBytes(input, "after"));
    if (!after) return {{"error", "malformed"}, {"side", "after"}};
    const auto diff = kit::compareRecords(*before, *after);
    return {{"added", kit::encode(diff.added)},
            {"removed", kit::encode(diff.removed)},
            {"changed", kit::encode(diff.changed)},
            {"sentences", kit::encode(kit::findingSentences(source, diff))}};
}

}  // namespace cli::inspect
