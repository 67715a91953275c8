#include "DrivenProgram.h"
#include "support/OwnRuns.h"
#include "support/SmallFiles.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <thread>

// Reads and writes go through the process that keeps ExifTool warm, and come to their end whatever becomes of
// it.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    // Of a process that has ended meanwhile nothing can be read; by iterators that would be thrown.
    std::ostringstream contents;
    contents << stream.rdbuf();
    return contents.str();
}

/// The starters of the program, children that they forked included.
std::vector<pid_t> startersOf(const fs::path& install) {
    // Started so and in no other way; other processes may name the folder in passing.
    const std::string word = "-I" + (install / "warm").string();
    std::vector<pid_t> found;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        std::istringstream words(contentsOf(entry.path() / "cmdline"));
        for (std::string given; std::getline(words, given, '\0');)
            if (given == word) found.push_back(std::stoi(name));
    }
    return found;
}

int killStartersOf(const fs::path& install) {
    int killed = 0;
    for (const pid_t starter : startersOf(install))
        if (::kill(starter, SIGKILL) == 0) ++killed;
    return killed;
}

/// Pictures that are clicked, and one of which is changed.
class WarmStart : public testing::Test {
 protected:
    static constexpr int kFiles = 4;

    void SetUp() override {
        for (int number = 0; number < kFiles; ++number) {
            support::writeJpeg(photo(number));
            support::ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=title " + std::to_string(number),
                               "-IFD0:Artist=artist", photo(number).string()});
        }
    }
    fs::path photo(int number) const { return folder_ / ("photo" + std::to_string(number) + ".jpg"); }

    void clickAll(DrivenProgram& program) const {
        for (int number = 0; number < kFiles; ++number) {
            const QString text = QString::number(number);
            program.tell("click", {"photo" + text + ".jpg"});
            EXPECT_EQ(program.value("XMP-dc", "Title"), "title " + text);
        }
    }
    /// The artist of the picture that is shown, in its dialog.
    void changeArtist(DrivenProgram& program) const {
        program.tell("row", {"IFD0", "Artist", "Value"});
        program.tell("set", {"1694", "somebody else"});
        program.tell("press", {"1"});
        EXPECT_EQ(support::ExifTool({"-s3", "-IFD0:Artist", photo(kFiles - 1).string()}), "somebody else\n");
    }

    support::TemporaryFolder folder_;
    support::TemporaryFolder home_;
    support::OwnRuns ownRuns_{home_.path()};
};

/// The starter and the child that it has made ahead for the next command.
constexpr std::size_t kReady = 2;

}  // namespace

TEST_F(WarmStart, EveryReadAndWriteIsRunByTheStarter) {
    DrivenProgram::Options options;
    options.environment = {"HOME=" + home_.path().string()};
    DrivenProgram program(options);
    program.tell("open", {QString::fromStdString(folder_.path().string())});
    ASSERT_TRUE(endtoend::waitFor([&] { return startersOf(program.install()).size() >= kReady; }));
    const int before = ownRuns_.count();
    EXPECT_GT(before, 0) << "runs are not seen";
    clickAll(program);
    changeArtist(program);
    EXPECT_EQ(ownRuns_.count(), before) << "commands were runs of their own";
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(WarmStart, TurnedOffEveryCommandIsARunOfItsOwn) {
    const auto withoutFolder = [](const fs::path& install) { fs::remove_all(install / "warm"); };
    DrivenProgram::Options bySetting;
    bySetting.moreSettings = "\n[ExifTool]\nWarmStart=0\n";
    DrivenProgram::Options byFolder;
    byFolder.prepare = withoutFolder;
    for (DrivenProgram::Options* options : {&bySetting, &byFolder}) {
        SetUp();
        options->environment = {"HOME=" + home_.path().string()};
        DrivenProgram program(*options);
        program.tell("open", {QString::fromStdString(folder_.path().string())});
        const int before = ownRuns_.count();
        clickAll(program);
        EXPECT_GE(ownRuns_.count(), before + kFiles);
        const int clicked = ownRuns_.count();
        changeArtist(program);
        EXPECT_GT(ownRuns_.count(), clicked);
        EXPECT_TRUE(startersOf(program.install()).empty());
        EXPECT_EQ(program.quit(), 0);
    }
}

TEST_F(WarmStart, KillingTheStarterAtAnyMomentIsNotNoticed) {
    DrivenProgram program;
    program.tell("open", {QString::fromStdString(folder_.path().string())});
    // The first is killed for certain, the later ones at moments of their own.
    std::atomic_int killed = 0;
    ASSERT_TRUE(endtoend::waitFor([&] { return (killed = killStartersOf(program.install())) > 0; }));
    std::atomic_bool ended = false;
    std::thread killer([&] {
        std::mt19937 random(20);
        std::uniform_int_distribution<int> pause(20, 400);
        while (!ended) {
            endtoend::waitFor([&] { return ended.load(); }, pause(random));
            killed += killStartersOf(program.install());
        }
    });
    for (int click = 0; click < 24; ++click) {
        const QString number = QString::number(click % kFiles);
        program.tell("click", {"photo" + number + ".jpg"});
        EXPECT_EQ(program.value("XMP-dc", "Title"), "title " + number) << click;
        EXPECT_EQ(program.status(), "Ready");
        EXPECT_FALSE(program.refuse("message").isEmpty()) << "no message is open";
    }
    ended = true;
    killer.join();
    RecordProperty("killed", killed);
    EXPECT_EQ(program.quit(), 0);
}
