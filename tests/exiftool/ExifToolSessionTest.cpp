#include "exiftool/ExifToolSession.h"

#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <optional>

using exiftool::ExifToolSession;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;
using testing::HasSubstr;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

class ExifToolSessionTest : public testing::Test {
 protected:
    std::filesystem::path photo(const std::string& name = "a.jpg") {
        auto file = folder_ / name;
        support::writeJpeg(file);
        support::ExifTool(
            {"-q", "-overwrite_original", "-XMP-plus:CopyrightStatus=Protected", file.string()});
        return file;
    }

    std::filesystem::path argumentFile() {
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
            if (entry.path().filename().string().starts_with("EXM") && entry.path().extension() == ".tmp")
                return entry.path();
        return {};
    }

    /// ExifTool needs a moment to load; an early answer is late by design.
    std::string queryUntilAnswered(const std::filesystem::path& file, std::string_view tag) {
        for (int i = 0; i < 20; ++i)
            if (std::string answer = session_.QueryTag(file, tag); !answer.empty()) return answer;
        return {};
    }

    std::filesystem::path writeTool(const std::string& script) {
        writeBytes(folder_ / "tool", std::string("#!/bin/sh\n").append(script));
        std::filesystem::permissions(folder_ / "tool", std::filesystem::perms::owner_all);
        return folder_ / "tool";
    }

    TemporaryFolder folder_;
    ExifToolSession session_;
};

}  // namespace

TEST_F(ExifToolSessionTest, AsksForOneTag) {
    const auto file = photo("with \"quotes\" $(x) \xE9.jpg");
    ASSERT_EQ(session_.StartExifToolSession(folder_.path(), "/usr/bin/exiftool"), ExifToolSession::kStarted);
    // Asked again while the tool loads, it answers each time.
    EXPECT_THAT(queryUntilAnswered(file, "Xmp-Plus:CopyrightStatus"),
                testing::MatchesRegex("(CopyrightStatus: Protected\n)+"));
    const auto asked = Clock::now();
    EXPECT_THAT(session_.QueryTag(file, "Xmp-Plus:ImageSupplier"), testing::Not(HasSubstr("Supplier")))
        << "a tag that the file lacks";
    EXPECT_GE(Clock::now() - asked, 450ms);
    EXPECT_THAT(readBytes(argumentFile()),
                testing::EndsWith("-q\n-S\n-Xmp-Plus:ImageSupplier\n" + file.string() + "\n-execute\n"));
}

TEST_F(ExifToolSessionTest, NothingIsAskedWithoutATagOrWithANameThatCannotStandOnALine) {
    ASSERT_EQ(session_.StartExifToolSession(folder_.path(), "/usr/bin/exiftool"), 1);
    EXPECT_EQ(session_.QueryTag("/a.jpg", ""), "");
    EXPECT_EQ(session_.QueryTag("", "Artist"), "");
    EXPECT_EQ(session_.QueryTag("/a\n-o\n/owned.jpg", "Artist"), "");
    EXPECT_EQ(session_.QueryTag("/a.jpg\r", "Artist"), "");
    EXPECT_EQ(session_.QueryTag("/a.jpg", "Artist\n-all="), "");
    EXPECT_FALSE(session_.SendPerFileCommand("-Artist=x\n", "/a\nb.jpg").wasSent);
    EXPECT_FALSE(session_.requestThumbnail("-PreviewImage", "/a\nb.jpg", "/out"));
    EXPECT_EQ(readBytes(argumentFile()), "");
}

TEST_F(ExifToolSessionTest, WritesAFile) {
    const auto file = photo();
    ASSERT_EQ(session_.StartExifToolSession(folder_.path(), "/usr/bin/exiftool"), 1);
    ASSERT_NE(queryUntilAnswered(file, "Xmp-Plus:CopyrightStatus"), "");
    std::string answer;
    for (int i = 0; i < 20 && answer.find("updated") == std::string::npos; ++i) {
        const auto sent =
            session_.SendPerFileCommand("-XMP-plus:ImageSupplierID=me\n-overwrite_original_in_place\n", file);
        EXPECT_TRUE(sent.wasSent);
        EXPECT_EQ(sent.wasAnswered, !sent.answer.empty());
        answer += sent.answer;
    }
    EXPECT_THAT(answer, HasSubstr("1 image files updated"));
    EXPECT_EQ(support::ExifTool({"-s3", "-ImageSupplierID", file.string()}), "me\n");
}

TEST_F(ExifToolSessionTest, AThumbnailRequestIsWrittenLineByLineAndMakesNoFile) {
    const auto file = photo();
    const auto target = folder_ / "thumb.jpg";
    ASSERT_EQ(session_.StartExifToolSession(folder_.path(), "/usr/bin/exiftool"), 1);
    EXPECT_TRUE(session_.requestThumbnail("-PreviewImage", file, target));
    EXPECT_EQ(readBytes(argumentFile()), "\"/usr/bin/exiftool\"\n-m\n-m\n-PreviewImage\n-b\n\"" +
                                             file.string() + "\"\n>\"" + target.string() + "\"\n-execute\n");
    EXPECT_EQ(queryUntilAnswered(file, "Artist").find("CopyrightStatus"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(ExifToolSessionTest, ALateAnswerStandsInFrontOfALaterRequest) {
    const auto signal = folder_ / "go";
    const auto tool = writeTool("while [ ! -e '" + signal.string() +
                                "' ]; do sleep 0.02; done; printf late; exec sleep 100");
    // A start is just a start: it comes back before the tool has said anything.
    ASSERT_EQ(session_.StartExifToolSession(folder_.path(), tool), 1);
    EXPECT_EQ(session_.QueryTag("/a.jpg", "Artist"), "");
    writeBytes(signal, "");
    EXPECT_EQ(queryUntilAnswered("/b.jpg", "Model"), "late");
}

TEST_F(ExifToolSessionTest, AnAnswerIsCutAtItsZeroByteAndAFloodDoesNotBlock) {
    ASSERT_EQ(session_.StartExifToolSession(folder_.path(), writeTool("printf 'a\\0b'; sleep 100")), 1);
    EXPECT_EQ(queryUntilAnswered("/a.jpg", "Artist"), "a");
    ASSERT_EQ(session_.StartExifToolSession(folder_.path(), writeTool("tr '\\0' x < /dev/zero")), 1);
    EXPECT_GE(queryUntilAnswered("/a.jpg", "Artist").size(), 4096U);
    const auto begin = Clock::now();
    session_.CloseExifToolSession();
    EXPECT_LT(Clock::now() - begin, 3s);
}

TEST_F(ExifToolSessionTest, ADeadChildGivesEmptyAnswers) {
    ASSERT_EQ(session_.StartExifToolSession(folder_.path(), writeTool("exit 1")), 1);
    EXPECT_EQ(session_.QueryTag("/a.jpg", "Artist"), "");
    const auto sent = session_.SendPerFileCommand("-Artist=x\n", "/a.jpg");
    EXPECT_TRUE(sent.wasSent);
    EXPECT_FALSE(sent.wasAnswered);
    session_.CloseExifToolSession();
}

TEST_F(ExifToolSessionTest, ClosingEndsTheChildAndASecondTimeDoesNothing) {
    for (const char* script : {"", "exec sleep 100", "trap '' TERM HUP PIPE; while :; do sleep 100; done"}) {
        const auto tool = *script == 0 ? std::filesystem::path("/usr/bin/exiftool") : writeTool(script);
        ASSERT_EQ(session_.StartExifToolSession(folder_.path(), tool), 1);
        const auto child = static_cast<pid_t>(session_.childProcessId());
        ASSERT_GT(child, 0);
        const auto begin = Clock::now();
        session_.CloseExifToolSession();
        EXPECT_LT(Clock::now() - begin, 3s) << script;
        EXPECT_EQ(::kill(child, 0), -1) << script;
        EXPECT_FALSE(session_.isOpen());
        session_.CloseExifToolSession();
    }
    EXPECT_EQ(session_.QueryTag("/a.jpg", "Artist"), "");
    EXPECT_FALSE(session_.SendPerFileCommand("", "/a.jpg").wasSent);
}

TEST_F(ExifToolSessionTest, WhatCannotStartIsTold) {
    EXPECT_EQ(session_.StartExifToolSession(folder_.path(), "/no/such/tool"), ExifToolSession::kNoChild);
    EXPECT_FALSE(session_.isOpen());
    EXPECT_EQ(session_.StartExifToolSession(folder_ / "gone", "/usr/bin/exiftool"),
              ExifToolSession::kNoArgumentFile);
}
