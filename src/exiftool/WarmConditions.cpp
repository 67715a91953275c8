#include "exiftool/WarmConditions.h"

#include "platform/RegularFile.h"

#include <QByteArray>
#include <algorithm>
#include <array>
#include <string_view>

namespace exiftool {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestFirstLine = 256;
constexpr const char* kConfigurationFile = ".ExifTool_config";

constexpr std::array<const char*, 3> kArgumentsOfFreshRuns{"-config", "-stay_open", "-xpath"};
constexpr std::array<std::string_view, 3> kVariablesOfPerl{"PERL5OPT=", "PERL_UNICODE=", "PERL5DB="};

std::string_view valueOf(std::string_view name, const std::vector<std::string>& environment) {
    for (const std::string_view entry : environment) {
        if (entry.size() > name.size() && entry.starts_with(name) && entry[name.size()] == '=')
            return entry.substr(name.size() + 1);
    }
    return {};
}

std::string_view homeIn(const std::vector<std::string>& environment) {
    const std::string_view own = valueOf("EXIFTOOL_HOME", environment);
    // As in Perl, "0" is no more than nothing.
    return own.empty() || own == "0" ? valueOf("HOME", environment) : own;
}

std::string firstLine(const fs::path& file) {
    const std::string line = platform::readHead(file, kLongestFirstLine);
    const std::size_t end = line.find('\n');
    return end == std::string::npos ? std::string() : line.substr(0, end);
}

}  // namespace

std::optional<PerlStart> perlStartOf(const fs::path& script) {
    constexpr std::string_view kBlanks = " \t";
    std::string line = firstLine(script);
    if (!line.starts_with("#!")) return std::nullopt;
    line.erase(0, 2);
    line.erase(0, line.find_first_not_of(kBlanks));
    line.erase(line.find_last_not_of(kBlanks) + 1);
    const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
    PerlStart start{line.substr(0, end), {}};
    // All that stands behind the interpreter is one argument.
    const std::size_t argument = line.find_first_not_of(kBlanks, end);
    if (argument != std::string::npos) start.arguments.push_back(line.substr(argument));
    const std::string name = start.program.filename().string();
    const bool isPerl = name.starts_with("perl") ||
                        (name == "env" && start.arguments.size() == 1 && start.arguments.front() == "perl");
    if (!isPerl || !start.program.is_absolute()) return std::nullopt;
    return start;
}

bool canRunWarm(const std::vector<std::string>& arguments) {
    return std::none_of(arguments.begin(), arguments.end(), [](const std::string& argument) {
        return std::any_of(kArgumentsOfFreshRuns.begin(), kArgumentsOfFreshRuns.end(),
                           [&](const char* fresh) { return qstricmp(fresh, argument.c_str()) == 0; });
    });
}

bool canRunWarmIn(const std::vector<std::string>& environment) {
    const bool isPerlAsUsual =
        std::none_of(environment.begin(), environment.end(), [](std::string_view entry) {
            return std::any_of(kVariablesOfPerl.begin(), kVariablesOfPerl.end(),
                               [&](std::string_view variable) { return entry.starts_with(variable); });
        });
    return isPerlAsUsual && homeIn(environment).starts_with('/');
}

std::vector<fs::path> configurationFiles(const fs::path& script,
                                         const std::vector<std::string>& environment) {
    std::error_code error;
    std::vector<fs::path> files{fs::path(homeIn(environment)) / kConfigurationFile,
                                script.parent_path() / kConfigurationFile};
    if (fs::is_symlink(script, error)) {
        const fs::path target = script.parent_path() / fs::read_symlink(script, error);
        files.push_back(target.parent_path() / kConfigurationFile);
    }
    return files;
}

Identities identitiesOf(const std::vector<fs::path>& files) {
    Identities identities;
    identities.reserve(files.size());
    for (const fs::path& file : files) identities.push_back(platform::identifyFile(file));
    return identities;
}

}  // namespace exiftool
