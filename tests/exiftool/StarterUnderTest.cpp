#include "exiftool/StarterUnderTest.h"

#include <gtest/gtest.h>

exiftool::WarmStarter* starterUnderTest() {
    static const bool isWanted = qEnvironmentVariableIntValue("TAGWRIGHT_TEST_WARM_START") == 1;
    if (!isWanted) return nullptr;
    static exiftool::WarmStarter starter;
    static const bool isReady = [] {
        starter.Start("/usr/bin/exiftool", TAGWRIGHT_BIN_DIR "/warm", "en");
        return starter.isReadyWithin(std::chrono::seconds(30));
    }();
    EXPECT_TRUE(isReady);
    return &starter;
}
