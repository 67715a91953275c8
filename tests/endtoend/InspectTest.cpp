#include "PictureFolder.h"
#include "platform/ChildProcess.h"
#include "platform/Text.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <sstream>

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

struct Report {
    int status = -1;
    std::string output;
    std::string errors;

    std::vector<std::string> lines() const {
        std::vector<std::string> all;
        std::istringstream stream(output);
        for (std::string line; std::getline(stream, line);) all.push_back(line);
        return all;
    }
    std::vector<QJsonObject> objects() const {
        std::vector<QJsonObject> all;
        for (const std::string& line : lines()) {
            const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(line));
            EXPECT_TRUE(document.isObject()) << line;
            all.push_back(document.object());
        }
        return all;
    }
};

class InspectTest : public endtoend::PictureFolder {
 protected:
    Report inspect(std::vector<std::string> arguments) {
        platform::ChildCommand command;
        command.program = TAGWRIGHT_INSPECT;
        command.arguments = std::move(arguments);
        command.output = platform::ChildStream::truncate(work_ / "output");
        command.errors = platform::ChildStream::truncate(work_ / "errors");
        const platform::ChildOutcome outcome = platform::runChild(
            command, [](std::chrono::milliseconds since) { return since < std::chrono::seconds(30); });
        EXPECT_EQ(outcome.kind, platform::ChildOutcome::Kind::Ended);
        return {outcome.number, support::readBytes(work_ / "output"), support::readBytes(work_ / "errors")};
    }
    std::string file(const std::string& name) { return (folder / name).string(); }
    std::string text(const std::string& name, std::string_view bytes) {
        support::writeBytes(folder / name, bytes);
        return file(name);
    }

 private:
    support::TemporaryFolder work_;
};

constexpr const char* kShowAll =
    "[Main]\nViewMode=1\n[MetadataList]\nShowComposite=1\nShowGps=1\nShowXmp=1\nShowMakerNotes=1\nShowIptc="
    "1\nShowIcc=1\n"
    "[ExifTool]\nIgnoreComposite=0\nIgnoreFILE=0\nCorrectedCommands=1\n";
constexpr const char* kSaved =
    "[IFD0] 0x010f Make: Maker of \"things\"\n[IFD0] 0x4746 Rating: 3\n[Composite] - ImageSize: 640x480\n"
    "[XMP-xmp] - Rating: 5\n[IFD0] 0xfedc NeverHeardOf: x\n";

}  // namespace

TEST_F(InspectTest, ASavedOutputGivesItsRowsThenCountsAndRatings) {
    const std::string saved = text("saved.txt", kSaved);
    const Report plain = inspect({"parse", saved});
    EXPECT_EQ(plain.status, 0);
    EXPECT_EQ(plain.errors, "");
    ASSERT_EQ(plain.lines().size(), 3u);
    EXPECT_THAT(plain.lines()[0],
                StartsWith("{\"file\":\"" + saved +
                           "\",\"groupId\":78,\"group\":\"IFD0\",\"itemIndex\":0,\"tagId\":"));
    EXPECT_THAT(plain.lines()[0],
                HasSubstr(",\"tag\":\"Make\",\"id\":\"010f\",\"value\":\"Maker of \\\"things\\\"\","
                          "\"image\":null}"));
    EXPECT_THAT(plain.lines()[1],
                HasSubstr("\"itemIndex\":1,\"tagId\":1142,\"tag\":\"Rating\",\"id\":\"4746\",\"value\":"
                          "\"\",\"image\":3}"));
    EXPECT_EQ(plain.lines()[2],
              "{\"file\":\"" + saved + "\",\"counts\":{\"IFD0\":2},\"ratings\":[[1142,3]]}");

    const Report all = inspect({"parse", "--settings", text("all.ini", kShowAll), saved});
    EXPECT_EQ(all.status, 0);
    ASSERT_EQ(all.lines().size(), 5u);
    EXPECT_EQ(
        all.lines()[4],
        "{\"file\":\"" + saved +
            "\",\"counts\":{\"Composite\":1,\"IFD0\":2,\"XMP-xmp\":1},\"ratings\":[[1142,3],[8849,5]]}");
    const Report unknown =
        inspect({"parse", "--settings",
                 text("unknown.ini", "[Main]\nViewMode=1\n[MetadataList]\nShowUnknown=1\n"), saved});
    EXPECT_EQ(unknown.lines().size(), 4u);
    EXPECT_THAT(unknown.output, HasSubstr("\"tagId\":-1,\"tag\":\"NeverHeardOf\""));
}

TEST_F(InspectTest, FilesAreReadAsThePanelReadsThem) {
    photo("a.jpg", {"-XMP-dc:Title=title", "-IFD0:Artist=artist"});
    const std::string settings = text("all.ini", kShowAll);
    const Report report = inspect({"rows", "--settings", settings, file("a.jpg")});
    EXPECT_EQ(report.status, 0) << report.errors;
    EXPECT_THAT(report.output,
                HasSubstr("\"tag\":\"Artist\",\"id\":\"013b\",\"value\":\"artist\",\"image\":null}"));
    EXPECT_THAT(report.output, HasSubstr("\"group\":\"XMP-dc\",\"itemIndex\":0,"));
    EXPECT_EQ(inspect({"rows", "--settings", settings, file("a.jpg")}).output, report.output) << "stable";
    const Report plain = inspect({"rows", file("a.jpg")});
    EXPECT_THAT(plain.output, HasSubstr("\"tag\":\"Artist\""));
    EXPECT_THAT(plain.output, testing::Not(HasSubstr("\"tag\":\"Title\"")))
        << "the built-in settings hide XMP";
}

TEST_F(InspectTest, AFileThatCannotBeReadIsNamedAndTheNextOneFollows) {
    photo("good.jpg", {"-IFD0:Artist=good"});
    photo("also.jpg", {"-IFD0:Artist=also"});
    ASSERT_EQ(mkfifo(file("pipe.jpg").c_str(), 0600), 0);
    fs::create_symlink("nowhere", folder / "broken.jpg");
    subfolder("folder.jpg");
    const std::string bad[] = {file("missing.jpg"), file("pipe.jpg"), file("broken.jpg"), file("folder.jpg"),
                               "/dev/zero"};
    for (const char* verb : {"rows", "parse"}) {
        std::vector<std::string> arguments{verb, file("good.jpg")};
        arguments.insert(arguments.end(), std::begin(bad), std::end(bad));
        arguments.push_back(file("also.jpg"));
        const Report report = inspect(arguments);
        EXPECT_EQ(report.status, 1) << verb;
        for (const std::string& name : bad) {
            EXPECT_THAT(report.errors, HasSubstr(name + ": ")) << verb;
            EXPECT_THAT(report.output, testing::Not(HasSubstr(name))) << verb;
        }
        EXPECT_THAT(report.output, HasSubstr(file("good.jpg"))) << verb;
        EXPECT_THAT(report.output, HasSubstr(file("also.jpg"))) << verb;
    }
}

TEST_F(InspectTest, HostileNamesAreReadAndEveryLineStaysJson) {
    photo("seed.jpg", {"-IFD0:Artist=seed"});
    std::vector<std::string> arguments{"rows"};
    for (const std::string& name : support::hostileNames()) {
        fs::copy_file(folder / "seed.jpg", folder / name);
        arguments.push_back(file(name));
    }
    const Report report = inspect(arguments);
    EXPECT_EQ(report.status, 0) << report.errors;
    QStringList named;
    for (const QJsonObject& line : report.objects())
        if (line["tag"].toString() == "Artist") named.append(line["file"].toString());
    ASSERT_EQ(static_cast<std::size_t>(named.size()), support::hostileNames().size());
    for (std::size_t at = 0; at < support::hostileNames().size(); ++at)
        EXPECT_EQ(named[static_cast<qsizetype>(at)], platform::display(folder / support::hostileNames()[at]));
}

TEST_F(InspectTest, ArgumentsWithoutSenseGetTheUsageAndBadSettingsAnError) {
    photo("a.jpg");
    const std::vector<std::string> senseless[] = {{},        {"nonsense"},           {"rows"},
                                                  {"parse"}, {"rows", "--settings"}, {"dictionary", "more"}};
    for (const auto& arguments : senseless) {
        const Report report = inspect(arguments);
        EXPECT_NE(report.status, 0);
        EXPECT_EQ(report.output, "");
        EXPECT_THAT(report.errors, HasSubstr("usage: tagwright-inspect"));
    }
    const Report report = inspect({"rows", "--settings", file("missing.ini"), file("a.jpg")});
    EXPECT_EQ(report.status, 1);
    EXPECT_THAT(report.errors, HasSubstr(file("missing.ini")));
}

TEST_F(InspectTest, TheDictionaryIsATableOfAllRows) {
    const Report report = inspect({"dictionary"});
    EXPECT_EQ(report.status, 0);
    const std::vector<std::string> lines = report.lines();
    ASSERT_EQ(lines.size(), 13742u);
    EXPECT_EQ(lines[0], "id\tname\ttableId\tgroup\tgroupIndex\tvalueKind\twritable\tcategoryId");
    for (const std::string& line : lines) ASSERT_EQ(std::count(line.begin(), line.end(), '\t'), 7) << line;
    EXPECT_THAT(report.output, HasSubstr("\n1142\tRating\t"));
    EXPECT_EQ(inspect({"dictionary"}).output, report.output);
}

TEST_F(InspectTest, TheCommandsAreATableOfAllNumbers) {
    const Report report = inspect({"commands"});
    EXPECT_EQ(report.status, 0);
    const std::vector<std::string> lines = report.lines();
    ASSERT_GT(lines.size(), 400u);
    EXPECT_EQ(lines[0], "id\tname\tneedsSelection\tbuilt");
    int before = 0;
    for (std::size_t at = 1; at < lines.size(); ++at) {
        ASSERT_EQ(std::count(lines[at].begin(), lines[at].end(), '\t'), 3) << lines[at];
        const int id = std::stoi(lines[at]);
        EXPECT_GT(id, before);
        before = id;
    }
    EXPECT_THAT(report.output, HasSubstr("\n8\tShowFolders\t0\t1\n"));
    EXPECT_THAT(report.output, HasSubstr("\n40012\tOpenFile\t1\t1\n"));
    EXPECT_THAT(report.output, HasSubstr("\n50031\tSortByWidth\t0\t0\n"));
}

TEST_F(InspectTest, TheCatalogueIsATableOfAllGroups) {
    const Report report = inspect({"catalogue"});
    EXPECT_EQ(report.status, 0);
    const std::vector<std::string> lines = report.lines();
    ASSERT_EQ(lines.size(), 331u);
    EXPECT_EQ(lines[0], "position\tgroupId\tkey\timage\tgate\tcounted");
    EXPECT_THAT(lines[1], StartsWith("0\t0\t[AC3]\t5\t"));
    for (std::size_t at = 1; at < lines.size(); ++at) {
        ASSERT_EQ(std::count(lines[at].begin(), lines[at].end(), '\t'), 5) << lines[at];
        EXPECT_THAT(lines[at], StartsWith(std::to_string(at - 1) + "\t"));
    }
    EXPECT_THAT(report.output, HasSubstr("\t[IFD0]\t0\tShowExif\t1\n"));
}
