#include "exiftool/ArgumentLines.h"

#include "platform/ChildProcess.h"
#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>

using exiftool::argumentLine;
using exiftool::fileLine;
using exiftool::Sharing;
using exiftool::sharingOf;
using support::readBytes;

namespace {

/// Arguments that a line could bend.
const std::vector<std::string>& hardArguments() {
    static const std::vector<std::string> arguments{
        "-Title=plain",
        "-Title= blank in front",
        "-Title =sign",
        "-XMP-dc:Title#= raw",
        "-Title<= no",
        "-Title-= taken",
        "-Title=",
        "",
        "#comment",
        "#[CSTR]escaped",
        " leading",
        "\tleading tab",
        "\vleading other",
        "-Title=two\nlines\\n and a\ttab",
        "-Title=ends in a return\r",
        "-Title=\"quoted\" \\ and \\\\",
        "-Title=ends in a backslash\\",
        "-Title=\xC3\xA4\xE9 \xE6\x97\xA5",
        "-Title=$costs @home \\$",
        "-Title=$costs\nmore",
        "--",
    };
    return arguments;
}

}  // namespace

TEST(ArgumentLines, TheToolReadsEachLineAsTheArgumentThatItStandsFor) {
    const support::TemporaryFolder folder;
    // Perl itself shows what ExifTool's own reading of the lines makes of them.
    const std::string script = R"(
        open S, '<', '/usr/bin/exiftool';
        local $/;
        my ($reader) = <S> =~ /^(sub FilterArgfileLine\(\$\)\n.*?^})/ms or die;
        eval $reader;
        $/ = "\n";
        while (my $line = <STDIN>) {
            my $argument = FilterArgfileLine($line);
            print defined $argument ? "$argument\0" : "(none)\0";
        })";
    std::string lines;
    std::string wanted;
    std::size_t without = 0;
    for (const std::string& argument : hardArguments()) {
        const std::optional<std::string> line = argumentLine(argument);
        without += line ? 0 : 1;
        if (!line) continue;
        EXPECT_EQ(std::ranges::count(*line, '\n'), 1) << argument;
        lines += *line;
        wanted += argument + '\0';
    }
    EXPECT_EQ(without, 1U) << "a dollar in a text that has to be escaped";
    support::writeBytes(folder / "lines", lines);
    support::writeBytes(folder / "script", script);
    platform::ChildCommand command;
    command.program = "/bin/sh";
    command.arguments = {"-c", "perl \"$1\" <\"$2\"", "sh", (folder / "script").string(),
                         (folder / "lines").string()};
    command.output = platform::ChildStream::truncate(folder / "out");
    ASSERT_EQ(platform::runChild(command).number, 0);
    EXPECT_EQ(readBytes(folder / "out"), wanted);
}

TEST(ArgumentLines, AFileStandsOnItsLineAsItIsOrNotAtAll) {
    for (const char* file :
         {"/a/b.jpg", "/a/ b.jpg", "/a/#b.jpg", "/a/b =c.jpg", "/a/b\rc.jpg", "/-if", "/a/\xE9.jpg"})
        EXPECT_EQ(fileLine(file), std::string(file) + '\n');
    for (const char* file : {"", "b.jpg", "-if", "/a/b\nc.jpg", "/a/b\r"})
        EXPECT_FALSE(fileLine(file)) << file;
}

TEST(ArgumentLines, OperationsThatNeedAProcessAFileAreKnown) {
    using Arguments = std::vector<std::string>;
    const Arguments together[] = {
        {},
        {"-lang", "en", "-charset", "filename=UTF8", "-P", "-overwrite_original", "-m", "-q", "-Title=x"},
        {"-TagsFromFile", "/a/b.jpg", "-all:all", "-X", "-Verifier=x", "-Writer=me", "-Output=1", "-x",
         "Title"},
        {"-FileModifyDate<DateTimeOriginal", "-DateTimeOriginal>FileModifyDate", "-Title<FileName", "-v1x=2"},
    };
    const Arguments oneByOne[] = {{"-FileName<Model"},    {"-m", "-directory=/a"}, {"-Model>TestName"},
                                  {"-System:FileName=x"}, {"-HardLink=b"},         {"-SymLink<Title"}};
    const Arguments alone[] = {{"-execute"},        {"-Title=x", "-execute12", "-Title=y"},
                               {"-@", "file"},      {"-o", "%f"},
                               {"-V2", "-Title=x"}, {"-csv=/a/b.csv"},
                               {"-echo4", "x"},     {"-efile3!", "x"},
                               {"-w+", "txt"},      {"-progress:"},
                               {"-STAY_OPEN", "0"}};
    for (const Arguments& arguments : together)
        EXPECT_EQ(sharingOf(arguments), Sharing::SeveralAtATime) << testing::PrintToString(arguments);
    for (const Arguments& arguments : oneByOne)
        EXPECT_EQ(sharingOf(arguments), Sharing::OneAtATime) << testing::PrintToString(arguments);
    for (const Arguments& arguments : alone)
        EXPECT_EQ(sharingOf(arguments), Sharing::None) << testing::PrintToString(arguments);
}
