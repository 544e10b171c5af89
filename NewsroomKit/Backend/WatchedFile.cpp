#include "NewsroomKit/Backend/WatchedFile.h"

#include <algorithm>

namespace kit {
namespace {

using std::chrono::minutes;

constexpr std::array kWatchedFiles{
    // The same file as the update catalogue's, which reads the public set alone.
    WatchedFile{.id = "managed-versions",
                .name = "Versions for managed devices",
                .address = "https://gdmf.apple.com/v2/pmv",
                .source = WatchedSource::gdmf,
                .subject = FileSubject::builds,
                .identity = "set, platform, version and build",
                .ignoredFields = {"PostingDate"},
                .interval = minutes(10)},
    WatchedFile{.id = "installers",
                .name = "Mac installers",
                .address =
                    "https://swscan.apple.com/content/catalogs/others/index-26-15-14-13-12-10.16-"
                    "10.15-10.14-10.13-10.12-10.11-10.10-10.9-mountainlion-lion-snowleopard-"
                    "leopard.merged-1.sucatalog",
                .source = WatchedSource::catalogue,
                .subject = FileSubject::builds,
                .identity = "product number",
                .ignoredFields = {"PostDate"}},
    WatchedFile{.id = "device-software",
                .name = "Device software",
                .address = "https://mesu.apple.com/assets/com_apple_MobileAsset_SoftwareUpdate/"
                           "com_apple_MobileAsset_SoftwareUpdate.xml",
                .source = WatchedSource::assets,
                .subject = FileSubject::builds,
                .identity = "version, build, earlier build and device"},
    WatchedFile{.id = "desktop-pictures",
                .name = "Desktop pictures",
                .address = "https://mesu.apple.com/assets/macos/com_apple_MobileAsset_"
                           "DesktopPicture/com_apple_MobileAsset_DesktopPicture.xml",
                .source = WatchedSource::assets,
                .subject = FileSubject::assets,
                .identity = "name of the asset"},
    WatchedFile{.id = "fonts",
                .name = "Fonts",
                .address = "https://mesu.apple.com/assets/com_apple_MobileAsset_Font/"
                           "com_apple_MobileAsset_Font.xml",
                .source = WatchedSource::assets,
                .subject = FileSubject::assets,
                .identity = "name of the asset"},
    WatchedFile{.id = "aerials",
                .name = "Aerial screen savers",
                .address = "https://configuration.apple.com/configurations/internetservices/"
                           "aerials/resources-config-27-0.plist",
                .source = WatchedSource::configuration,
                .subject = FileSubject::settings,
                .identity = "path of the setting"},
    WatchedFile{.id = "iwork",
                .name = "Settings of Pages, Numbers and Keynote",
                .address = "https://configuration.apple.com/configurations/internetservices/"
                           "iworkapps/RemoteDefaults.plist",
                .source = WatchedSource::configuration,
                .subject = FileSubject::settings,
                .identity = "path of the setting"},
    WatchedFile{.id = "siri",
                .name = "Settings of Siri",
                .address = "https://configuration.apple.com/configurations/internetservices/"
                           "cloudkit/siri-1.0.plist",
                .source = WatchedSource::configuration,
                .subject = FileSubject::settings,
                .identity = "path of the setting"},
    WatchedFile{.id = "app-links",
                .name = "Links into apps",
                .address = "https://www.apple.com/.well-known/apple-app-site-association",
                .source = WatchedSource::aasa,
                .subject = FileSubject::paths,
                .identity = "app and path"},
    WatchedFile{.id = "robots",
                .name = "robots.txt of apple.com",
                .address = "https://www.apple.com/robots.txt",
                .source = WatchedSource::robots,
                .subject = FileSubject::paths,
                .identity = "agent and rule"},
    WatchedFile{.id = "newsroom-map",
                .name = "Site map of Apple's newsroom",
                .address = "https://www.apple.com/newsroom/sitemap.xml",
                .source = WatchedSource::sitemap,
                .subject = FileSubject::paths,
                .identity = "address"},
    WatchedFile{.id = "shop-map",
                .name = "Site map of the shop",
                .address = "https://www.apple.com/shop/sitemap.xml",
                .source = WatchedSource::sitemap,
                .subject = FileSubject::paths,
                .identity = "address"},
    WatchedFile{.id = "retail-map",
                .name = "Site map of Apple's shops",
                .address = "https://www.apple.com/retail/sitemap/sitemap.xml",
                .source = WatchedSource::sitemap,
                .subject = FileSubject::paths,
                .identity = "address"},
};

}  // namespace

std::span<const WatchedFile> watchedFiles() { return kWatchedFiles; }

const WatchedFile* watchedFile(std::string_view id) {
    const auto file = std::ranges::find(kWatchedFiles, id, &WatchedFile::id);
    return file == kWatchedFiles.end() ? nullptr : file;
}

}  // namespace kit
