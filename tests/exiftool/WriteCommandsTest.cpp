#include "exiftool/WriteCommands.h"

#include "exiftool/StarterUnderTest.h"
#include "support/EditingContext.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "support/ToolStandIns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace exiftool;
using platform::CommandText;
using enum exiftool::OutcomeKind;
using support::ExifTool;
using support::kindsOf;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

namespace {

/// The real ExifTool on files of its own.
class WriteCommandsTest : public testing::Test {
 protected:
    void SetUp() override {
        runner_.setWarmStarter(starterUnderTest());
        context_ = support::editingContext(folder_.path());
        runner_.setSafetyCopyFailed([this](const fs::path&, const QString& message) {
            failures_.push_back(message.toStdString());
            return isWrittenWithoutCopy_;
        });
        fs::current_path(folder_ / "photos");
    }

    fs::path makePhoto(const std::string& name) {
        if (!fs::exists(master_)) {
            support::writeJpeg(master_);
            ExifTool({"-q", "-overwrite_original", "-EXIF:Artist=Somebody", "-XMP-dc:Title=A title",
                      "-IPTC:Keywords=word", "-GPSLatitude=48.5", "-GPSLatitudeRef=N", master_.string()});
        }
        const fs::path file = folder_ / "photos" / name;
        fs::copy_file(master_, file);
        return file;
    }

    fs::path copyOf(const fs::path& file) {
        return safetyCopyPath(file, context_.cachePath, SafetyCopies(), QDateTime());
    }

    static CommandText title(std::string_view value, std::string_view options = "-overwrite_original ") {
        CommandText arguments;
        return arguments.literal(options).literal("-XMP-dc:Title=\"").outside(value).literal("\"");
    }

    static std::string valueOf(const fs::path& file, const std::string& tag) {
        return ExifTool({"-s3", "-b", tag, file.string()});
    }

    std::string report() const {
        return fs::exists(context_.reportFile) ? readBytes(context_.reportFile) : "";
    }

    TemporaryFolder folder_;
    fs::path master_ = folder_ / "master.jpg";
    app::AppContext context_;
    ToolRunner runner_{context_};
    WriteCommands writes_{context_, runner_};
    std::vector<std::string> failures_;
    bool isWrittenWithoutCopy_ = true;
};

const std::string kHostileValues[] = {
    "plain",
    "x\" -if \"system('touch owned')\" \"",
    "a >owned 2>>owned",
    "$(touch owned) `touch owned` ; touch owned | touch owned &",
    "100% %PATH% %%d",
    "line\nfeed\n-XMP-dc:Creator=owned",
    "-execute",
    "<owned",
    "\xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x93\xB7 \xD7\xA9\xD7\x9C",
    "back\\slash \\\" end\\",
    "@owned",
};

}  // namespace

TEST_F(WriteCommandsTest, TheLineOfARunOnAFileStandsInItsBatchFileAndIsGoneAfterwards) {
    const fs::path script = folder_ / "tool";
    support::useTool(context_, script, "cat \"$4\" >\"$3\"; echo complaint >&2\n");
    const fs::path file = makePhoto("a.jpg");
    const fs::path seen = folder_ / "seen";
    CommandText arguments;
    arguments.outside(seen.string()).literal(" ").outside((context_.tempPath / "MetaData.bat").string());
    const Outcome outcome = runner_.RunOnFile(file, arguments);
    EXPECT_EQ(outcome, (Outcome{file, Failed, "complaint"})) << "it has not said that it wrote anything";
    CommandText expected("\"");
    expected.literal(script.native()).literal("\" -lang en ").append(arguments).literal(" \"");
    expected.literal(file.native()).literal("\" 2>>\"").literal(context_.reportFile.native()).literal("\"");
    EXPECT_EQ(readBytes(seen), expected.text());
    EXPECT_FALSE(fs::exists(context_.tempPath / "MetaData.bat"));
    EXPECT_EQ(runner_.RunOnFile(file, arguments), outcome) << "what was said before is not said again";
    EXPECT_EQ(report(), "complaint\ncomplaint\n") << "a report grows";
}

TEST_F(WriteCommandsTest, HostileValuesReachTheFileAsTheyAreAndNothingElse) {
    const fs::path file = makePhoto("a.jpg");
    for (const std::string& value : kHostileValues) {
        EXPECT_EQ(runner_.RunOnFile(file, title(value)), (Outcome{file, Done, {}}));
        EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), value);
        EXPECT_EQ(writes_.WriteSingleValue(file, 1, "XMP-dc:Description", CommandText().typed(value)),
                  (Outcome{file, Done, {}}));
        EXPECT_EQ(valueOf(file, "-XMP-dc:Description"), value);
    }
    EXPECT_EQ(valueOf(file, "-XMP-dc:Creator"), "");
    EXPECT_EQ(report(), "");
    EXPECT_FALSE(fs::exists(folder_ / "photos/owned"));
}

TEST_F(WriteCommandsTest, ValuesFromOutsideAreAsSafeInTheDesignedForms) {
    context_.settings.exifTool.correctedCommands = false;
    const fs::path file = makePhoto("a.jpg");
    for (const std::string& value : kHostileValues) {
        EXPECT_EQ(writes_.WriteSingleValue(file, 1, "XMP-dc:Title", CommandText().outside(value)).kind, Done);
        EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), value);
    }
    EXPECT_FALSE(fs::exists(folder_ / "photos/owned"));
}

TEST_F(WriteCommandsTest, HostileNamesAreWrittenAndCopied) {
    for (const std::string& name : support::hostileNames()) {
        const fs::path file = makePhoto(name);
        const std::string before = readBytes(file);
        EXPECT_EQ(runner_.RunOnFile(file, title("new")), (Outcome{file, Done, {}})) << name;
        EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "new") << name;
        EXPECT_EQ(readBytes(copyOf(file)), before) << name;
    }
    EXPECT_EQ(report(), "");
    EXPECT_THAT(failures_, IsEmpty());
    EXPECT_FALSE(fs::exists(folder_ / "photos/owned"));
}

TEST_F(WriteCommandsTest, TheSafetyCopyHoldsTheStateBeforeTheLastChange) {
    const fs::path file = makePhoto("a.jpg");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(runner_.RunOnFile(file, title("first")).kind, Done);
    const std::string afterFirst = readBytes(file);
    EXPECT_EQ(runner_.RunOnFile(file, title("second")).kind, Done);
    EXPECT_EQ(readBytes(copyOf(file)), afterFirst);
    EXPECT_EQ(fs::status(copyOf(file)).permissions(), fs::status(file).permissions());
    EXPECT_FALSE(isWritten(runner_.RunOnFile(file, CommandText("-XMP-dc:Title")).kind)) << "that is a read";
    EXPECT_EQ(valueOf(copyOf(file), "-XMP-dc:Title"), "second") << "also for a run that changes nothing";
    EXPECT_EQ(std::distance(fs::directory_iterator(copyOf(file).parent_path()), {}), 1);
}

TEST_F(WriteCommandsTest, SwitchedOffThereIsNoSafetyCopy) {
    const fs::path file = makePhoto("a.jpg");
    runner_.safetyCopies().SafetyCopyEnabled = 0;
    EXPECT_EQ(runner_.RunOnFile(file, title("new")).kind, Done);
    EXPECT_THAT(runner_.WriteFileList({file}).listed, ElementsAre(file));
    EXPECT_FALSE(fs::exists(context_.cachePath / "sav"));
}

TEST_F(WriteCommandsTest, SafetyCopiesOfAPrivateFolderAreAsPrivateAsIt) {
    const auto modeOf = [](const fs::path& path) {
        return static_cast<unsigned>(fs::status(path).permissions() & fs::perms::mask);
    };
    const fs::path photos = folder_ / "photos";
    const fs::path file = makePhoto("a.jpg");
    const fs::path together = folder_ / "together";
    fs::permissions(file, static_cast<fs::perms>(0644));
    fs::permissions(photos, fs::perms::owner_all);
    exiftool::SafetyCopies flat;
    flat.SafetyCopyFolderMode = 2;
    flat.SafetyCopyFolder = together;

    ASSERT_EQ(MakeSafetyCopy(file, context_.cachePath, {}), QString());
    EXPECT_EQ(modeOf(copyOf(file).parent_path()), 0700u);
    EXPECT_EQ(modeOf(copyOf(file)), 0644u);
    ASSERT_EQ(MakeSafetyCopy(file, context_.cachePath, flat), QString());
    EXPECT_EQ(modeOf(folder_ / "togethera-sav.jpg"), 0600u) << "no folder keeps others out there";

    fs::permissions(photos, static_cast<fs::perms>(0755));
    fs::permissions(folder_.path(), static_cast<fs::perms>(0755));
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    ASSERT_EQ(MakeSafetyCopy(file, context_.cachePath, flat), QString());
    EXPECT_EQ(modeOf(folder_ / "togethera-sav.jpg"), 0600u);
    EXPECT_EQ(modeOf(copyOf(file).parent_path()), 0700u) << "was made private and stays so";
}

TEST_F(WriteCommandsTest, AFailedSafetyCopyIsToldAndTheWriteGoesOn) {
    const fs::path file = makePhoto("a.jpg");
    writeBytes(context_.cachePath / "sav", "a file in the folder's place");
    const Outcome outcome = runner_.RunOnFile(file, title("new"));
    EXPECT_EQ(outcome.kind, Warned);
    EXPECT_THAT(outcome.words,
                HasSubstr("CopyFile failed with error 20: Not a directory - " + file.string()));
    EXPECT_THAT(failures_, ElementsAre("CopyFile failed with error 20: Not a directory"));
    EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "new");
}

TEST_F(WriteCommandsTest, WhoDoesNotWantAFileWrittenWithoutACopyHasItAsItWas) {
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    writeBytes(context_.cachePath / "sav", "a file in the folder's place");
    isWrittenWithoutCopy_ = false;
    const Outcome outcome = runner_.RunOnFile(file, title("new"));
    EXPECT_EQ(outcome.kind, Failed);
    EXPECT_THAT(outcome.words, HasSubstr("no safety copy"));
    EXPECT_EQ(readBytes(file), before);
    const FileList list = runner_.WriteFileList({file});
    EXPECT_THAT(list.listed, IsEmpty());
    EXPECT_THAT(kindsOf(list.refused), ElementsAre(Failed));
}

TEST_F(WriteCommandsTest, TheLongestNamesHaveSafetyCopiesOfTheirOwn) {
    const fs::path photo = makePhoto("a.jpg");
    // The second letter of the last pair is cut where the first is.
    const std::string start(120, 'n');
    std::vector<fs::path> files;
    for (const char* end : {"one", "two"}) {
        std::string name = start;
        while (name.size() + 4 + 3 + 2 <= 255) name += "\xC3\xBC";
        name += end;
        name.resize(251, '-');
        files.push_back(folder_ / "photos" / (name + ".jpg"));
        fs::copy_file(photo, files.back());
    }
    writeBytes(files.back(), "another file");
    for (const fs::path& file : files) {
        EXPECT_EQ(MakeSafetyCopy(file, context_.cachePath, SafetyCopies()), QString());
        EXPECT_EQ(readBytes(copyOf(file)), readBytes(file));
        EXPECT_THAT(copyOf(file).filename().string(), StartsWith(start));
        EXPECT_TRUE(QString::fromStdString(copyOf(file).filename().string()).toStdString() ==
                    copyOf(file).filename().string())
            << "no letter is cut in two";
        EXPECT_EQ(copyOf(file).extension(), ".jpg");
    }
    EXPECT_NE(copyOf(files[0]), copyOf(files[1]));
}

TEST_F(WriteCommandsTest, TextsLongerThanTheSystemTakesAreWrittenWhole) {
    const std::string tail = " price $5 to ada@example.org \\ \"quoted\" 100% \xC3\xBC";
    const struct {
        const char* what;
        std::string text;
    } cases[] = {
        {"of one line", std::string(200'000, 'x') + tail},
        {"of several lines, with what no argument line carries",
         std::string(200'000, 'y') + "\n" + tail + "\nend"},
        {"of several lines", "first\n" + std::string(140'000, 'z')},
    };
    for (const auto& [what, text] : cases) {
        const fs::path file = makePhoto("long.jpg");
        platform::CommandText arguments("-overwrite_original -XMP-dc:Title=\"");
        arguments.outside(text).literal("\"");
        const Outcome outcome = runner_.RunOnFile(file, arguments);
        EXPECT_EQ(outcome.kind, Done) << what << ": " << outcome.words;
        EXPECT_TRUE(support::ExifTool({"-b", "-XMP-dc:Title", file.string()}) == text) << what;
        fs::remove(file);
    }
    // Each fits, but not all of them.
    const fs::path file = makePhoto("many.jpg");
    platform::CommandText many("-overwrite_original");
    for (int i = 0; i < 40; ++i)
        many.literal(" -XMP-dc:Subject=\"")
            .outside(std::to_string(i) + std::string(100'000, 'w'))
            .literal("\"");
    EXPECT_EQ(runner_.RunOnFile(file, many).kind, Done);
    EXPECT_EQ(support::ExifTool({"-b", "-XMP-dc:Subject", file.string()}).size(), 40U * 100'001 + 30 + 39);
    for (const auto& entry : fs::directory_iterator(context_.tempPath))
        EXPECT_THAT(entry.path().filename().string(), Not(StartsWith("Argument-")));
}

TEST_F(WriteCommandsTest, AFailedCopyLeavesTheEarlierOneWhole) {
    const fs::path file = makePhoto("a.jpg");
    ASSERT_EQ(MakeSafetyCopy(file, context_.cachePath, {}), QString());
    const std::string copied = readBytes(copyOf(file));
    fs::remove(file);
    EXPECT_THAT(MakeSafetyCopy(file, context_.cachePath, {}).toStdString(),
                HasSubstr("CopyFile failed with error 2: "));
    ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
    EXPECT_THAT(MakeSafetyCopy(file, context_.cachePath, {}).toStdString(), HasSubstr("error 22"));
    EXPECT_EQ(readBytes(copyOf(file)), copied);
    EXPECT_EQ(std::distance(fs::directory_iterator(copyOf(file).parent_path()), {}), 1);
}

TEST_F(WriteCommandsTest, FilesAreCopiedToTheByteWhateverTheirSize) {
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{5'000'001}}) {
        std::string bytes(size, 'x');
        for (std::size_t i = 0; i < size; i += 997) bytes[i] = static_cast<char>(i);
        const fs::path file = folder_ / "photos/any.raw";
        writeBytes(file, bytes);
        fs::last_write_time(file, fs::file_time_type(std::chrono::seconds(1000)));
        EXPECT_EQ(MakeSafetyCopy(file, context_.cachePath, {}), QString());
        EXPECT_EQ(readBytes(copyOf(file)), bytes);
        EXPECT_EQ(fs::last_write_time(copyOf(file)), fs::last_write_time(file));
    }
}

TEST_F(WriteCommandsTest, FamiliesAreRemovedAndAFileThatCannotBeWrittenIsInTheReport) {
    const fs::path good = makePhoto("good.jpg");
    const fs::path locked = makePhoto("locked.jpg");
    const std::string before = readBytes(locked);
    // Bars writes also for those whom permissions do not.
    fs::create_directory(folder_ / "photos/locked.jpg_exiftool_tmp");
    const fs::path last = makePhoto("last.jpg");
    const Outcomes outcomes =
        writes_.RemoveFamilyFromSelection(app::CommandForm::Designed, 10067, {good, locked, last});
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Done, Failed, Done));
    EXPECT_THAT(outcomes[1].words, HasSubstr("locked.jpg"));
    EXPECT_THAT(report(), HasSubstr("locked.jpg"));
    EXPECT_EQ(readBytes(locked), before);
    for (const fs::path& file : {good, last}) {
        EXPECT_EQ(valueOf(file, "-IPTC:All"), "");
        EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "A title");
        EXPECT_EQ(readBytes(file.string() + "_original"), before)
            << "removal leaves the original beside the file";
    }
}

TEST_F(WriteCommandsTest, EachRemovalTakesItsOwnFamily) {
    const char* const tags[] = {"-EXIF:Artist", "-IPTC:Keywords", "-XMP:Title", "-GPSLatitudeRef"};
    struct {
        int commandId;
        std::vector<bool> left;
    } const cases[] = {
        {10066, {false, true, true, false}},   {10067, {true, false, true, true}},
        {10068, {true, true, false, true}},    {10071, {true, true, true, false}},
        {10072, {false, false, false, false}}, {10044, {false, false, false, false}},
        {1, {true, true, true, true}},
    };
    for (const auto& row : cases) {
        const fs::path file = makePhoto("family" + std::to_string(row.commandId) + ".jpg");
        const Outcomes outcomes =
            writes_.RemoveFamilyFromSelection(app::CommandForm::Designed, row.commandId, {file});
        EXPECT_EQ(isEveryFileDone(outcomes), row.commandId != 1) << row.commandId;
        for (std::size_t i = 0; i < row.left.size(); ++i)
            EXPECT_EQ(!valueOf(file, tags[i]).empty(), row.left[i]) << row.commandId << tags[i];
    }
}

TEST_F(WriteCommandsTest, SingleValuesAreWrittenEmptiedAndEscaped) {
    const fs::path file = makePhoto("a.jpg");
    EXPECT_EQ(writes_.WriteSingleValue(file, 853, "IPTC:CodedCharacterSet", CommandText().typed("% G")).kind,
              Done);
    EXPECT_EQ(valueOf(file, "-IPTC:CodedCharacterSet"), "\x1B%G");
    EXPECT_EQ(writes_.WriteSingleValue(file, 1, "XMP-dc:Title", {}).kind, Done);
    EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "");
    EXPECT_EQ(writes_.WriteSingleValue(file, 1, "XMP-dc:Title", {}).kind, Unchanged) << "it is gone already";
    EXPECT_EQ(writes_.WriteSingleValue({}, 1, "XMP-dc:Title", {}).kind, NotStarted);
    EXPECT_EQ(runner_.RunOnFile({}, title("x")).kind, NotStarted);
}

TEST_F(WriteCommandsTest, AListOfFilesRefusesNamesThatCannotStandInIt) {
    std::vector<fs::path> files;
    for (const std::string& name : support::hostileNames()) files.push_back(makePhoto(name));
    files.emplace_back("relative.jpg");
    files.emplace_back(folder_ / "photos/return.jpg\r");
    makePhoto("relative.jpg");
    const FileList list = runner_.WriteFileList(files);
    EXPECT_EQ(list.path, context_.tempPath / "files.tmp");
    EXPECT_EQ(list.listed.size(), files.size() - 2);
    EXPECT_THAT(kindsOf(list.refused), ElementsAre(Failed, Failed));
    EXPECT_EQ(list.refused[0].file, folder_ / "photos/line\nfeed.jpg");
    EXPECT_EQ(list.refused[1].file, folder_ / "photos/return.jpg\r");
    EXPECT_THAT(report(), HasSubstr("photos/line?feed.jpg\n"));
    EXPECT_THAT(report(), HasSubstr("photos/return.jpg?\n"));
    EXPECT_TRUE(fs::exists(copyOf(folder_ / "photos/relative.jpg")));

    ExifTool({"-q", "-overwrite_original", "-XMP-dc:Title=listed", "-@", list.path.string()});
    for (const fs::path& file : files) {
        if (!fs::exists(file)) continue;
        const bool isRefused = file.native().find('\n') != std::string::npos;
        EXPECT_EQ(valueOf(fs::absolute(file), "-XMP-dc:Title"), isRefused ? "A title" : "listed") << file;
    }
}

TEST_F(WriteCommandsTest, AnEmptyListWritesNothing) {
    EXPECT_TRUE(runner_.WriteFileList({}).path.empty());
    EXPECT_TRUE(fs::is_empty(context_.tempPath));
    context_.tempPath = folder_ / "no";
    EXPECT_TRUE(runner_.WriteFileList({makePhoto("a.jpg")}).path.empty());
}

TEST_F(WriteCommandsTest, AStoppedWriteLeavesTheFileWholeAndTheNextOneWorks) {
    const fs::path file = makePhoto("a.jpg");
    const std::string before = readBytes(file);
    support::useTool(context_, folder_ / "tool",
                     "for last; do :; done\necho half >\"${last}_exiftool_tmp\"\nexec sleep 100\n");
    const fs::path leftover = folder_ / "photos/a.jpg_exiftool_tmp";
    runner_.setKeepWaiting([&](std::chrono::milliseconds) { return !fs::exists(leftover); });
    EXPECT_EQ(runner_.RunOnFile(file, {}).kind, Stopped);
    EXPECT_TRUE(runner_.wasStopped());
    EXPECT_FALSE(fs::exists(leftover));
    EXPECT_EQ(readBytes(file), before);
    runner_.setKeepWaiting({});
    context_.exifToolPath = "/usr/bin/exiftool";
    EXPECT_EQ(runner_.RunOnFile(file, title("new")).kind, Done);
    EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "new");
}

TEST_F(WriteCommandsTest, NoWriteTellsASuccessThatIsNone) {
    const std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg")};
    const fs::path source = folder_ / "source.jpg";
    fs::copy_file(files[0], source);
    const auto lineFor = [this](std::string_view options) {
        CommandText line = toolStart(context_).literal(options).literal("-XMP-dc:Title=x");
        for (const char* name : {"a.jpg", "b.jpg"})
            line.literal(" \"").outside((folder_ / "photos" / name).string()).literal("\"");
        return line;
    };
    const std::vector<support::NamedWork> works = {
        {"on a file", [&] { return Outcomes{runner_.RunOnFile(files[0], title("new"))}; }},
        {"a line over several", [&] { return runner_.runWriteLine(files, lineFor("")); }},
        {"a quiet line over several", [&] { return runner_.runWriteLine(files, lineFor("-q ")); }, Unchanged},
        {"a single value",
         [&] { return Outcomes{writes_.WriteSingleValue(files[0], 1, "XMP-dc:Title", CommandText("x"))}; }},
    };
    support::expectTruthOfStandIns(context_, runner_, folder_.path(), folder_ / "photos", works);
}

TEST_F(WriteCommandsTest, AfterAStopNoFurtherFileIsBegun) {
    const std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg"), makePhoto("c.jpg")};
    const std::string before = readBytes(files[0]);
    support::useTool(context_, folder_ / "tool", "exec sleep 100\n");
    runner_.setKeepWaiting([](std::chrono::milliseconds) { return false; });
    const Outcomes outcomes = writes_.RemoveFamilyFromSelection(app::CommandForm::Designed, 10067, files);
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Stopped, NotBegun, NotBegun));
    for (const fs::path& file : files) EXPECT_EQ(readBytes(file), before);
}

TEST_F(WriteCommandsTest, AComplaintBesideAWriteIsAWarningAndNothingToDoIsUnchanged) {
    const fs::path file = makePhoto("a.jpg");
    const Outcome partly =
        runner_.RunOnFile(file, title("new").append(CommandText(" -ExifIFD:ExposureTime=abc")));
    EXPECT_EQ(partly.kind, Warned);
    EXPECT_THAT(partly.words, HasSubstr("ExposureTime"));
    EXPECT_EQ(valueOf(file, "-XMP-dc:Title"), "new");
    const std::string written = readBytes(file);
    const Outcome none = runner_.RunOnFile(file, CommandText("-overwrite_original -XMP-dc:Source="));
    EXPECT_EQ(none.kind, Unchanged);
    EXPECT_EQ(readBytes(file), written);
}

TEST_F(WriteCommandsTest, OfALineOverSeveralFilesEachHasItsOwnOutcome) {
    const fs::path good = makePhoto("good.jpg");
    const fs::path broken = folder_ / "photos/broken.jpg";
    writeBytes(broken, "no picture");
    const fs::path last = makePhoto("last.jpg");
    CommandText line = toolStart(context_).literal("-overwrite_original -XMP-dc:Title=x");
    for (const fs::path& file : {good, broken, last})
        line.literal(" \"").outside(file.string()).literal("\"");
    const Outcomes outcomes = runner_.runWriteLine({good, broken, last}, line);
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Done, Failed, Done)) << outcomes[0].words;
    EXPECT_THAT(outcomes[1].words, HasSubstr("broken.jpg"));
    EXPECT_EQ(valueOf(good, "-XMP-dc:Title"), "x");
    EXPECT_EQ(valueOf(last, "-XMP-dc:Title"), "x");
}

TEST_F(WriteCommandsTest, OfALineOverSeveralFilesThatIsCutTheFilesSayHowFarItCame) {
    const std::vector<fs::path> files = {makePhoto("a.jpg"), makePhoto("b.jpg"), makePhoto("c.jpg")};
    support::useTool(context_, folder_ / "tool",
                     "echo more >>\"" + files[0].string() + "\"\nkill -KILL $$\n");
    const Outcomes outcomes = runner_.runWriteLine(files, toolStart(context_).literal("-XMP-dc:Title=x"));
    EXPECT_THAT(kindsOf(outcomes), ElementsAre(Warned, Killed, NotBegun));
    for (const Outcome& outcome : outcomes) EXPECT_THAT(outcome.words, HasSubstr("signal 9"));
}

TEST_F(WriteCommandsTest, OtherProgramsRunWithoutABatchFile) {
    const fs::path script = folder_ / "convert";
    writeBytes(script, "#!/bin/sh\nprintf '%s' \"$1\" >\"$2\"\n");
    fs::permissions(script, fs::perms::owner_all);
    context_.imageMagickPath = script;
    CommandText command("\"");
    command.outside(script.string()).literal("\" \"two words\" \"").outside((folder_ / "seen").string());
    EXPECT_EQ(runner_.RunProgram(command.literal("\"")), 1);
    EXPECT_EQ(readBytes(folder_ / "seen"), "two words");
    EXPECT_TRUE(fs::is_empty(context_.tempPath));
    EXPECT_EQ(runner_.RunProgram(CommandText("\"/usr/bin/exiftool\" -ver")), 0) << "has its own roads";
    EXPECT_EQ(runner_.RunHidden(CommandText("\"/usr/bin/exiftool\" -ver")), 1);
}
