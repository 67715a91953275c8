#include "support/OwnRuns.h"

#include "support/TemporaryFolder.h"

#include <algorithm>

namespace support {

OwnRuns::OwnRuns(const std::filesystem::path& home) : log_(home / "loadings") {
    writeBytes(log_, "");
    // The variable is one that the program sets for every ExifTool.
    writeBytes(home / ".ExifTool_config",
               "if (defined $ENV{PERL_BADLANG}) {\n"
               "    open(my $log, '>>', '" +
                   log_.string() +
                   "') or die;\n"
                   "    syswrite($log, \"$$\\n\");\n"
                   "    close $log;\n"
                   "}\n"
                   "%Image::ExifTool::UserDefined = ();\n"
                   "1;\n");
}

int OwnRuns::count() const {
    const std::string lines = readBytes(log_);
    return static_cast<int>(std::count(lines.begin(), lines.end(), '\n'));
}

}  // namespace support
