#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

/// What a session of ExifTool can be told line by line without a byte of it being read otherwise than on a
/// command line. Bytes throughout, UTF-8 where they are text.
namespace exiftool {

/// The line for one argument, with its line feed; nothing when none would be read as this argument.
std::optional<std::string> argumentLine(std::string_view argument);

/// The same for a file, which moreover stands on the line as it is, so that it can be known again in the
/// answer. Only for files named from the root.
std::optional<std::string> fileLine(std::string_view file);

/// The lines of all arguments; nothing when one has none.
std::optional<std::string> argumentLines(std::span<const std::string> arguments);

/// How far an operation may be carried out by a process that has other files too.
enum class Sharing {
    SeveralAtATime,  ///< the files do not concern each other
    OneAtATime,      ///< names are given, which must not collide: one file after the other, in one process
    None,            ///< an option means something else there: a process for each file
};

/// By the arguments without the program and the file. An unknown option is none of those that hinder.
Sharing sharingOf(std::span<const std::string> arguments);

}  // namespace exiftool
