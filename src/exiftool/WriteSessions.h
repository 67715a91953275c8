#pragma once

#include "exiftool/Outcome.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

/// Writing the same to many files, with ExifTool's start paid once a processor instead of once a file.
namespace exiftool {

/// What is to be said of a file before it is written.
struct Prepared {
    std::string words = {};               ///< of what has failed; the outcome is at best Warned
    std::optional<Outcome> instead = {};  ///< the file's outcome: it is not to be written
};

/// For one operation.
struct WriteRequest {
    std::filesystem::path exifTool;
    std::filesystem::path tempFolder;  ///< of the program's own
    /// Bytes, one argument each, as on a command line without the program and the file. Complete: the last is
    /// no option that would take the file for its value.
    std::vector<std::string> arguments;
    std::vector<std::filesystem::path> files;
    /// Called once for each file before ExifTool gets it, such as for its safety copy. On a worker thread,
    /// for different files side by side. Empty for none.
    std::function<Prepared(const std::filesystem::path&)> beforeFile;
    /// At most so many sessions; 0: one for each processor.
    std::size_t sessionLimit = 0;
};

/// Both are called on worker threads, one call at a time, until writeFiles returns, at most once for a file.
/// fileBegun: a session was handed the file, perhaps behind some others. fileEnded: all but those that stay
/// NotBegun. May be empty.
struct WriteEvents {
    std::function<void(const std::filesystem::path&)> fileBegun;
    std::function<void(const Outcome&)> fileEnded;
};

/// What may be asked for meanwhile, from any thread. A cut is also an end.
struct WriteStops {
    std::stop_token noFurther;  ///< hand out no further file
    std::stop_token cut;        ///< end the file in work too, after kStopGrace
};

/// Writes all files and blocks until that is done. The outcomes are in the order of the files.
///
/// Sessions take some small files at a time, and a large one alone. What a session's lines cannot carry
/// without bending it, and an operation whose options mean something else in a process that has other files
/// too, is left to runs of their own, one file a process. An operation that gives files their names is
/// carried out file after file. A file that is listed twice, by another name too, is written twice, one after
/// the other.
///
/// When a session dies, the file that it had in work is told as Killed, or Failed when it ended by itself,
/// and a new session takes the others; when one after the other dies without having done any file, the rest
/// stays NotBegun. What a session has been handed cannot be taken back: up to 16 small files, or one large
/// one. At noFurther it finishes these, however long that takes. A cut gives it a bounded time for them and
/// then ends it: its file is Stopped, those that it has not come to are NotBegun. ExifTool's half-written
/// file of one that was cut is removed, when the file itself is untouched. Files keep what the file system
/// keeps with them (platform/FileBelongings.h).
[[nodiscard]] Outcomes writeFiles(const WriteRequest& request, const WriteStops& stops,
                                  const WriteEvents& events);

}  // namespace exiftool
