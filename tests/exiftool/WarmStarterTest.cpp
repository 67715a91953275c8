#include "exiftool/WarmStarter.h"

#include "exiftool/ReadCommands.h"
#include "exiftool/WarmConditions.h"
#include "platform/CommandInterpreter.h"
#include "support/ManyFormats.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <fstream>
#include <map>
#include <random>
#include <regex>
#include <thread>

using namespace exiftool;
using namespace std::chrono_literals;
using platform::ChildCommand;
using platform::ChildOutcome;
using platform::ChildStream;
using support::filesIn;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;
using testing::HasSubstr;

namespace fs = std::filesystem;

namespace {

const fs::path kExifTool = "/usr/bin/exiftool";
const fs::path kFolder = TAGWRIGHT_BIN_DIR "/warm";

bool exists(pid_t process) {
    return ::kill(process, 0) == 0;
}

bool becomesTrue(const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + 10s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::yield();
    }
    return true;
}

const fs::path kSamples = TAGWRIGHT_BIN_DIR "/samples";

struct Result {
    ChildOutcome outcome;
    std::string output;
    std::string errors;
};

bool operator==(const Result& left, const Result& right) {
    return left.outcome.kind == right.outcome.kind && left.outcome.number == right.outcome.number &&
           left.output == right.output && left.errors == right.errors;
}

void PrintTo(const Result& result, std::ostream* stream) {
    *stream << "kind " << static_cast<int>(result.outcome.kind) << " number " << result.outcome.number
            << "\nOUTPUT " << result.output.size() << " bytes\nERRORS " << result.errors;
}

class WarmStarterTest : public testing::Test {
 protected:
    void SetUp() override {
        fs::create_directory(folder_ / "home");
        ::setenv("HOME", (folder_ / "home").c_str(), 1);
    }
    void TearDown() override { ::setenv("HOME", home_.c_str(), 1); }

    void startWarm() {
        starter_.Start(kExifTool, kFolder, "en");
        ASSERT_TRUE(starter_.isReadyWithin(30s));
    }

    /// Never 0, which would be this program to kill().
    pid_t helper() const {
        const auto process = static_cast<pid_t>(starter_.processId());
        if (process <= 0) throw std::runtime_error("there is no helper");
        return process;
    }

    void killHelper() const {
        const pid_t process = helper();
        ::kill(process, SIGKILL);
        siginfo_t facts{};
        ::waitid(P_PID, static_cast<id_t>(process), &facts, WEXITED | WNOWAIT);
    }

    ChildCommand commandOf(std::vector<std::string> arguments) const {
        ChildCommand command;
        command.program = kExifTool;
        command.arguments = std::move(arguments);
        command.environment = {"PERL_BADLANG=0"};
        command.output = ChildStream::truncate(folder_ / "out");
        command.errors = ChildStream::truncate(folder_ / "err");
        return command;
    }

    /// But for the places in memory that the verbose dump prints, which are others in every run.
    Result resultOf(const ChildOutcome& outcome) const {
        static const std::regex place("(SCALAR|HASH|ARRAY)\\(0x[0-9a-f]+\\)");
        std::string output = readBytes(folder_ / "out");
        if (output.find("(0x") != std::string::npos) output = std::regex_replace(output, place, "$1");
        return {outcome, std::move(output), readBytes(folder_ / "err")};
    }

    Result direct(const std::vector<std::string>& arguments) const {
        return resultOf(platform::runChild(commandOf(arguments)));
    }

    Result warm(const std::vector<std::string>& arguments) {
        const std::optional<ChildOutcome> outcome = starter_.run(commandOf(arguments), {});
        EXPECT_TRUE(outcome) << "was not run warm";
        return resultOf(outcome.value_or(ChildOutcome{}));
    }

    using Files = std::map<std::string, std::string>;

    /// What the write of a copy answers, and what then stands in its folder.
    std::pair<Result, Files> afterWrite(const std::string& master, const std::string& name,
                                        std::vector<std::string> arguments, bool isWarm) {
        const fs::path work = folder_ / "work";
        fs::remove_all(work);
        fs::create_directory(work);
        writeBytes(work / name, master);
        fs::last_write_time(work / name, fs::file_time_type(1000000s));
        arguments.push_back((work / name).string());
        Result result = isWarm ? warm(arguments) : direct(arguments);
        Files files;
        for (const fs::path& file : filesIn(work)) files[file.filename().string()] = readBytes(file);
        return {std::move(result), std::move(files)};
    }

    /// The words behind the tool.
    static std::vector<std::string> argumentsOf(const platform::CommandText& command) {
        std::vector<std::string> words = platform::parseCommands(command).at(0).words;
        words.erase(words.begin());
        return words;
    }

    /// Those whose text depends most on what is loaded when: the panel's, both dumps, and one that is not
    /// sorted and thus in the order of the loading.
    std::vector<platform::CommandText> tellingCommands(const fs::path& file) const {
        app::AppContext context;
        context.exifToolPath = kExifTool;
        const fs::path output = folder_ / "unused";
        platform::CommandText unsorted("\"");
        unsorted.outside(kExifTool.native()).literal("\" -a -G1 \"").outside(file.native()).literal("\"");
        return {panelReadCommand(context, app::commandFormOf(context), file, output),
                dumpHtmlCommand(context, file, output), dumpVerboseCommand(context, file, output), unsorted};
    }

    std::vector<platform::CommandText> otherCommands(const fs::path& file) const {
        app::AppContext context;
        context.exifToolPath = kExifTool;
        const fs::path output = folder_ / "unused";
        std::vector<platform::CommandText> commands;
        for (const bool corrected : {false, true}) {
            context.settings.exifTool.correctedCommands = corrected;
            commands.push_back(
                oneValueCommand(context, app::commandFormOf(context), file, output, "GPSLatitude", true));
            commands.push_back(categoryCommand(context, app::commandFormOf(context), file, output, 1436));
        }
        commands.push_back(groupAllCommand(context, app::commandFormOf(context), file, output, "XMP"));
        commands.push_back(categoryCommand(context, app::commandFormOf(context), file, output, 7));
        commands.push_back(gpsPositionCommand(context, file, output));
        platform::CommandText word("\"");
        word.outside(file.native()).literal("\"");
        commands.push_back(exportValuesCommand(context, app::commandFormOf(context), word,
                                               platform::CommandText("x"),
                                               platform::CommandText("-G1 -s -a -u ")));
        context.settings.exifTool.dataLanguage = 1;
        commands.push_back(panelReadCommand(context, app::commandFormOf(context), file, output));
        return commands;
    }

    void expectSame(const std::vector<platform::CommandText>& commands) {
        for (const platform::CommandText& command : commands) {
            const std::vector<std::string> arguments = argumentsOf(command);
            EXPECT_EQ(warm(arguments), direct(arguments)) << command.text();
        }
    }

    const std::string home_ = qgetenv("HOME").toStdString();
    TemporaryFolder folder_;
    WarmStarter starter_;
};

/// Every way of writing that the dialogs know, and some more.
const std::vector<std::vector<std::string>> kWrites = {
    {"-XMP-dc:Title=A title"},
    {"-Title=A title", "-Keywords=one", "-Keywords=two"},
    {"-XMP-dc:Title="},
    {"-IPTC:Keywords+=more", "-IPTC:Keywords-=word"},
    {"-XMP-dc:Subject+=more"},
    {"-EXIF:Artist=Some \"Body\""},
    {"-Artist=\xE6\x97\xA5\xE6\x9C\xAC"},
    {"-IPTC:City=M\xC3\xBCnchen", "-codedcharacterset=utf8"},
    {"-IPTC:CodedCharacterSet=ESC % G"},
    {"-m", "-exif=", "-Adobe:All=", "-P", "-x", "XML:All", "-x", "FILE:All"},
    {"-m", "-iptc=", "-P"},
    {"-m", "-xmp=", "-P"},
    {"-m", "-icc_profile=", "-P"},
    {"-m", "-geotag=", "-gps*=", "-P"},
    {"-m", "-all=", "-Adobe:All=", "-Quicktime:All=", "-P", "-x", "XML:All", "-x", "FILE:All"},
    {"-all=", "-tagsfromfile", "@", "-EXIF:All"},
    {"-GPSLatitude=48.5", "-GPSLatitudeRef=N", "-GPSLongitude=11.25", "-GPSLongitudeRef=W"},
    {"-GPSAltitude=123.4", "-GPSAltitudeRef=above"},
    {"-AllDates=2020:01:02 03:04:05"},
    {"-AllDates+=1:30"},
    {"-DateTimeOriginal-=0:0:1 0"},
    {"-FileModifyDate=2020:01:02 03:04:05"},
    {"-FileModifyDate<DateTimeOriginal"},
    {"-Rating=4"},
    {"-XMP:Rating=-1"},
    {"-Orientation#=6"},
    {"-Orientation=Rotate 90 CW"},
    {"-EXIF:UserComment=A comment"},
    {"-Comment=A comment"},
    {"-XMP-xmpRights:UsageTerms=All"},
    {"-XMP-xmpRights:UsageTerms-de=Alle"},
    {"-XMP-plus:CopyrightStatus=Protected"},
    {"-XMP-iptcExt:LocationShownCity=Here", "-XMP-iptcCore:CreatorCity=There"},
    {"-XMP-lr:HierarchicalSubject=a|b"},
    {"-XMP-mwg-rs:RegionInfo={RegionList=[{Name=x,Type=Face}]}"},
    {"-MWG:Description=Everywhere", "-use", "MWG"},
    {"-XMP-photoshop:DateCreated=2020:01:02"},
    {"-ExposureTime=1/125", "-FNumber=2.8", "-ISO=100"},
    {"-LensModel=A lens", "-n"},
    {"-Copyright<Artist"},
    {"-XMP-dc:Creator<EXIF:Artist", "-XMP-dc:Title<$Make and ${Model;tr/a-z/A-Z/}"},
    {"-NoSuchTag=1"},
    {"-Rating=many"},
    {"-ThumbnailImage="},
    {"-xmp:all=", "-xmp:title=left", "-q"},
    {"-overwrite_original_in_place", "-XMP-dc:Title=In place"},
    {"-P", "-m", "-q", "-EXIF:ImageDescription=Quiet"},
    {"-XMP-dc:Title=Listed", "-execute", "-XMP-dc:Creator=Second", "-common_args", "-q"},
    {"-if", "$Artist", "-XMP-dc:Title=Conditional"},
    {"-PNG:Title=In a PNG", "-RIFF:Title=In a WAV"},
};

}  // namespace

TEST_F(WarmStarterTest, EveryReadIsByteForByteThatOfARunOfItsOwn) {
    startWarm();
    ASSERT_FALSE(filesIn(kSamples).empty());
    for (const fs::path& file : filesIn(kSamples)) {
        expectSame(tellingCommands(file));
        expectSame(otherCommands(file));
    }
    // Takes minutes when it is to be all of them.
    const bool isThorough = qEnvironmentVariableIntValue("TAGWRIGHT_TEST_THOROUGHLY") == 1;
    fs::create_directory(folder_ / "formats");
    support::makeFilesOfManyFormats(folder_ / "formats");
    for (const std::vector<fs::path>& files : {filesIn(folder_ / "formats"), support::addedSamples()}) {
        for (const fs::path& file : files) {
            expectSame(tellingCommands(file));
            if (isThorough) expectSame(otherCommands(file));
        }
    }
}

TEST_F(WarmStarterTest, EveryWriteLeavesTheSameBytes) {
    startWarm();
    ASSERT_GE(kWrites.size(), 40U);
    for (const char* sample : {"Harbour at dawn.jpg", "Paper boats.png"}) {
        const std::string master = readBytes(kSamples / sample);
        for (const std::vector<std::string>& write : kWrites) {
            const auto [directResult, directFiles] = afterWrite(master, sample, write, false);
            const auto [warmResult, warmFiles] = afterWrite(master, sample, write, true);
            EXPECT_EQ(warmResult, directResult) << write.front();
            EXPECT_TRUE(warmFiles == directFiles) << write.front();
        }
    }
}

TEST_F(WarmStarterTest, HostileNamesAreReadAndWrittenTheSame) {
    startWarm();
    const std::string master = readBytes(kSamples / "Harbour at dawn.jpg");
    for (const std::string& name : support::hostileNames()) {
        const std::vector<std::string> write{"-XMP-dc:Title=x", "-charset", "filename=UTF8"};
        EXPECT_TRUE(afterWrite(master, name, write, true) == afterWrite(master, name, write, false)) << name;
        const std::vector<std::string> read{
            "-S", "-x", "System:All", "-charset", "filename=UTF8", (folder_ / "work" / name).string()};
        EXPECT_EQ(warm(read), direct(read)) << name;
    }
}

TEST_F(WarmStarterTest, MissingFilesWrongOptionsAndDeathsAreTheSame) {
    startWarm();
    const std::string sample = kSamples / "Harbour at dawn.jpg";
    const std::vector<std::vector<std::string>> cases = {
        {"-S", "/no/such.jpg"},
        {"-S", sample, "/no/such.jpg"},
        {"-lang", "ce", sample},
        {"-nosuchoption=", sample},
        {"-if", "0", sample},
        {"-p", "$NoSuchTag", sample},
        {"-ver"},
        {"-echo2", "text", "-ver"},
        {"-if", "die \"oops\"", sample},
        {"-if", "warn \"oops\"", sample},
        {"-if", "kill 9, $$", sample},
        {"-if", "print sprintf('%o', umask), `pwd`, join('|', map { qq($_=$ENV{$_}) } sort keys %ENV)",
         sample},
        {"-if", "print join('|', map { defined $SIG{$_} ? qq($_=$SIG{$_}) : $_ } sort keys %SIG)", sample},
        {"-if", "print qq($0 $^X $^W @INC), getpgrp() == $$", sample},
        {"-if", "print localtime(86400 * 365) . ''", sample},
        {"-b", "-ThumbnailImage", sample},
        {"-csv", sample},
        {"-j", "-struct", sample},
        {"-X", sample},
        {"-listx", "-XMP-dc:all"},
        {"-listw", "-IPTC:all"},
        {"-validate", "-warning", "-a", sample},
        {"-Composite:All", "-G", sample},
        {"-r", "-T", "-FileName", kSamples.string()},
    };
    for (const std::vector<std::string>& arguments : cases) EXPECT_EQ(warm(arguments), direct(arguments));
}

TEST_F(WarmStarterTest, OutputThatCannotBeWrittenFailsTheSame) {
    startWarm();
    for (const char* option : {"-ver", "-listx"}) {
        ChildCommand command = commandOf({option, "-XMP-dc:all"});
        command.output = ChildStream::truncate("/dev/full");
        const ChildOutcome expected = platform::runChild(command);
        const std::string errors = readBytes(folder_ / "err");
        const std::optional<ChildOutcome> outcome = starter_.run(command, {});
        ASSERT_TRUE(outcome);
        EXPECT_EQ(outcome->number, expected.number);
        EXPECT_EQ(readBytes(folder_ / "err"), errors);
        command.output = ChildStream::truncate(folder_.path());
        EXPECT_EQ(starter_.run(command, {})->reason, platform::runChild(command).reason);
    }
}

TEST_F(WarmStarterTest, NoDescriptorBeyondThatOfARunOfItsOwn) {
    startWarm();
    const std::string sample = kSamples / "Harbour at dawn.jpg";
    // What a program that ExifTool starts would be given.
    const std::vector<std::string> list{
        "-if", "system('ls -l /proc/self/fd | grep -o \"[0-9]* ->.*\" | grep -v proc | sed s/pipe.*/pipe/')",
        sample};
    EXPECT_EQ(warm(list), direct(list));
}

TEST_F(WarmStarterTest, ErrorsAreAppended) {
    startWarm();
    ChildCommand command = commandOf({"-S", "/no/such.jpg"});
    command.errors = ChildStream::append(folder_ / "report");
    for (int i = 0; i < 3; ++i) ASSERT_TRUE(starter_.run(command, {}));
    EXPECT_EQ(readBytes(folder_ / "report"),
              "Error: File not found - /no/such.jpg\nError: File not found - /no/such.jpg\n"
              "Error: File not found - /no/such.jpg\n");
}

TEST_F(WarmStarterTest, FolderAndMaskAreThoseOfTheMoment) {
    startWarm();
    fs::create_directory(folder_ / "w");
    fs::current_path(folder_ / "w");
    fs::rename(folder_ / "w", folder_ / "renamed");
    const mode_t before = ::umask(0077);
    writeBytes("a.txt", "text");
    EXPECT_EQ(warm({"-S", "-FileName", "-w", "txt2", "a.txt"}).outcome.number, 0);
    ::umask(before);
    struct stat facts {};
    ASSERT_EQ(::stat((folder_ / "renamed/a.txt2").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0600U);
}

TEST_F(WarmStarterTest, AUsersConfigurationCountsAndItsChangeIsSeen) {
    const fs::path configuration = folder_ / "home/.ExifTool_config";
    const auto define = [&](const char* tag) {
        writeBytes(configuration,
                   std::string("%Image::ExifTool::UserDefined = ('Image::ExifTool::Composite' => { ") + tag +
                       " => { Require => 'FileName', ValueConv => '\"own $val\"' } }, "
                       "'Image::ExifTool::XMP::xmp' => { MyTag => { } }); 1;");
    };
    define("MyFirst");
    startWarm();
    const fs::path file = kSamples / "Harbour at dawn.jpg";
    expectSame(tellingCommands(file));
    expectSame(otherCommands(file));
    const std::string master = readBytes(file);
    EXPECT_TRUE(afterWrite(master, "a.jpg", {"-XMP-xmp:MyTag=x"}, true) ==
                afterWrite(master, "a.jpg", {"-XMP-xmp:MyTag=x"}, false));
    const std::vector<std::string> read{"-S", "-Composite:All", file.string()};
    EXPECT_THAT(warm(read).output, HasSubstr("MyFirst: own Harbour"));

    define("MySecond");
    EXPECT_FALSE(starter_.run(commandOf(read), {})) << "is left to a run of its own";
    ASSERT_TRUE(starter_.isReadyWithin(30s));
    EXPECT_THAT(warm(read).output, HasSubstr("MySecond: own Harbour"));
    fs::remove(configuration);
    EXPECT_FALSE(starter_.run(commandOf(read), {}));
    ASSERT_TRUE(starter_.isReadyWithin(30s));
    EXPECT_EQ(warm(read), direct(read));
}

TEST_F(WarmStarterTest, AConfigurationThatSpeaksLeavesEverythingToRunsOfTheirOwn) {
    writeBytes(folder_ / "home/.ExifTool_config", "print STDERR 'hello'; 1;");
    starter_.Start(kExifTool, kFolder, "en");
    EXPECT_FALSE(starter_.isReadyWithin(30s));
    EXPECT_FALSE(starter_.run(commandOf({"-ver"}), {}));
    EXPECT_EQ(starter_.processId(), 0);
}

TEST_F(WarmStarterTest, WhatOnlyAFreshRunCanDoIsLeftToOne) {
    startWarm();
    for (const auto& arguments : std::vector<std::vector<std::string>>{{"-config", "x", "-ver"},
                                                                       {"-CONFIG", "", "-ver"},
                                                                       {"-stay_open", "1", "-@", "-"},
                                                                       {"-ver", "-Stay_Open"}})
        EXPECT_FALSE(starter_.run(commandOf(arguments), {}));
    ChildCommand command = commandOf({"-ver"});
    command.environment = {"PERL_BADLANG=0", "TZ=Asia/Tokyo"};
    EXPECT_FALSE(starter_.run(command, {}));
    command = commandOf({"-ver"});
    command.program = "/usr/bin/perl";
    EXPECT_FALSE(starter_.run(command, {}));
    command = commandOf({"-ver"});
    command.output = ChildStream::to(1);
    EXPECT_FALSE(starter_.run(command, {}));
    EXPECT_TRUE(starter_.run(commandOf({"-ver"}), {})) << "and the next goes on";
}

TEST_F(WarmStarterTest, AProgramThatIsNoPerlScriptIsLeftAlone) {
    const fs::path tool = folder_ / "tool";
    for (const char* text : {"#!/bin/sh\necho x\n",
                             "\x7f"
                             "ELF",
                             "", "#!/usr/bin/python3 perl\n", "#!perl\n"}) {
        writeBytes(tool, text);
        EXPECT_FALSE(perlStartOf(tool)) << text;
        starter_.Start(tool, kFolder, "en");
        EXPECT_FALSE(starter_.isReadyWithin(0ms));
        EXPECT_EQ(starter_.processId(), 0);
    }
    writeBytes(tool, "#! /usr/bin/perl -w \n");
    EXPECT_EQ(perlStartOf(tool)->arguments, std::vector<std::string>{"-w"});
    writeBytes(tool, "#!/usr/bin/env perl\n");
    EXPECT_EQ(perlStartOf(tool)->arguments, std::vector<std::string>{"perl"});
}

TEST_F(WarmStarterTest, AHangingChildIsKilledLikeAnyOther) {
    startWarm();
    ASSERT_EQ(::mkfifo((folder_ / "pipe.jpg").c_str(), 0600), 0);
    ChildCommand command = commandOf({"-if", "system('sleep 1000')", kSamples / "Harbour at dawn.jpg"});
    int questions = 0;
    const auto outcome = starter_.run(command, [&](std::chrono::milliseconds) { return ++questions < 5; });
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->kind, ChildOutcome::Kind::Stopped);
    EXPECT_EQ(questions, 5);
    EXPECT_EQ(warm({"-ver"}).outcome.number, 0) << "took only itself along";
}

TEST_F(WarmStarterTest, AStarterThatDoesNotAnswerIsGivenUpInBoundedTime) {
    startWarm();
    const pid_t stopped = helper();
    ::kill(stopped, SIGSTOP);
    const auto begin = std::chrono::steady_clock::now();
    const fs::path file = folder_ / "a.jpg";
    support::writeJpeg(file);
    const std::string before = readBytes(file);
    EXPECT_FALSE(starter_.run(commandOf({"-XMP-dc:Title=never", file.string()}), {}));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
    EXPECT_TRUE(becomesTrue([&] { return !exists(stopped); }));
    EXPECT_EQ(readBytes(file), before) << "nothing is run by an end that was given up";
    ASSERT_TRUE(starter_.isReadyWithin(30s)) << "a new one has been started";
    EXPECT_EQ(warm({"-ver"}).outcome.number, 0);
}

TEST_F(WarmStarterTest, ADeadStarterIsReplacedAFewTimes) {
    startWarm();
    for (int i = 0; i < 3; ++i) {
        killHelper();
        EXPECT_FALSE(starter_.run(commandOf({"-ver"}), {}));
        ASSERT_TRUE(starter_.isReadyWithin(30s));
        EXPECT_EQ(warm({"-ver"}).outcome.number, 0);
    }
    killHelper();
    EXPECT_FALSE(starter_.run(commandOf({"-ver"}), {}));
    EXPECT_FALSE(starter_.isReadyWithin(1s));
    EXPECT_FALSE(starter_.run(commandOf({"-ver"}), {}));
}

TEST_F(WarmStarterTest, AChildThatDiesWithItsStarterHasNotEndedWell) {
    startWarm();
    bool wasKilled = false;
    const ChildCommand command =
        commandOf({"-if", "sleep 1; kill 'KILL', $$", kSamples / "Harbour at dawn.jpg"});
    const auto outcome = starter_.run(command, [&](std::chrono::milliseconds) {
        if (!wasKilled) killHelper();
        return wasKilled = true;
    });
    ASSERT_TRUE(outcome);
    EXPECT_FALSE(outcome->kind == ChildOutcome::Kind::Ended && outcome->number == 0);
}

TEST_F(WarmStarterTest, AChildOutlivesItsStarterAndIsWaitedFor) {
    startWarm();
    bool wasKilled = false;
    const ChildCommand command =
        commandOf({"-if", "sleep 1; print 'whole'", kSamples / "Harbour at dawn.jpg"});
    const auto outcome = starter_.run(command, [&](std::chrono::milliseconds) {
        if (!wasKilled) killHelper();
        return wasKilled = true;
    });
    ASSERT_TRUE(outcome);
    EXPECT_EQ(outcome->kind, ChildOutcome::Kind::Ended);
    EXPECT_THAT(readBytes(folder_ / "out"), HasSubstr("whole"));
}

TEST_F(WarmStarterTest, TheStarterEndsWithItsOwnerAndWhenThatIsKilled) {
    startWarm();
    const pid_t own = helper();
    starter_.Stop();
    EXPECT_FALSE(exists(own));

    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t owner = ::fork();
    if (owner == 0) {
        WarmStarter starter;
        starter.Start(kExifTool, kFolder, "en");
        const pid_t own = starter.isReadyWithin(30s) ? static_cast<pid_t>(starter.processId()) : 0;
        static_cast<void>(!::write(ends[1], &own, sizeof own));
        ::pause();
    }
    pid_t orphan = 0;
    ASSERT_EQ(::read(ends[0], &orphan, sizeof orphan), static_cast<ssize_t>(sizeof orphan));
    ASSERT_GT(orphan, 0);
    EXPECT_TRUE(exists(orphan));
    ::kill(owner, SIGKILL);
    ::waitpid(owner, nullptr, 0);
    EXPECT_TRUE(becomesTrue([&] { return !exists(orphan); }));
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(WarmStarterTest, ThreadsRunSideBySide) {
    startWarm();
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([this, number] {
            for (int i = 0; i < 10; ++i) {
                const std::string text = std::to_string(number) + "-" + std::to_string(i);
                ChildCommand command = commandOf({"-echo", text});
                command.output = ChildStream::truncate(folder_ / ("out" + std::to_string(number)));
                command.errors = ChildStream();
                EXPECT_TRUE(starter_.run(command, {}));
                EXPECT_THAT(readBytes(command.output.file), HasSubstr(text));
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
}

TEST_F(WarmStarterTest, KillingTheStarterAtAnyMomentLosesNothing) {
    app::AppContext context;
    context.exifToolPath = kExifTool;
    context.tempPath = folder_.path();
    context.cachePath = folder_ / "cache";
    context.reportFile = folder_ / "report";
    ToolRunner runner(context);
    runner.setWarmStarter(&starter_);
    const fs::path file = folder_ / "a.jpg";
    support::writeJpeg(file);
    std::mt19937 random(20240309);
    for (int round = 0; round < 6; ++round) {
        startWarm();
        std::atomic<bool> isOver = false;
        const int delay = std::uniform_int_distribution(0, 300)(random);
        std::thread killer([&] {
            const auto begin = std::chrono::steady_clock::now();
            while (!isOver && std::chrono::steady_clock::now() - begin < std::chrono::milliseconds(delay))
                std::this_thread::yield();
            const auto process = static_cast<pid_t>(starter_.processId());
            if (process > 0) ::kill(process, SIGKILL);
        });
        for (int i = 0; i < 6; ++i) {
            const std::string title = "title " + std::to_string(round) + "." + std::to_string(i);
            platform::CommandText arguments("-overwrite_original -XMP-dc:Title=\"");
            EXPECT_EQ(runner.RunOnFile(file, arguments.outside(title).literal("\"")).kind,
                      exiftool::OutcomeKind::Done);
            const fs::path output = folder_ / "read";
            EXPECT_EQ(
                runner.RunToolLine(panelReadCommand(context, app::commandFormOf(context), file, output)), 1);
            EXPECT_THAT(readBytes(output), HasSubstr(" Title: " + title + "\n"));
        }
        isOver = true;
        killer.join();
    }
    EXPECT_EQ(readBytes(folder_ / "report"), "");
    EXPECT_FALSE(fs::exists(folder_ / "a.jpg_exiftool_tmp"));
}

TEST_F(WarmStarterTest, TakesLittleMemory) {
    startWarm();
    EXPECT_EQ(warm({"-ver"}).outcome.number, 0);
    const auto kilobytes = [](const std::string& file, const std::string& key) {
        std::ifstream stream(file);
        int sum = 0;
        for (std::string line; std::getline(stream, line);) {
            if (line.starts_with(key)) sum += std::stoi(line.substr(line.find_first_of("0123456789")));
        }
        return sum;
    };
    const std::string process = "/proc/" + std::to_string(helper());
    EXPECT_LE(kilobytes(process + "/status", "VmRSS:"), 100 * 1024);
    std::string child;
    EXPECT_TRUE(becomesTrue([&] {
        std::ifstream children(process + "/task/" + std::to_string(helper()) + "/children");
        std::string another;
        return children >> child && !(children >> another);
    }));
    // What it shares with the helper counts for the helper, as far as neither has written to it since.
    EXPECT_LE(kilobytes("/proc/" + child + "/smaps_rollup", "Private_"), 4 * 1024);
}
