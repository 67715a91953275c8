#include "exiftool/StarterUnderTest.h"

#include "platform/ProcessId.h"
#include "support/OwnRuns.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

namespace fs = std::filesystem;
using platform::ProcessId;

namespace {

bool isWanted() {
    static const bool is = qEnvironmentVariableIntValue("TAGWRIGHT_TEST_WARM_START") == 1;
    return is;
}

/// The processes that this one has forked and that live. A command that is run warm uses up the one that
/// waits.
std::set<ProcessId> childrenOf(ProcessId parent) {
    std::set<ProcessId> children;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        std::ifstream stream(entry.path() / "stat");
        const std::string facts{std::istreambuf_iterator<char>(stream), {}};
        // The name of the program stands in brackets and may hold anything.
        const std::size_t bracket = facts.rfind(')');
        if (bracket == std::string::npos) continue;
        std::istringstream rest(facts.substr(bracket + 1));
        std::string state;
        ProcessId of = 0;
        if (rest >> state >> of && of == parent) children.insert(std::stoi(name));
    }
    return children;
}

/// The starter of the test program, and whether the commands of each case really went through it.
class WarmTurn : public testing::EmptyTestEventListener {
 public:
    WarmTurn() : ownRuns_(home_.path()) {
        qputenv("HOME", QByteArray::fromStdString(home_.path().string()));
        starter_.Start("/usr/bin/exiftool", TAGWRIGHT_BIN_DIR "/warm", "en");
        EXPECT_TRUE(starter_.isReadyWithin(std::chrono::seconds(60)));
    }

    exiftool::WarmStarter& starter() { return starter_; }

    void OnTestSuiteStart(const testing::TestSuite& /*suite*/) override { atFirst_ = waiting(); }
    void OnTestStart(const testing::TestInfo& /*info*/) override { before_ = ownRuns_.count(); }

    void OnTestEnd(const testing::TestInfo& /*info*/) override {
        EXPECT_EQ(ownRuns_.count() - before_, 0) << "commands were runs of their own";
    }
    void OnTestSuiteEnd(const testing::TestSuite& suite) override {
        EXPECT_NE(waiting(), atFirst_) << "nothing of " << suite.name() << " was run warm";
    }

 private:
    /// The child that will run the next command; it is forked soon after the last one.
    std::set<ProcessId> waiting() const {
        QElapsedTimer since;
        since.start();
        std::set<ProcessId> children = childrenOf(starter_.processId());
        while (children.size() != 1 && since.elapsed() < 10000) {
            std::this_thread::yield();
            children = childrenOf(starter_.processId());
        }
        EXPECT_EQ(children.size(), 1U) << "children of the starter";
        return children;
    }

    support::TemporaryFolder home_;
    support::OwnRuns ownRuns_;
    exiftool::WarmStarter starter_;
    std::set<ProcessId> atFirst_;
    int before_ = 0;
};

WarmTurn* warmTurn = nullptr;

/// Before the first test, so that it is asked about that one too.
class WarmTurnEnvironment : public testing::Environment {
 public:
    void SetUp() override {
        if (!isWanted()) return;
        warmTurn = new WarmTurn;
        testing::UnitTest::GetInstance()->listeners().Append(warmTurn);
    }
};

[[maybe_unused]] testing::Environment* const environment =
    testing::AddGlobalTestEnvironment(new WarmTurnEnvironment);

}  // namespace

exiftool::WarmStarter* starterUnderTest() {
    return warmTurn == nullptr ? nullptr : &warmTurn->starter();
}
