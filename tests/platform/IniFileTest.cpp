#include "platform/IniFile.h"

#include "support/TemporaryFolder.h"
#include "support/UnprivilegedUser.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

using platform::IniFile;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;
using namespace std::string_literals;

namespace {

struct IntegerCase {
    const char* value;
    int expected;
};

constexpr int kDefault = 77;

class IniFileTest : public testing::Test {
 protected:
    IniFile open(std::string_view bytes) {
        writeBytes(file_, bytes);
        return IniFile(file_);
    }

    TemporaryFolder folder_;
    std::filesystem::path file_ = folder_ / "Settings.ini";
};

}  // namespace

TEST_F(IniFileTest, NumbersAreReadFromTheBeginningOfTheValue) {
    const IntegerCase cases[] = {
        {"12", 12},
        {" 12 ", 12},
        {"-3", -3},
        {"+4", 4},
        {"12px", 12},
        {"abc", 0},
        {"", kDefault},
        {"\"15\"", 15},
        {"' 16'", 16},
        {"0x1F", 31},
        {"0XfFzz", 255},
        {"010", 10},
        {"1.9", 1},
        {"--5", 0},
        {"4294967295", -1},
        {"4294967296", 0},
        {"2147483648", -2147483647 - 1},
        {"0x4080FF", 0x4080FF},
    };
    for (const IntegerCase& row : cases) {
        const IniFile ini = open("[S]\nKey="s + row.value + "\n");
        EXPECT_EQ(ini.integer("S", "Key", kDefault), row.expected) << row.value;
    }
}

TEST_F(IniFileTest, TextLosesBlanksAndOnePairOfQuotes) {
    const std::pair<const char*, const char*> cases[] = {
        {"plain", "plain"},
        {"  blanks \t", "blanks"},
        {"\" kept \"", " kept "},
        {"'single'", "single"},
        {"\"\"two\"\"", "\"two\""},
        {"\"open", "\"open"},
        {"\"", "\""},
        {"a=b;c", "a=b;c"},
        {"\"mixed'", "\"mixed'"},
        {"", ""},
        {"Gr\xC3\xBC\xC3\x9F"
         "e",
         "Gr\xC3\xBC\xC3\x9F"
         "e"},
    };
    for (const auto& [value, expected] : cases) {
        const IniFile ini = open("[S]\r\nKey="s + value + "\r\n");
        EXPECT_EQ(ini.find("S", "Key"), expected) << value;
    }
}

TEST_F(IniFileTest, LookUpIsBlindToCaseAndTheLastValueWins) {
    const IniFile ini = open(
        "Before=9\n; [Main]\n[Main]\nLanguage=1\n;Language=5\n lAnGuage = 2\nNoEquals\n[Other]\nLanguage=8\n"
        "[MAIN] behind\nForceSize=3\nLanguage=4\n=5\n");
    EXPECT_EQ(ini.integer("main", "LANGUAGE", kDefault), 4);
    EXPECT_EQ(ini.integer("Main", "forcesize", kDefault), 3);
    EXPECT_EQ(ini.integer("Other", "Language", kDefault), 8);
    EXPECT_EQ(ini.integer("Main", "Before", kDefault), kDefault);
    EXPECT_EQ(ini.find("Main", "NoEquals"), std::nullopt);
    EXPECT_EQ(ini.find("Main", ""), std::nullopt);
    EXPECT_EQ(ini.find("Absent", "Language"), std::nullopt);
}

TEST_F(IniFileTest, TextIsCutToItsRoom) {
    const IniFile ini = open("[S]\nKey=12345678\n");
    EXPECT_EQ(ini.text("S", "Key", {}, 9), "12345678");
    EXPECT_EQ(ini.text("S", "Key", {}, 8), "1234567");
    EXPECT_EQ(ini.text("S", "Key", {}, 0), "");
    EXPECT_EQ(ini.text("S", "None", "default", 4), "def");
}

TEST_F(IniFileTest, SavingChangesValuesInPlaceAndKeepsEverythingElse) {
    IniFile ini = open("; mine\r\n[Main]\r\nLanguage = 1\r\njunk\r\nOld=x\r\n\r\n[Next]\r\nA=1\r\n\r\n");
    EXPECT_TRUE(ini.setInteger("MAIN", "language", 9));
    EXPECT_TRUE(ini.setText("main", "New", "value"));
    EXPECT_TRUE(ini.setBoolean("Colors", "bold", true));
    EXPECT_EQ(ini.integer("Main", "Language", kDefault), 9) << "seen before it is saved";
    EXPECT_TRUE(ini.save());
    EXPECT_EQ(readBytes(file_),
              "; mine\r\n[Main]\r\nLanguage =9\r\njunk\r\nOld=x\r\nNew=value\r\n\r\n[Next]\r\nA=1\r\n\r\n"
              "[Colors]\r\nbold=1\r\n");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "Settings.ini.new"));
}

TEST_F(IniFileTest, WhatIsSetIsReadBack) {
    const std::string values[] = {"plain", " blanks ", "\"quoted\"", "'single'",     "'",         "\" ",
                                  "",      "a;b=c",    "[x]",        "\xE6\x97\xA5", "\xE9 latin"};
    IniFile ini(file_);
    EXPECT_EQ(ini.loadStatus(), IniFile::LoadStatus::Missing);
    for (std::size_t i = 0; i < std::size(values); ++i) {
        EXPECT_TRUE(ini.setBytes("S", "Key" + std::to_string(i), values[i]));
        EXPECT_EQ(ini.find("S", "Key" + std::to_string(i)), values[i]);
    }
    ASSERT_TRUE(ini.save());
    const IniFile again(file_);
    for (std::size_t i = 0; i < std::size(values); ++i)
        EXPECT_EQ(again.find("S", "Key" + std::to_string(i)), values[i]);
}

TEST_F(IniFileTest, WhatTheFileCannotGiveBackIsRefused) {
    IniFile ini = open("[S]\nKey=old\n");
    const std::string bad[] = {"line\nfeed", "return\r", "zero\0byte"s};
    for (const std::string& text : bad) {
        EXPECT_FALSE(ini.setBytes("S", "Key", text));
        EXPECT_FALSE(ini.setBytes(text, "Key", "v"));
        EXPECT_FALSE(ini.setBytes("S", text, "v"));
    }
    for (const char* key : {"", "a=b", "; c", "[d", " e", "f "})
        EXPECT_FALSE(ini.setBytes("S", key, "v")) << key;
    EXPECT_FALSE(ini.setBytes("S]", "Key", "v"));
    EXPECT_FALSE(ini.hasChanges());
    EXPECT_EQ(ini.find("S", "Key"), "old");
}

TEST_F(IniFileTest, SettingWhatIsThereWritesNothing) {
    IniFile ini = open("[S]\nKey=1\n");
    ini.setInteger("s", "KEY", 1);
    EXPECT_FALSE(ini.hasChanges());
    std::filesystem::remove(file_);
    EXPECT_TRUE(ini.save());
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(IniFileTest, TwoWritersKeepEachOthersKeys) {
    IniFile first = open("[S]\nA=0\nB=0\n");
    IniFile second(file_);
    first.setInteger("S", "A", 1);
    second.setInteger("S", "B", 2);
    ASSERT_TRUE(first.save());
    ASSERT_TRUE(second.save());
    EXPECT_EQ(readBytes(file_), "[S]\nA=1\nB=2\n");
    EXPECT_EQ(second.integer("S", "A", kDefault), 1);
}

TEST_F(IniFileTest, AValueThatIsNotOursIsLeftOutWhenTheFileHasAnotherOneNow) {
    const struct {
        const char* name;
        std::optional<std::string> before;
        const char* now;
        const char* saved;
    } cases[] = {
        {"as before", "1", "[A]\nkey=1\n", "[A]\nkey=5\n"},
        {"in other words", "1", "[A]\nkey= \"1\" \n", "[A]\nkey=5\n"},
        {"changed", "1", "[A]\nkey=2\n", "[A]\nkey=2\n"},
        {"gone", "1", "[A]\n", "[A]\n"},
        {"new", std::nullopt, "[A]\nkey=2\n", "[A]\nkey=2\n"},
        {"empty is not missing", std::nullopt, "[A]\nkey=\n", "[A]\nkey=\n"},
        {"missing as before", std::nullopt, "[A]\n", "[A]\nkey=5\n"},
    };
    for (const auto& [name, before, now, saved] : cases) {
        IniFile ini = open(now);
        EXPECT_TRUE(ini.setBytesUnlessChanged("A", "key", "5", before)) << name;
        EXPECT_TRUE(ini.save()) << name;
        EXPECT_EQ(readBytes(file_), saved) << name;
        EXPECT_EQ(IniFile(file_).find("A", "key"), ini.find("A", "key")) << name;
    }
}

TEST_F(IniFileTest, AFileThatIsGoneGetsEveryValue) {
    IniFile ini = open("[A]\nkey=1\n");
    EXPECT_TRUE(ini.setBytesUnlessChanged("A", "key", "5", "1"));
    std::filesystem::remove(file_);
    EXPECT_TRUE(ini.save());
    EXPECT_EQ(IniFile(file_).find("A", "key"), "5");
}

TEST_F(IniFileTest, ManyProgramsThatSaveAtOnceLoseNothing) {
    constexpr int kPrograms = 6;
    constexpr int kSaves = 40;
    writeBytes(file_, "[A]\n");
    std::vector<pid_t> children;
    for (int program = 0; program < kPrograms; ++program) {
        const pid_t child = fork();
        if (child == 0) {
            bool isSaved = true;
            for (int save = 0; save < kSaves; ++save) {
                IniFile ini(file_);
                ini.setInteger("A", std::to_string(program) + "-" + std::to_string(save), save);
                isSaved = ini.save() && isSaved;
            }
            _exit(isSaved ? 0 : 1);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const IniFile ini(file_);
    for (int program = 0; program < kPrograms; ++program) {
        for (int save = 0; save < kSaves; ++save) {
            const std::string key = std::to_string(program) + "-" + std::to_string(save);
            EXPECT_EQ(ini.integer("A", key, -1), save) << key;
        }
    }
    EXPECT_FALSE(std::filesystem::exists(file_.native() + ".new"));
}

TEST_F(IniFileTest, GarbageGivesDefaultsAndTakesValuesNonetheless) {
    std::string noise(300'000, '\0');
    unsigned state = 12345;
    for (char& c : noise) c = static_cast<char>((state = state * 1664525U + 1013904223U) >> 24U);
    const std::string cases[] = {
        noise,
        "[S\nKey=1\n",
        std::string(1000, '\0'),
        "\xFF\xFE",
        "[]]=[\n=\n=\n[",
        std::string(1'000'000, '['),
        std::string("[S]\nKey").append(3'000'000, 'x'),
        "\n\n\n\r\r\r=",
    };
    for (const std::string& garbage : cases) {
        IniFile ini = open(garbage);
        EXPECT_EQ(ini.integer("S", "Key", kDefault), kDefault);
        ini.setInteger("S", "Key", 5);
        EXPECT_TRUE(ini.save());
        EXPECT_EQ(IniFile(file_).integer("S", "Key", kDefault), 5) << garbage.substr(0, 20);
    }
}

TEST_F(IniFileTest, AHugeFileGivesDefaultsAndIsMovedAside) {
    const std::string huge = std::string().append(100'000'000, 'x');
    IniFile ini = open(huge);
    EXPECT_EQ(ini.loadStatus(), IniFile::LoadStatus::Unreadable);
    EXPECT_EQ(ini.integer("S", "Key", kDefault), kDefault);
    ini.setInteger("S", "Key", 5);
    EXPECT_TRUE(ini.save());
    EXPECT_EQ(readBytes(file_), "[S]\nKey=5\n");
    EXPECT_EQ(std::filesystem::file_size(folder_ / "Settings.ini.unreadable"), huge.size());
}

TEST_F(IniFileTest, MarksOfEncodingsAreUnderstood) {
    EXPECT_EQ(open("\xEF\xBB\xBF[S]\nKey=1\n").integer("S", "Key", kDefault), 1);
    std::string wide = "\xFF\xFE";
    for (const char c : "[S]\r\nKey=\"x\"\r\n"s) (wide += c) += '\0';
    IniFile ini = open(wide);
    EXPECT_EQ(ini.find("S", "Key"), "x");
    ini.setText("S", "Key", "\u00FC");
    ASSERT_TRUE(ini.save());
    EXPECT_EQ(readBytes(file_), "[S]\r\nKey=\xC3\xBC\r\n");
}

TEST_F(IniFileTest, WhatIsNoRegularFileIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo(file_.c_str(), 0600), 0);
    IniFile fifo(file_);
    EXPECT_EQ(fifo.loadStatus(), IniFile::LoadStatus::Unreadable);
    fifo.setInteger("S", "Key", 1);
    EXPECT_FALSE(fifo.save());
    IniFile directory(folder_.path());
    EXPECT_EQ(directory.integer("S", "Key", kDefault), kDefault);
    directory.setInteger("S", "Key", 1);
    EXPECT_FALSE(directory.save().reason.empty());
}

TEST_F(IniFileTest, SavingFollowsASymbolicLinkAndKeepsPermissions) {
    const auto real = folder_ / "real.ini";
    writeBytes(real, "[S]\nKey=1\n");
    ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
    std::filesystem::create_symlink("real.ini", file_);
    IniFile ini(file_);
    ini.setInteger("S", "Key", 2);
    ASSERT_TRUE(ini.save());
    EXPECT_TRUE(std::filesystem::is_symlink(file_));
    EXPECT_EQ(readBytes(real), "[S]\nKey=2\n");
    EXPECT_EQ(static_cast<unsigned>(std::filesystem::status(real).permissions()), 0640U);
}

TEST_F(IniFileTest, AFolderThatIsGoneIsAFailureThatKeepsTheChanges) {
    const auto inner = folder_ / "cache";
    IniFile ini(inner / "Settings.ini");
    ini.setInteger("S", "Key", 2);
    const auto failed = ini.save();
    EXPECT_FALSE(failed);
    EXPECT_FALSE(failed.reason.empty());
    std::filesystem::create_directory(inner);
    EXPECT_TRUE(ini.save());
    EXPECT_EQ(readBytes(inner / "Settings.ini"), "[S]\nKey=2\n");
}

TEST_F(IniFileTest, AReadOnlyFolderIsAFailureThatLeavesTheFile) {
    IniFile ini = open("[S]\nKey=1\n");
    std::filesystem::permissions(folder_.path(),
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    const support::UnprivilegedUser user(folder_.path());
    ini.setInteger("S", "Key", 2);
    EXPECT_FALSE(ini.save());
    EXPECT_EQ(readBytes(file_), "[S]\nKey=1\n");
}

TEST_F(IniFileTest, WhereNobodyMayWriteSavingFails) {
    IniFile ini("/proc/version");
    EXPECT_EQ(ini.loadStatus(), IniFile::LoadStatus::Loaded);
    ini.setInteger("S", "Key", 2);
    EXPECT_FALSE(ini.save().reason.empty());
    EXPECT_TRUE(ini.hasChanges());
}

/// Stands for a full disk: the same failure of the same call, in a process of its own because the limit
/// stays.
TEST_F(IniFileTest, AWriteThatFailsLeavesTheOldFile) {
    writeBytes(file_, "[S]\nKey=1\n");
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100, 100};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        IniFile ini(file_);
        ini.setText("S", "Key", QString(1000, 'x'));
        ::_exit(ini.save() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(readBytes(file_), "[S]\nKey=1\n");
    EXPECT_FALSE(std::filesystem::exists(folder_ / "Settings.ini.new"));
}

TEST_F(IniFileTest, AKillInTheMiddleOfAWriteLosesNothing) {
    constexpr int kRounds = 40;
    int numbersSeen = 0;
    IniFile first = open("[Other]\nKept=1\n");
    for (int round = 0; round < kRounds; ++round) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            IniFile ini(file_);
            for (int number = 1;; ++number) {
                ini.setInteger("S", "First", number);
                ini.setText("S", "Filler", QString(200'000, QChar('a' + number % 26)));
                ini.setInteger("S", "Last", number);
                if (!ini.save() || ::write(ends[1], "x", 1) != 1) ::_exit(1);
            }
        }
        ::close(ends[1]);
        char saved = 0;
        for (int i = 0; i <= round % 4; ++i) ASSERT_EQ(::read(ends[0], &saved, 1), 1);
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        ::close(ends[0]);
        const IniFile ini(file_);
        EXPECT_EQ(ini.integer("Other", "Kept", kDefault), 1);
        EXPECT_EQ(ini.text("S", "Filler").size(), 32767) << "cut to its room, not by the kill";
        EXPECT_EQ(ini.integer("S", "First", -1), ini.integer("S", "Last", -2));
        numbersSeen = std::max(numbersSeen, ini.integer("S", "Last", 0));
    }
    EXPECT_GE(numbersSeen, 4);
    IniFile last(file_);
    last.setInteger("S", "First", -5);
    EXPECT_TRUE(last.save()) << "also over what a killed writer has left";
    EXPECT_FALSE(std::filesystem::exists(folder_ / "Settings.ini.new"));
}
