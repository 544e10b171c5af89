#include "Tarnwick_Brell/Models/Panels/ChangeText.h"

#include <QCoreApplication>
#include <QStringList>

#include "Tarnwick_Brell/Presentation/ShownText.h"

namespace app {

namespace {

constexpr int kLongestBuild = 20;
constexpr int kLongestDeviceName = 40;

struct ChangeText {
    Q_DECLARE_TR_FUNCTIONS(ChangeText)
};

}  // namespace

QString buildText(const std::string& version, const std::string& build) {
    return QStringLiteral("%1 (%2)").arg(titleText(version, kLongestBuild),
                                         titleText(build, kLongestBuild));
}

QString devicesText(const std::vector<std::string>& names) {
    const auto count = kit::namedDevices(names.size());
    QStringList named;
    for (std::size_t i = 0; i < count; ++i) named << titleText(names[i], kLongestDeviceName);
    const auto separator = ChangeText::tr(", ");
    if (count < names.size()) {
        return ChangeText::tr("%1 and %n others", nullptr, static_cast<int>(names.size() - count))
            .arg(named.join(separator));
    }
    if (named.size() < 2) return named.join(separator);
    const auto last = named.takeLast();
    return ChangeText::tr("%1 and %2").arg(named.join(separator), last);
}

std::vector<kit::DeviceSigning> signingOf(const TrackerStore& store) {
    std::vector<kit::DeviceSigning> devices;
    for (const auto& device : store.devices()) devices.push_back({device, store.signing(device)});
    return devices;
}

}  // namespace app
