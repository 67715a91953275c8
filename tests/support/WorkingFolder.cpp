#include "support/WorkingFolder.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace support {

namespace fs = std::filesystem;

namespace {

class Keeper : public testing::EmptyTestEventListener {
 public:
    const fs::path& path() const { return folder_.path(); }

    void OnTestStart(const testing::TestInfo&) override {
        fs::current_path(folder_.path());
        hadCopies_ = fs::exists(kCopiesOfNoContext);
    }

    void OnTestEnd(const testing::TestInfo&) override {
        for (const auto& entry : fs::directory_iterator(folder_.path())) {
            ADD_FAILURE() << entry.path().filename() << " was left in the working folder";
            fs::remove_all(entry.path());
        }
        if (!hadCopies_ && fs::exists(kCopiesOfNoContext))
            ADD_FAILURE() << "safety copies were made in " << kCopiesOfNoContext;
    }

    void OnTestProgramEnd(const testing::UnitTest&) override { fs::current_path("/"); }

 private:
    /// The folder for them in a cache folder of no name.
    static constexpr const char* kCopiesOfNoContext = "/sav";

    TemporaryFolder folder_;
    bool hadCopies_ = false;
};

Keeper* keeper = nullptr;

}  // namespace

void keepToAWorkingFolder() {
    keeper = new Keeper;
    testing::UnitTest::GetInstance()->listeners().Append(keeper);
}

const fs::path& workingFolder() {
    return keeper->path();
}

}  // namespace support
