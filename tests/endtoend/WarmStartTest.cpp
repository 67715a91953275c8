#include "DrivenProgram.h"
#include "support/SmallFiles.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <thread>

// A read must come to its end whatever becomes of the process that keeps ExifTool warm.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
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

}  // namespace

TEST(WarmStart, KillingTheStarterAtAnyMomentIsNotNoticed) {
    if (qgetenv("TAGWRIGHT_TEST_WARM_START") == "0") GTEST_SKIP() << "the starter is turned off";
    const support::TemporaryFolder folder;
    constexpr int kFiles = 4;
    for (int number = 0; number < kFiles; ++number) {
        const fs::path file = folder / ("photo" + std::to_string(number) + ".jpg");
        support::writeJpeg(file);
        support::ExifTool(
            {"-q", "-overwrite_original", "-XMP-dc:Title=title " + std::to_string(number), file.string()});
    }
    DrivenProgram program;
    program.tell("open", {QString::fromStdString(folder.path().string())});
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
