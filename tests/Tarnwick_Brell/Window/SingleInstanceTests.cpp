#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include <QLocalSocket>

#include "Tarnwick_Brell/Window/SingleInstance.h"
#include "tests/support/EventLoop.h"
#include "tests/support/TemporaryFolder.h"

namespace app {
namespace {

using namespace std::chrono_literals;

class SingleInstanceTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ::test::beApplication(); }
    void SetUp() override {
        unsetenv("DESKTOP_STARTUP_ID");
        unsetenv("XDG_RUNTIME_DIR");
    }

    /// A second start: another process, while this one's event loop runs. Whether it was
    /// answered.
    bool start(const std::filesystem::path& library, const char* token, uid_t user = geteuid()) {
        const auto process = fork();
        if (process == 0) {
            if (setuid(user) != 0) _exit(2);
            setenv("XDG_ACTIVATION_TOKEN", token, 1);
            _exit(SingleInstance(library).raiseFirst(500ms) ? 0 : 1);
        }
        int status = 0;
        bool hasEnded = false;
        EXPECT_TRUE(::test::until([&] {
            hasEnded = hasEnded || waitpid(process, &status, WNOHANG) == process;
            return hasEnded;
        }));
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    void follow(SingleInstance& first) {
        QObject::connect(&first, &SingleInstance::raiseWanted,
                         [this](const QString& token) { tokens_.push_back(token.toStdString()); });
    }

    ::test::TemporaryFolder folder_;
    std::filesystem::path library_ = folder_.path() / "library.sqlite";
    std::vector<std::string> tokens_;
};

TEST_F(SingleInstanceTest, ASecondStartRaisesTheFirstAndHandsOverItsRight) {
    SingleInstance first(library_);
    follow(first);
    EXPECT_FALSE(start(library_, "early")) << "nobody listens yet";
    ASSERT_TRUE(first.listen());
    EXPECT_TRUE(first.listen()) << "also when the desk opens again after a restore";
    EXPECT_TRUE(start(library_, "token 1"));
    EXPECT_TRUE(start(folder_.path() / "." / "library.sqlite", ""));
    EXPECT_TRUE(start(library_, "two\nlines"));
    EXPECT_FALSE(start(folder_.path() / "other.sqlite", "x"));
    EXPECT_EQ(tokens_, (std::vector<std::string>{"token 1", "", ""}));
}

TEST_F(SingleInstanceTest, WhatAWindowThatWasKilledLeftIsReplaced) {
    const auto process = fork();
    if (process == 0) {
        SingleInstance killed(library_);
        _exit(killed.listen() ? 0 : 1);  // Without destructors, as when killed.
    }
    int status = 0;
    waitpid(process, &status, 0);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(std::filesystem::exists(folder_.path() / "library.window"));
    EXPECT_FALSE(start(library_, "x"));
    SingleInstance next(library_);
    follow(next);
    ASSERT_TRUE(next.listen());
    EXPECT_TRUE(start(library_, "y"));
    EXPECT_EQ(tokens_, std::vector<std::string>{"y"});
}

TEST_F(SingleInstanceTest, StrangersAndNonsenseAreNotHeard) {
    SingleInstance first(library_);
    follow(first);
    ASSERT_TRUE(first.listen());
    for (const auto& sent : {QByteArray("open /etc/passwd\n"), QByteArray(100'000, 'x')}) {
        QLocalSocket socket;
        socket.connectToServer(QString::fromStdString(folder_.path() / "library.window"));
        socket.write(sent);
        EXPECT_TRUE(
            ::test::until([&] { return socket.state() == QLocalSocket::UnconnectedState; }));
        EXPECT_EQ(socket.readAll(), "");
    }
    EXPECT_TRUE(tokens_.empty());
    if (geteuid() != 0) GTEST_SKIP() << "only root can be somebody else";
    // With a socket that everybody may open, the processes still look at each other.
    std::filesystem::permissions(folder_.path(), std::filesystem::perms::all);
    std::filesystem::permissions(folder_.path() / "library.window", std::filesystem::perms::all);
    EXPECT_FALSE(start(library_, "stranger", 65534));
    EXPECT_TRUE(tokens_.empty());
}

TEST(SocketAddresses, LongPathsMoveToTheRuntimeFolder) {
    const std::string longFolder = "/srv/" + std::string(90, 'a');
    EXPECT_EQ(socketAddresses("/srv/desk/library.sqlite", "/run/user/7").at(0),
              "/srv/desk/library.window");
    const auto one = socketAddresses(longFolder + "/library.sqlite", "/run/user/7");
    const auto other = socketAddresses(longFolder + "b/library.sqlite", "/run/user/7");
    ASSERT_EQ(one.size(), 1u);
    EXPECT_TRUE(one[0].starts_with("/run/user/7/tarnwick-brell-")) << one[0];
    EXPECT_NE(one, other);
    EXPECT_TRUE(socketAddresses(longFolder + "/library.sqlite", std::nullopt).empty());
}

TEST_F(SingleInstanceTest, AnotherProgramAtTheLibraryIsNamed) {
    const LibraryInUseError byWatch({.process = 12, .what = "brell watch"});
    EXPECT_EQ(SingleInstance::refusal(byWatch),
              "This library is already open in brell watch (process 12). End that first, then "
              "open the window.");
}

}  // namespace
}  // namespace app
