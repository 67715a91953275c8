#include "DrivenProgram.h"
#include "PictureFolder.h"
#include "support/UnprivilegedUser.h"

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <set>

using endtoend::DrivenProgram;
namespace fs = std::filesystem;

namespace {

class BadFilesTest : public endtoend::PictureFolder {};

/// The names in a folder that anybody has opened since the object was made.
class OpenedNames {
 public:
    explicit OpenedNames(const fs::path& folder) : events_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        EXPECT_GE(inotify_add_watch(events_, folder.c_str(), IN_OPEN), 0);
    }
    ~OpenedNames() { close(events_); }
    OpenedNames(const OpenedNames&) = delete;
    OpenedNames& operator=(const OpenedNames&) = delete;

    std::set<std::string> take() {
        std::set<std::string> names;
        alignas(inotify_event) char block[16384];
        for (ssize_t got = 0; (got = read(events_, block, sizeof block)) > 0;)
            for (ssize_t at = 0; at < got;) {
                const auto* event = reinterpret_cast<const inotify_event*>(block + at);
                if (event->len > 0) names.insert(event->name);
                at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            }
        return names;
    }

 private:
    int events_;
};

}  // namespace

TEST_F(BadFilesTest, WhatIsNoFileIsListedAndNeverOpened) {
    photo("a.jpg", {"-XMP-dc:Title=of a"});
    ASSERT_EQ(mkfifo((folder / "pipe.jpg").c_str(), 0600), 0);
    fs::create_symlink("nowhere", folder / "broken.jpg");
    fs::create_symlink("loop.jpg", folder / "loop.jpg");
    fs::create_symlink("/dev/zero", folder / "device.jpg");
    fs::create_symlink("/dev/tty", folder / "terminal.jpg");
    OpenedNames opened(folder.path());
    DrivenProgram program;
    program.tell("open", {path()});
    EXPECT_EQ(program.fileNames(),
              QStringList({"a.jpg", "broken.jpg", "device.jpg", "loop.jpg", "pipe.jpg", "terminal.jpg"}));
    for (const char* name : {"broken.jpg", "device.jpg", "loop.jpg", "pipe.jpg", "terminal.jpg"}) {
        program.tell("click", {"a.jpg"});
        EXPECT_EQ(program.value("XMP-dc", "Title"), "of a");
        program.tell("click", {name});
        EXPECT_TRUE(program.rows().isEmpty()) << name;
        EXPECT_EQ(program.status(), "Ready") << name;
    }
    EXPECT_EQ(program.quit(), 0);
    EXPECT_EQ(opened.take(), std::set<std::string>({"a.jpg"}));
}

TEST_F(BadFilesTest, AFolderThatVanishesWhileItIsShownIsTold) {
    subfolder("sub");
    photo("sub/a.jpg");
    DrivenProgram program;
    program.tell("open", {path("sub")});
    EXPECT_EQ(program.fileNames().size(), 1);
    fs::remove_all(folder / "sub");
    EXPECT_TRUE(endtoend::waitFor([&] { return program.fileNames().isEmpty(); }));
    program.tell("command", {"248"});
    EXPECT_TRUE(program.fileNames().isEmpty());
    program.tell("key", {"Backspace"});
    EXPECT_EQ(program.folder(), path());
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BadFilesTest, AFileThatIsGoneWhenItIsClickedShowsNothing) {
    photo("a.jpg", {"-XMP-dc:Title=of a"});
    photo("gone.jpg");
    DrivenProgram program;
    program.tell("open", {path()});
    program.tell("click", {"a.jpg"});
    fs::remove(folder / "gone.jpg");
    program.tell("click", {"gone.jpg"});
    EXPECT_TRUE(program.rows().isEmpty());
    EXPECT_EQ(program.status(), "Ready");
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BadFilesTest, NamesOfTheGreatestLengthAreReadAndLeft) {
    const std::string longFile = std::string(251, 'n') + ".jpg";
    const std::string longFolder(255, 'f');
    photo("seed.jpg", {"-XMP-dc:Title=long"});
    fs::rename(folder / "seed.jpg", folder / longFile);
    subfolder(longFolder + "/" + longFolder);
    fs::copy_file(folder / longFile, folder / longFolder / longFolder / longFile);
    DrivenProgram program;
    for (const std::string& where : {std::string(), longFolder + "/" + longFolder}) {
        program.tell("open", {path(where)});
        program.tell("click", {QString::fromStdString(longFile)});
        EXPECT_EQ(program.value("XMP-dc", "Title"), "long") << where.size();
        EXPECT_EQ(program.status(), "Ready");
    }
    program.tell("key", {"Backspace"});
    EXPECT_EQ(program.selectedFiles(), QStringList(QString::fromStdString(longFolder)));
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BadFilesTest, AFolderThatMayNotBeReadIsTold) {
    if (!support::UnprivilegedUser::mayRun(TAGWRIGHT_DRIVE)) GTEST_SKIP() << "the program is root's alone";
    subfolder("closed");
    fs::permissions(folder / "closed", fs::perms::none);
    DrivenProgram program({.unprivilegedIn = folder.path()});
    program.tell("open", {path()});
    program.tell("doubleclick", {"closed"});
    EXPECT_TRUE(program.fileNames().isEmpty());
    program.tell("key", {"Backspace"});
    EXPECT_EQ(program.folder(), path());
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BadFilesTest, FilesThatAreNoPicturesAreReadAsFarAsTheyGo) {
    support::writeBytes(folder / "empty.jpg", "");
    support::writeBytes(folder / "garbage.jpg", std::string(5000, '\xff'));
    photo("cut.jpg", {"-XMP-dc:Title=cut"});
    fs::resize_file(folder / "cut.jpg", fs::file_size(folder / "cut.jpg") / 2);
    DrivenProgram program;
    program.tell("open", {path()});
    for (const QString& name : program.fileNames()) {
        program.tell("click", {name});
        EXPECT_EQ(program.status(), "Ready") << name.toStdString();
    }
    EXPECT_EQ(program.quit(), 0);
}

TEST_F(BadFilesTest, FiveThousandFilesOfOneBaseNameAreListed) {
    for (int at = 0; at < 5000; ++at) support::writeBytes(folder / ("photo." + std::to_string(at)), "x");
    DrivenProgram program;
    program.tell("open", {path()});
    const QStringList names = program.fileNames();
    ASSERT_EQ(names.size(), 5000);
    EXPECT_EQ(names[2], "photo.2");
    EXPECT_EQ(names[4999], "photo.4999");
    program.tell("click", {"photo.4321"});
    EXPECT_EQ(program.status(), "Ready");
    EXPECT_EQ(program.quit(), 0);
}
