#pragma once

#include "app/AppContext.h"
#include "exiftool/WarmStarter.h"

#include <filesystem>
#include <map>
#include <ostream>
#include <string>

namespace sweep {

/// What became of the edits.
struct Figures {
    std::size_t files = 0;
    std::size_t rows = 0;                         ///< that the panel offers to edit
    std::size_t written = 0;                      ///< with no other line changed but expected ones
    std::size_t unchanged = 0;                    ///< ExifTool wrote nothing, or keeps the tag as it was
    std::size_t refused = 0;                      ///< by ExifTool, which is told
    std::size_t declined = 0;                     ///< before the dialog or in it, which is told
    std::size_t astray = 0;                       ///< other lines changed too
    std::map<std::string, std::size_t> expected;  ///< lines, by the reason
};

/// Changes every value that the panel offers to edit, each in a fresh copy of the file, by the composer and
/// runner of the program, and compares all other lines of ExifTool before and after. Prints what is not as it
/// should be, a line each. The file itself is only read. Blocks.
void sweepFile(const app::AppContext& context, exiftool::WarmStarter* starter,
               const std::filesystem::path& file, Figures& figures, std::ostream& output);

}  // namespace sweep
