#include "platform/CommandInterpreter.h"

#include "support/SmallFiles.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

using platform::CommandInterpreter;
using platform::CommandText;
using platform::parseCommands;
using platform::ParsedCommand;
using platform::Redirection;
using platform::TypedPieces;
using support::readBytes;
using support::TemporaryFolder;
using support::writeBytes;
using testing::ElementsAre;
using namespace std::string_literals;
using Words = std::vector<std::string>;

namespace {

struct LiteralCase {
    const char* text;
    Words words;
    std::optional<Redirection> output{};
    std::optional<Redirection> errors{};
};

/// A tool that prints its arguments, each in brackets, and a word on the error stream.
std::filesystem::path writePrinter(const TemporaryFolder& folder, const char* name = "printer") {
    auto tool = folder / name;
    writeBytes(tool, "#!/bin/sh\nfor word in \"$@\"; do printf '[%s]' \"$word\"; done\necho oops >&2\n");
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    return tool;
}

CommandText toolWord(const std::filesystem::path& tool) {
    CommandText text;
    return text.literal("\"").outside(tool.string()).literal("\" ");
}

}  // namespace

TEST(CommandInterpreterParse, ReadsTheSmallLanguageOfTheLines) {
    const LiteralCase cases[] = {
        {"tool a b", {"tool", "a", "b"}},
        {"  \t tool \t a  ", {"tool", "a"}},
        {"\"to ol\" \"a b\"", {"to ol", "a b"}},
        {"t -x=\"a b\"c", {"t", "-x=a bc"}},
        {"t \"\"", {"t", ""}},
        {"t -x=\"\" y", {"t", "-x=", "y"}},
        {"t \"say \"\"hi\"\"\"", {"t", "say \"hi\""}},
        {"t \"open a", {"t", "open a"}},
        {"t \"C:\\dir\\\" b", {"t", "C:\\dir\\", "b"}},
        {"t 100%% %%Y-%%m %x% 5%", {"t", "100%", "%Y-%m", "%x%", "5%"}},
        {"t \"%%f\" %%%", {"t", "%f", "%%"}},
        {"t a >out", {"t", "a"}, Redirection{"out", false}},
        {"t a>\"o ut\" b", {"t", "a", "b"}, Redirection{"o ut", false}},
        {"t a 2>err >out", {"t", "a"}, Redirection{"out", false}, Redirection{"err", false}},
        {"t a 2>>\"err\"", {"t", "a"}, std::nullopt, Redirection{"err", true}},
        {"t a 2>> err", {"t", "a"}, std::nullopt, Redirection{"err", true}},
        {"t a2>out 2 22 2x", {"t", "a2", "2", "22", "2x"}, Redirection{"out", false}},
        {"t \"a > b\" \"2>>c\"", {"t", "a > b", "2>>c"}},
        {"t -ThumbnailImage<=x & | ; ^ $HOME * ~ `x`",
         {"t", "-ThumbnailImage<=x", "&", "|", ";", "^", "$HOME", "*", "~", "`x`"}},
        {"t >one >two", {"t"}, Redirection{"two", false}},
        {"t \xC3\xBC\r\n", {"t", "\xC3\xBC"}},
    };
    for (const LiteralCase& row : cases) {
        const auto parsed = parseCommands(CommandText(row.text));
        ASSERT_EQ(parsed.size(), 1U) << row.text;
        EXPECT_EQ(parsed[0], (ParsedCommand{row.words, row.output, row.errors, {}})) << row.text;
    }
}

TEST(CommandInterpreterParse, OneCommandALine) {
    const auto parsed = parseCommands(CommandText("\n  \na \"1\n2\" b\r\nc >x\n"));
    ASSERT_EQ(parsed.size(), 3U);
    EXPECT_THAT(parsed[0].words, ElementsAre("a", "1"));
    EXPECT_THAT(parsed[1].words, ElementsAre("2 b\r")) << "what was the closing quote now opens";
    EXPECT_THAT(parsed[2].words, ElementsAre("c"));
    EXPECT_TRUE(parseCommands(CommandText()).empty());
}

TEST(CommandInterpreterParse, RedirectionsWithoutAFileAndZeroBytesAreRefused) {
    for (const std::string& text :
         {"t >"s, "t 2>"s, "t 2>> "s, "t > >x"s, "t >>x"s, "t 2>>>x"s, "t >\nu"s, "t a\0b"s})
        EXPECT_FALSE(parseCommands(CommandText(text))[0].refusal.empty()) << text;
    CommandText zero("t \"");
    zero.outside("a\0b"s).literal("\"");
    EXPECT_FALSE(parseCommands(zero)[0].refusal.empty());
}

TEST(CommandInterpreterParse, APieceFromOutsideStaysInsideItsArgument) {
    std::vector<std::string> hostile = support::hostileNames();
    for (const char* more :
         {"\"", "\"\"", "a\" >owned \"", "\" 2>>owned", ">owned", "2>owned", "2", ">", "%%", "%", " ", "\n",
          "\r\n", "x\ny >owned", "\"\n\"touch\" owned", "\\", "\\\"", "-o", "\t"})
        hostile.emplace_back(more);
    for (const std::string& bytes : hostile) {
        CommandText quoted("t \"");
        quoted.outside(bytes)
            .literal("\" >\"")
            .outside(bytes)
            .literal("\" 2>>\"")
            .outside(bytes)
            .literal("\"");
        const ParsedCommand expected{{"t", bytes}, Redirection{bytes, false}, Redirection{bytes, true}, {}};
        EXPECT_THAT(parseCommands(quoted), ElementsAre(expected)) << bytes;
        CommandText bare("t -x=");
        bare.outside(bytes).literal(" ").outside(bytes).literal(" >").outside(bytes);
        const ParsedCommand unquoted{{"t", "-x=" + bytes, bytes}, Redirection{bytes, false}, {}, {}};
        EXPECT_THAT(parseCommands(bare), ElementsAre(unquoted)) << bytes;
        CommandText first;
        first.literal("\"").outside(bytes).literal("\" z");
        EXPECT_THAT(parseCommands(first)[0].words, ElementsAre(bytes, "z"));
    }
}

TEST(CommandInterpreterParse, SignsDoNotReachOverABoundToOutside) {
    CommandText text("t 5%");
    text.outside("%").literal("% 2").outside(">x").literal(" \"a").outside("\"").literal("\" \"").literal(
        "\"");
    EXPECT_THAT(parseCommands(text)[0].words, ElementsAre("t", "5%%%", "2>x", "a\"", ""));
    CommandText own("t 5%");
    own.literal("%").typed(" >").literal("out");
    EXPECT_EQ(parseCommands(own)[0], (ParsedCommand{{"t", "5%"}, Redirection{"out", false}, {}, {}}));
}

TEST(CommandInterpreterParse, TypedTextCountsAsItStandsOrStaysInside) {
    CommandText text("t -c=\"");
    text.typed("a\" -x 50%% >o\nu").literal("\"");
    const auto designed = parseCommands(text, TypedPieces::AsTheyStand);
    ASSERT_EQ(designed.size(), 2U);
    EXPECT_EQ(designed[0], (ParsedCommand{{"t", "-c=a", "-x", "50%"}, Redirection{"o", false}, {}, {}}));
    EXPECT_THAT(designed[1].words, ElementsAre("u"));
    const auto corrected = parseCommands(text, TypedPieces::StayInside);
    ASSERT_EQ(corrected.size(), 1U);
    EXPECT_THAT(corrected[0].words, ElementsAre("t", "-c=a\" -x 50%% >o\nu"));
}

TEST(CommandInterpreter, RunsATool) {
    const TemporaryFolder folder;
    const auto tool = writePrinter(folder);
    CommandText text = toolWord(tool);
    text.literal("-a \"")
        .outside("x\ny")
        .literal("\" >\"")
        .outside((folder / "o\"ut").string())
        .literal("\" 2>>");
    text.outside((folder / "err").string());
    const CommandInterpreter interpreter({{}, tool});
    for (int round = 1; round <= 2; ++round) {
        const auto outcome = interpreter.run(text);
        EXPECT_TRUE(outcome.everyToolStarted());
        EXPECT_EQ(outcome.answers(), "");
    }
    EXPECT_EQ(readBytes(folder / "o\"ut"), "[-a][x\ny]");
    EXPECT_EQ(readBytes(folder / "err"), "oops\noops\n");
}

TEST(CommandInterpreter, StartsNothingButTheTools) {
    const TemporaryFolder folder;
    const auto tool = writePrinter(folder);
    const auto other = writePrinter(folder, "other");
    const CommandInterpreter interpreter({tool, {}});
    for (const std::string& word :
         {other.string(), "printer"s, "./printer"s, "touch"s, "sh"s, ""s, tool.string() + " "}) {
        CommandText text;
        text.literal("\"")
            .outside(word)
            .literal("\" x >\"")
            .outside((folder / "out").string())
            .literal("\" 2>\"");
        text.outside((folder / "err").string()).literal("\"");
        const auto outcome = interpreter.run(text);
        EXPECT_FALSE(outcome.everyToolStarted());
        EXPECT_EQ(outcome.answers(),
                  '\'' + word + "' is not recognized as one of the tools that may be run.\n");
        EXPECT_EQ(readBytes(folder / "err"), outcome.answers());
        EXPECT_FALSE(std::filesystem::exists(folder / "out")) << word;
    }
}

TEST(CommandInterpreter, NothingFromOutsideRunsOrChoosesAFile) {
    const TemporaryFolder folder;
    const auto tool = writePrinter(folder);
    std::filesystem::current_path(folder.path());
    for (const char* bytes :
         {"$(touch owned)", "`touch owned`", "\" >owned \"", "\n\"/usr/bin/touch\" owned\n", ";touch owned",
          "| touch owned", "&& touch owned", "\" 2>>owned", "%COMSPEC%"}) {
        CommandText text = toolWord(tool);
        text.literal("\"").outside(bytes).literal("\" >out");
        EXPECT_TRUE(CommandInterpreter({tool}).run(text).everyToolStarted());
        EXPECT_EQ(readBytes(folder / "out"), "["s + bytes + "]");
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "owned"));
}

TEST(CommandInterpreter, ALineThatCannotRunDoesNotStopTheNext) {
    const TemporaryFolder folder;
    const auto tool = writePrinter(folder);
    CommandText text("nothing here\n");
    text.append(toolWord(tool)).literal("one >\"").outside((folder / "no/such").string()).literal("\" 2>");
    text.outside((folder / "err").string()).literal("\n");
    text.append(toolWord(tool)).literal("two >\"").outside((folder / "out").string()).literal("\"");
    const auto outcome = CommandInterpreter({tool}).run(text);
    ASSERT_EQ(outcome.lines.size(), 3U);
    EXPECT_FALSE(outcome.everyToolStarted());
    EXPECT_THAT(readBytes(folder / "err"), testing::HasSubstr("no/such"));
    EXPECT_EQ(readBytes(folder / "out"), "[two]");
}

TEST(CommandInterpreter, AToolThatIsNoProgramIsAnswered) {
    const TemporaryFolder folder;
    const auto missing = folder / "missing";
    const auto plain = folder / "plain";
    writeBytes(plain, "#!/bin/sh\n");
    const auto garbage = folder / "garbage";
    writeBytes(garbage,
               "\x7F"
               "ELF nonsense");
    std::filesystem::permissions(garbage, std::filesystem::perms::owner_all);
    for (const auto& tool : {missing, plain, garbage}) {
        const auto outcome =
            CommandInterpreter({tool}).run(toolWord(tool).literal(">").outside((folder / "out").string()));
        EXPECT_FALSE(outcome.everyToolStarted());
        EXPECT_THAT(outcome.answers(), testing::StartsWith(tool.string() + ": "));
        EXPECT_EQ(readBytes(folder / "out"), "") << "what an earlier run left is not taken for this one's";
    }
}

TEST(CommandInterpreter, AStoppedLineIsTheLast) {
    const TemporaryFolder folder;
    const auto tool = folder / "sleeper";
    writeBytes(tool, "#!/bin/sh\nexec sleep 100\n");
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    CommandText text = toolWord(tool);
    text.literal("\n").append(toolWord(tool));
    const auto outcome = CommandInterpreter({tool}).run(text, [](auto) { return false; });
    EXPECT_TRUE(outcome.wasStopped());
    EXPECT_EQ(outcome.lines.size(), 1U);
}
