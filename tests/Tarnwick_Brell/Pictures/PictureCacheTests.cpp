#include <gtest/gtest.h>

#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <iterator>

#include "Tarnwick_Brell/Pictures/PictureCache.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

namespace fs = std::filesystem;

class PictureCacheTest : public ::testing::Test {
protected:
    /// Which of these addresses are in the cache; asking is no use of them.
    std::string held() const {
        std::string names;
        for (const char* name : {"a", "b", "c", "d"})
            if (PictureCache(copied(), 1'000).find(name)) names += name;
        return names;
    }
    fs::path copied() const {
        const auto copy = home_.path() / "copy";
        fs::remove_all(copy);
        fs::copy(folder_, copy);
        return copy;
    }

    test::TemporaryFolder home_;
    fs::path folder_ = home_.path() / "desk" / "pictures";
};

TEST_F(PictureCacheTest, WhatWasUsedLongestAgoGoesFirst) {
    PictureCache cache(folder_, 30);
    for (const char* name : {"a", "b", "c"}) cache.store(name, std::string(10, *name));
    EXPECT_EQ(cache.find("a"), "aaaaaaaaaa");
    cache.store("d", std::string(10, 'd'));
    EXPECT_EQ(held(), "acd");
    cache.store("d", std::string(25, 'd'));
    EXPECT_EQ(held(), "d");
}

TEST_F(PictureCacheTest, TheOrderOfUseOutlivesTheProgram) {
    const auto hour = std::chrono::hours(1);
    {
        PictureCache cache(folder_, 1'000);
        for (const char* name : {"a", "b", "c"}) cache.store(name, std::string(10, *name));
        for (const auto& file : fs::directory_iterator(folder_))
            fs::last_write_time(file, fs::file_time_type::clock::now() - hour);
        cache.find("b");
    }
    PictureCache smaller(folder_, 10);
    EXPECT_EQ(held(), "b");
}

TEST_F(PictureCacheTest, AFileThatIsGoneOrCannotBeWrittenIsNoPicture) {
    PictureCache cache(folder_, 1'000);
    cache.store("a", "bytes");
    fs::remove_all(folder_);
    EXPECT_EQ(cache.find("a"), std::nullopt);
    std::ofstream(folder_) << "a file where the folder should be";
    cache.store("b", "bytes");
    EXPECT_EQ(cache.find("b"), std::nullopt);
}

TEST_F(PictureCacheTest, ItIsTheUsersAlone) {
    umask(022);
    PictureCache(folder_, 1'000).store("https://a.example/secret.png", "bytes");
    for (const auto& path :
         {folder_.parent_path(), folder_, fs::directory_iterator(folder_)->path()}) {
        struct stat found{};
        ASSERT_EQ(stat(path.c_str(), &found), 0);
        EXPECT_EQ(found.st_mode & 077, 0) << path;
        EXPECT_EQ(path.string().find("secret"), std::string::npos);
    }
}

}  // namespace
}  // namespace app
