#include "exiftool/LineParts.h"
#include "exiftool/WriteTag.h"
#include "support/RunHere.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"
#include "support/ToolStandIns.h"
#include "support/UnprivilegedUser.h"

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <bit>

// What a file system keeps with a file stays with it on every road by which a file is written, and a file
// that is not to be written is not. The judges are the file system and ExifTool.

namespace fs = std::filesystem;
using enum exiftool::OutcomeKind;
using support::readBytes;
using testing::HasSubstr;

namespace {

enum class Road { Arguments, Line, LineWithOwnCopy, Sessions, ProcessOfSessions, ListOfFiles, Property };

constexpr const char* kText = "written";
constexpr const char* kAccessList = "system.posix_acl_access";
constexpr const char* kDefaultList = "system.posix_acl_default";
/// Neither the superuser nor the user without rights.
constexpr std::uint32_t kSomebody = 4711;

/// Owner and that user may read and write, the group may read, others nothing; as the system stores it.
std::string accessList() {
    struct Entry {
        std::uint16_t tag;
        std::uint16_t rights;
        std::uint32_t user;
    };
    constexpr std::uint32_t kNobody = 0xFFFFFFFF;
    constexpr std::array<Entry, 5> kEntries{
        {{1, 6, kNobody}, {2, 6, kSomebody}, {4, 4, kNobody}, {16, 6, kNobody}, {32, 0, kNobody}}};
    static_assert(std::endian::native == std::endian::little);
    const std::uint32_t version = 2;
    std::string bytes(reinterpret_cast<const char*>(&version), sizeof version);
    return bytes.append(reinterpret_cast<const char*>(kEntries.data()), sizeof kEntries);
}

std::string attribute(const fs::path& file, const char* name) {
    std::array<char, 512> value{};
    const ssize_t size = ::getxattr(file.c_str(), name, value.data(), value.size());
    return size < 0 ? "none" : std::string(value.data(), static_cast<std::size_t>(size));
}

bool setAttribute(const fs::path& file, const char* name, const std::string& value) {
    return ::setxattr(file.c_str(), name, value.data(), value.size(), 0) == 0;
}

struct stat factsOf(const fs::path& file) {
    struct stat facts {};
    EXPECT_EQ(::lstat(file.c_str(), &facts), 0) << file;
    return facts;
}

std::string nameOf(const testing::TestParamInfo<Road>& road) {
    constexpr std::array kNames{"Arguments",         "Line",        "LineWithOwnCopy", "Sessions",
                                "ProcessOfSessions", "ListOfFiles", "Property"};
    return kNames.at(static_cast<std::size_t>(road.param));
}

class KeptWithFile : public testing::TestWithParam<Road> {
 protected:
    KeptWithFile() {
        for (const char* name : {"Temp", "photos", "cache", "behind"}) fs::create_directory(folder_ / name);
        context_.tempPath = folder_ / "Temp";
        context_.cachePath = folder_ / "cache";
        context_.reportFile = folder_ / "cache/report.txt";
        context_.exifToolPath = "/usr/bin/exiftool";
        context_.settings.exifTool.correctedCommands = true;
        runner_.safetyCopies().SafetyCopyEnabled = 0;
        support::writeJpeg(file_);
    }

    static platform::CommandText terms() {
        // What no line of a session carries goes to a process of its own.
        const bool isOwn = GetParam() == Road::ProcessOfSessions;
        platform::CommandText terms("-XMP-dc:Title=written");
        if (isOwn) terms.literal(" -XMP-dc:Source=\"").outside("costs\n$5").literal("\"");
        return GetParam() == Road::LineWithOwnCopy ? terms : terms.literal(" -overwrite_original");
    }

    /// A job over these files by the road.
    static jobs::Job job(std::vector<fs::path> files) {
        jobs::Job job{.files = std::move(files)};
        const auto line = [](const app::AppContext& context, app::CommandForm form, const fs::path& file) {
            return exiftool::lineOnFile(context, form, terms(), file);
        };
        job.workOnFile = [line](jobs::JobWork& work, const fs::path& file) -> exiftool::Outcome {
            if (GetParam() == Road::Arguments) return work.runner.RunOnFile(file, terms());
            if (GetParam() != Road::Property)
                return work.runner.runWriteLine(file, line(work.context, work.form, file));
            app::CurrentEdit edit;
            edit.groupIndex = 330;
            edit.id = kTitleProperty;
            edit.name = QStringLiteral("Title");
            edit.value = QString::fromLatin1(kText);
            return exiftool::WriteOneTag(work.context, work.form, work.runner, file, edit);
        };
        if (GetParam() == Road::Sessions || GetParam() == Road::ProcessOfSessions) job.lineOf = line;
        if (GetParam() == Road::ListOfFiles)
            job.workOnAll = [](jobs::JobWork& work, const std::vector<fs::path>& all) {
                const exiftool::FileList list = work.runner.WriteFileList(all);
                platform::CommandText command = exiftool::toolStart(work.context);
                command.append(terms()).literal(" -@ \"").outside(list.path.string()).literal("\"");
                return work.runner.runWriteLine(list.listed, command);
            };
        return job;
    }

    /// A second file makes a job for sessions.
    exiftool::Outcome write(const fs::path& file) {
        const fs::path other = folder_ / "photos/other.jpg";
        support::writeJpeg(other);
        const exiftool::Outcomes outcomes =
            support::runHere(job({file, other}), context_, runner_, support::Sessions::WhereTheyCan);
        EXPECT_EQ(outcomes.size(), 2U);
        EXPECT_EQ(titleOf(other), kText) << "the other file of the selection";
        return outcomes.empty() ? exiftool::Outcome() : outcomes.front();
    }

    /// Wherever the road has put it.
    static std::string titleOf(const fs::path& file) {
        const std::string held = support::ExifTool({"-s", "-a", "-EXIF:All", "-XMP:All", file.string()});
        return held.find(kText) == std::string::npos ? "" : kText;
    }

    void expectWritten(const fs::path& file) {
        const exiftool::Outcome outcome = write(file);
        EXPECT_EQ(outcome.kind, Done) << outcome.words;
        EXPECT_EQ(outcome.file, file);
        EXPECT_EQ(titleOf(file), kText);
    }

    static constexpr int kTitleProperty = 31;

    support::TemporaryFolder folder_;
    app::AppContext context_;
    exiftool::ToolRunner runner_{context_};
    fs::path file_ = folder_ / "photos/a.jpg";
};

}  // namespace

TEST_P(KeptWithFile, TheFileBehindASymbolicLinkIsWrittenAndTheLinkStays) {
    const fs::path photo = folder_ / "behind/photo.jpg";
    fs::rename(file_, photo);
    fs::create_symlink("../behind/photo.jpg", file_);
    expectWritten(file_);
    EXPECT_EQ(fs::read_symlink(file_), "../behind/photo.jpg");
    EXPECT_EQ(titleOf(photo), kText);
    EXPECT_FALSE(fs::exists(folder_ / "photos/a.jpg_original")) << "nothing of ExifTool's beside the link";
}

TEST_P(KeptWithFile, AllNamesOfAFileLeadToTheNewContents) {
    const fs::path second = folder_ / "behind/second.jpg";
    fs::create_hard_link(file_, second);
    const std::string before = readBytes(file_);
    const ino_t inode = factsOf(file_).st_ino;
    expectWritten(file_);
    EXPECT_EQ(factsOf(file_).st_ino, inode);
    EXPECT_EQ(factsOf(second).st_ino, inode);
    EXPECT_EQ(titleOf(second), kText);
    EXPECT_EQ(factsOf(file_).st_nlink, 2U) << "no further name stays behind";
    if (GetParam() == Road::LineWithOwnCopy) {
        EXPECT_EQ(readBytes(folder_ / "photos/a.jpg_original"), before)
            << "what ExifTool keeps is the old one";
    }
}

TEST_P(KeptWithFile, AttributesAndAccessListStay) {
    const std::string value("two words\0and a zero", 20);
    if (!setAttribute(file_, "user.origin", value)) GTEST_SKIP() << "no attributes on this file system";
    const bool hasLists = setAttribute(file_, kAccessList, accessList());
    const mode_t mode = factsOf(file_).st_mode;
    expectWritten(file_);
    EXPECT_EQ(attribute(file_, "user.origin"), value);
    if (hasLists) {
        EXPECT_EQ(attribute(file_, kAccessList), accessList());
    }
    EXPECT_EQ(factsOf(file_).st_mode, mode);
}

TEST_P(KeptWithFile, ANewFileGetsNoRightsFromItsFolderThatTheOldOneDidNotHave) {
    if (!setAttribute(folder_ / "photos", kDefaultList, accessList())) GTEST_SKIP() << "no access lists here";
    fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write);
    const mode_t mode = factsOf(file_).st_mode;
    ASSERT_EQ(attribute(file_, kAccessList), "none");
    expectWritten(file_);
    EXPECT_EQ(attribute(file_, kAccessList), "none");
    EXPECT_EQ(factsOf(file_).st_mode, mode);
}

TEST_P(KeptWithFile, AFileOfSomebodyElseStaysTheirs) {
    if (::geteuid() != 0) GTEST_SKIP() << "this user cannot make a file of somebody else";
    fs::permissions(file_, static_cast<fs::perms>(0666));
    { const support::UnprivilegedUser folderIsTheirs(folder_.path()); }
    ASSERT_EQ(::chown(file_.c_str(), kSomebody, kSomebody), 0);
    const support::UnprivilegedUser user;
    expectWritten(file_);
    EXPECT_EQ(factsOf(file_).st_uid, kSomebody);
    EXPECT_EQ(factsOf(file_).st_gid, kSomebody);
}

TEST_P(KeptWithFile, AFileThatIsMarkedReadOnlyIsRefusedAndSaysWhy) {
    const std::string before = readBytes(file_);
    for (const bool isBehindLink : {false, true}) {
        SCOPED_TRACE(isBehindLink);
        fs::path named = file_;
        fs::permissions(file_, fs::perms::owner_read);
        if (isBehindLink) fs::create_symlink(file_, named = folder_ / "behind/link.jpg");
        const support::UnprivilegedUser user(folder_.path());
        const exiftool::Outcome outcome = write(named);
        EXPECT_EQ(outcome.kind, Failed);
        EXPECT_THAT(outcome.words, HasSubstr("marked as read-only"));
        EXPECT_THAT(readBytes(context_.reportFile), HasSubstr(named.string()));
        EXPECT_EQ(readBytes(file_), before);
    }
}

INSTANTIATE_TEST_SUITE_P(Roads, KeptWithFile,
                         testing::Values(Road::Arguments, Road::Line, Road::LineWithOwnCopy, Road::Sessions,
                                         Road::ProcessOfSessions, Road::ListOfFiles, Road::Property),
                         nameOf);
