#include "exiftool/ArgumentLines.h"

#include <algorithm>
#include <array>

namespace exiftool {

namespace {

constexpr std::string_view kEscapedLine = "#[CSTR]";
constexpr std::string_view kBlanks = " \t\n\r\f\v";
constexpr std::string_view kWordBytes = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-:";

/// ExifTool drops blanks around the equals sign of "-TAG = value" on a line, which on a command line belong
/// to the value.
bool losesBlanks(std::string_view argument) {
    if (!argument.starts_with('-')) return false;
    std::size_t at = std::min(argument.find_first_not_of(kWordBytes, 1), argument.size());
    if (at < argument.size() && argument[at] == '#') ++at;
    const std::size_t sign = std::min(argument.find_first_not_of(kBlanks, at), argument.size());
    std::size_t equals = sign;
    if (equals < argument.size() && std::string_view("-+<").find(argument[equals]) != std::string_view::npos)
        ++equals;
    if (equals >= argument.size() || argument[equals] != '=') return false;
    return sign != at || argument.substr(equals + 1).starts_with(' ');
}

bool standsAsItIs(std::string_view argument) {
    if (argument.empty() || argument.front() == '#' ||
        kBlanks.find(argument.front()) != std::string_view::npos)
        return false;
    return argument.find_first_of(std::string_view("\n\0", 2)) == std::string_view::npos &&
           !argument.ends_with('\r') && !losesBlanks(argument);
}

/// ExifTool leaves the backslash in front of a dollar and an at sign, and would take them bare for a
/// variable.
bool canBeEscaped(std::string_view argument) {
    return argument.find_first_of(std::string_view("$@\0", 3)) == std::string_view::npos;
}

std::string escaped(std::string_view argument) {
    std::string line(kEscapedLine);
    for (const char byte : argument) {
        switch (byte) {
            case '\n':
                line += "\\n";
                break;
            case '\r':
                line += "\\r";
                break;
            case '"':
            case '\\':
                line += '\\';
                [[fallthrough]];
            default:
                line += byte;
        }
    }
    return line + '\n';
}

/// Options that concern the whole process, lead its streams elsewhere, or put the result elsewhere than into
/// the file. In lower case, without the digits and signs that may stand behind them.
constexpr auto kUnsharedOptions = std::to_array<std::string_view>({
    "-@",       "-common_args", "-config",  "-csv",       "-delete_original",
    "-echo",    "-efile",       "-execute", "-fileorder", "-htmldump",
    "-json",    "-list",        "-listd",   "-listf",     "-listff",
    "-listg",   "-listr",       "-listw",   "-listwf",    "-listx",
    "-o",       "-out",         "-pause",   "-progress",  "-restore_original",
    "-srcfile", "-stay_open",   "-tagout",  "-textout",   "-v",
    "-ver",     "-verbose",     "-w",
});

constexpr auto kNames =
    std::to_array<std::string_view>({"filename", "directory", "testname", "hardlink", "symlink"});

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

bool isUnshared(std::string_view option) {
    option = option.substr(0, option.find_first_of("=:"));
    const std::size_t last = option.find_last_not_of("0123456789!+");
    return std::ranges::find(kUnsharedOptions, option.substr(0, last + 1)) != kUnsharedOptions.end();
}

bool givesName(std::string_view option) {
    const std::size_t sign = option.find_first_of("=<>");
    if (!option.starts_with('-') || sign == std::string_view::npos) return false;
    // The tag that is written stands in front of "<" and of "=", and behind ">".
    const bool isBehind = option[sign] == '>';
    const std::string_view tag = isBehind ? option.substr(sign) : option.substr(0, sign);
    return std::ranges::any_of(
        kNames, [&](std::string_view name) { return tag.find(name) != std::string_view::npos; });
}

}  // namespace

std::optional<std::string> argumentLine(std::string_view argument) {
    if (standsAsItIs(argument)) return std::string(argument) + '\n';
    if (canBeEscaped(argument)) return escaped(argument);
    return std::nullopt;
}

std::optional<std::string> fileLine(std::string_view file) {
    if (!file.starts_with('/') || !standsAsItIs(file)) return std::nullopt;
    return std::string(file) + '\n';
}

std::optional<std::string> argumentLines(std::span<const std::string> arguments) {
    std::string lines;
    for (const std::string& argument : arguments) {
        const std::optional<std::string> line = argumentLine(argument);
        if (!line) return std::nullopt;
        lines += *line;
    }
    return lines;
}

Sharing sharingOf(std::span<const std::string> arguments) {
    Sharing sharing = Sharing::SeveralAtATime;
    for (const std::string& argument : arguments) {
        const std::string option = lowerCase(argument);
        if (isUnshared(option)) return Sharing::None;
        if (givesName(option)) sharing = Sharing::OneAtATime;
    }
    return sharing;
}

}  // namespace exiftool
