#pragma once

#include "exiftool/Outcome.h"
#include "platform/ChildProcess.h"
#include "platform/FileStamp.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Some files that a session of ExifTool is given together, and what its answer says of each. ExifTool counts
/// them together, so that the session has it name, at the moment at which it is done with a file, each that
/// it could not write on its error stream and each that it left as it was on its output. What is named
/// nowhere has been written, which the file itself has to confirm.
namespace exiftool {

/// The lines for one batch. arguments: lines of argumentLine. token: does not occur in any name or value; it
/// ends the answer on both streams.
std::string batchRequest(std::string_view arguments, std::span<const std::filesystem::path> files,
                         std::string_view token);

/// True when both streams have come to the end of the answer to that request.
bool isWholeAnswer(std::string_view output, std::string_view errors, std::string_view token);

/// One file of a batch.
struct BatchFile {
    std::filesystem::path path;
    platform::FileStamp before;
    platform::FileStamp after;
    /// ExifTool's half-written new file stands beside it, which it did not before.
    bool isHalfWritten = false;
};

struct BatchAnswer {
    /// Ended with status 0 for a session that lives on.
    platform::ChildOutcome child;
    bool isWhole = false;
    std::string output;
    std::string errors;
    std::string token;
    bool wasQuiet = false;
};

/// Outcomes in the order of the files. When the answer is not whole, the first file that ExifTool was not
/// done with is the one that it had in work, whose outcome says how the session ended; those behind it are
/// NotBegun, and another session may take them.
[[nodiscard]] Outcomes judgeBatch(std::span<const BatchFile> files, const BatchAnswer& answer);

}  // namespace exiftool
