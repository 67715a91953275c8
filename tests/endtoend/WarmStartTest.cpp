#include "DrivenProgram.h"
#include "support/SmallFiles.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <fstream>
#include <iterator>
#include <random>
#include <thread>

// A read must come to its end whatever becomes of the process that keeps ExifTool warm.

namespace fs = std::filesystem;
using endtoend::DrivenProgram;

namespace {

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// The starters of the program, told by its install folder in their command line, children included.
std::vector<pid_t> startersOf(const fs::path& install) {
    std::vector<pid_t> found;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        const std::string words = contentsOf(entry.path() / "cmdline");
        if (words.find((install / "warm").string()) != std::string::npos) found.push_back(std::stoi(name));
    }
    return found;
}

}  // namespace

TEST(WarmStart, KillingTheStarterAtAnyMomentIsNotNoticed) {
    const support::TemporaryFolder folder;
    constexpr int kFiles = 4;
    for (int number = 0; number < kFiles; ++number) {
        const fs::path file = folder / ("photo" + std::to_string(number) + ".jpg");
        support::WriteJpeg(file);
        support::ExifTool(
            {"-q", "-overwrite_original", "-XMP-dc:Title=title " + std::to_string(number), file.string()});
    }
    DrivenProgram program;
    program.tell("open", {QString::fromStdString(folder.path().string())});
    if (!endtoend::waitFor([&] { return !startersOf(program.install()).empty(); }, 5000))
        GTEST_SKIP() << "the starter is turned off";

    std::atomic_bool ended = false;
    std::atomic_int killed = 0;
    std::thread killer([&] {
        std::mt19937 random(20);
        std::uniform_int_distribution<int> pause(20, 400);
        while (!ended) {
            endtoend::waitFor([&] { return ended.load(); }, pause(random));
            for (const pid_t starter : startersOf(program.install()))
                if (::kill(starter, SIGKILL) == 0) ++killed;
        }
    });
    for (int click = 0; click < 40; ++click) {
        const QString number = QString::number(click % kFiles);
        program.tell("click", {"photo" + number + ".jpg"});
        EXPECT_EQ(program.value("XMP-dc", "Title"), "title " + number) << click;
        EXPECT_EQ(program.status(), "Ready");
        EXPECT_FALSE(program.refuse("message").isEmpty()) << "no message is open";
    }
    ended = true;
    killer.join();
    EXPECT_GT(killed, 0);
    EXPECT_EQ(program.quit(), 0);
}
