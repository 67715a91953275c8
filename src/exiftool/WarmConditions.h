#pragma once

#include "platform/FileIdentity.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// When a command may go through the warm starter: only where it cannot be told from a run of its own.
namespace exiftool {

/// How the system would start a Perl script: the interpreter and what stands in front of the script. Nothing
/// for a script of another language and for a program.
struct PerlStart {
    std::filesystem::path program;
    std::vector<std::string> arguments;
};
std::optional<PerlStart> perlStartOf(const std::filesystem::path& script);

/// False for arguments that ExifTool heeds before all else or that keep it alive.
bool canRunWarm(const std::vector<std::string>& arguments);

/// False when the environment changes how Perl reads its arguments, or makes ExifTool's configuration depend
/// on the working folder. Entries are "NAME=VALUE".
bool canRunWarmIn(const std::vector<std::string>& environment);

/// Where ExifTool looks for the user's configuration.
std::vector<std::filesystem::path> configurationFiles(const std::filesystem::path& script,
                                                      const std::vector<std::string>& environment);

/// What files were at one moment; nothing for one that is not there or no regular file.
using Identities = std::vector<std::optional<platform::FileIdentity>>;
Identities identitiesOf(const std::vector<std::filesystem::path>& files);

}  // namespace exiftool
