#include <gtest/gtest.h>

#include "NewsroomKit/Trackers/Signing/DeviceIdentifier.h"
#include "NewsroomKit/Trackers/Signing/VersionOrder.h"

namespace kit {
namespace {

using Devices = std::vector<std::string>;

TEST(DeviceIdentifier, ItsNumberIsReadPartByPartAndWhatDoesNotReadIsZero) {
    const std::tuple<const char*, ModelNumber> cases[] = {
        {"iPhone17,3", {17, 3}},
        {"iPad13,16", {13, 16}},
        {"Watch7", {7, 0}},
        {"J132AP", {0, 0}},
        {"VMM-x86", {86, 0}},
        {"iPhone,3", {3, 0}},
        {"iPhone9,", {9, 0}},
        {"iPhone9,1x", {9, 0}},
        {"iPhone9b,1", {0, 1}},
        {"iPhone99999999999999999999,1", {0, 1}},
        {"", {0, 0}},
    };
    for (const auto& [device, number] : cases) EXPECT_EQ(modelNumber(device), number) << device;
    EXPECT_LT(modelNumber("iPhone9,1"), modelNumber("iPhone10,1"));
    EXPECT_LT(modelNumber("iPhone17,1"), modelNumber("iPhone17,3"));
}

TEST(DeviceIdentifier, AListIsTakenApartAtTheCommasThatAreNotOfAnIdentifier) {
    EXPECT_EQ(parseDeviceList("iPhone17,3,iPad16,1 Mac16,12,\n iPhone17,3"),
              (Devices{"iPhone17,3", "iPad16,1", "Mac16,12"}));
    EXPECT_EQ(parseDeviceList(" , "), Devices());
    for (const auto* list : {"iPhone17", "iPhone17,3;iPad16,1", "17,3", "iPhone17,3x", "iPhone 17",
                             "../iPhone17,3", "iPhone17,3?type=ota"}) {
        EXPECT_EQ(parseDeviceList(list), std::nullopt) << list;
    }
}

TEST(VersionOrder, DigitsCompareAsNumbersAndAllElseAsText) {
    const std::pair<const char*, const char*> rising[] = {
        {"18.2", "18.10"},        {"18.9", "18.10"},
        {"18", "18.0"},           {"9.6.4", "26.4"},
        {"18.2 (a)", "18.2 (c)"}, {"18.99999999999999999999", "18.100000000000000000000"},
    };
    for (const auto& [low, high] : rising) {
        EXPECT_TRUE(compareVersions(low, high) < 0) << low << " " << high;
        EXPECT_TRUE(compareVersions(high, low) > 0) << low << " " << high;
    }
    EXPECT_TRUE(compareVersions("18.02", "18.2") == 0);
}

}  // namespace
}  // namespace kit
