#pragma once

#include "exiftool/Outcome.h"
#include "platform/ChildProcess.h"
#include "platform/FileBelongings.h"
#include "platform/FileStamp.h"

#include <QString>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What a run of ExifTool did to a file, by its own account and by the file itself. Everything here is a pure
/// function of what is handed over, and may be called on any thread.
namespace exiftool {

/// ExifTool's own count of the files that it was given to write, from the lines that it ends with.
struct ToolCounts {
    std::size_t updated = 0;    ///< in their place, or renamed
    std::size_t created = 0;    ///< as new files: created, copied, moved
    std::size_t unchanged = 0;  ///< also those that did not meet a condition
    std::size_t failed = 0;

    bool operator==(const ToolCounts&) const = default;
};

/// What ExifTool has said, taken apart.
struct ToolAccount {
    std::optional<ToolCounts> counts;  ///< nothing when it has not counted
    std::string
        words;  ///< its complaints, line by line, without a line feed at the end; no counts among them
};

/// Some modes count on the error stream, so both are looked at; words are those of the error stream alone.
ToolAccount accountOf(std::string_view output, std::string_view errors);

/// One file's share of the words of a process that was given several: the lines that name the file, and those
/// that name none of them, such as a complaint about an argument. Names as ExifTool was given them.
std::string wordsOfFile(std::string_view words, const std::filesystem::path& file,
                        std::span<const std::filesystem::path> filesOfProcess);

/// True when the arguments, without the program, keep ExifTool from counting.
bool isQuiet(std::span<const std::string> arguments);

struct WriteFacts {
    platform::ChildOutcome child;
    ToolAccount account;  ///< of this one file
    platform::FileStamp before;
    platform::FileStamp after;
    bool wasQuiet = false;
};

/// Done and Warned need both: a tool that says so, and a file that has been touched. A tool that ended well
/// and did not count although it was not told to be quiet has done nothing that can be relied on: Failed.
Outcome judgeWrite(const std::filesystem::path& file, const WriteFacts& facts);

/// A run that was to read files, and to write nothing into them.
struct ReadFacts {
    platform::ChildOutcome child;
    std::string words;       ///< its complaints about this one file
    bool hasOutput = false;  ///< something has come where the answer was to go
    bool isOneOfMany =
        false;  ///< the process had other files too, so that its status says nothing of this one
};

/// Done and Warned: the answer has come. Unchanged: ExifTool ended well and had nothing to answer, or the
/// file did not meet its condition.
Outcome judgeRead(const std::filesystem::path& file, const ReadFacts& facts);

/// The outcome with a line more, which makes a Done a Warned.
Outcome withWords(Outcome outcome, std::string_view line);

/// The same for what the file has lost by being written, if anything.
Outcome withLosses(Outcome outcome, const platform::FileLosses& losses);

/// What the file would lose or has lost, for people: "its other names (hard links), its owner".
std::string wordsOfLosses(const platform::FileLosses& losses);

/// Of a file whose safety copy failed, and which is not to be written without one.
Outcome withoutCopy(const std::filesystem::path& file, const QString& failure);

/// What is to be said of a tool that could not say it itself; empty when it ended by itself.
std::string faultOf(const platform::ChildOutcome& child);

/// How it ended: Stopped, Killed or NotStarted, Failed by its exit status, else Done.
OutcomeKind endOf(const platform::ChildOutcome& child);

}  // namespace exiftool
