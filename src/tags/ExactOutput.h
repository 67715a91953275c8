#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

/// Values as ExifTool prints them with `-S -G1 -ec -sep SEPARATOR`: control characters escaped, so that every
/// character of a text and every entry of a list can be told.
namespace tags {

/// Between the entries of a list; no text has it.
inline constexpr std::string_view kEntrySeparator = "\x1E\x1F\x1E";

struct ExactLine {
    QString group;  ///< without brackets
    QString name;
    QStringList entries;  ///< at least one
};

/// Nothing for a line that is none of a tag.
std::optional<ExactLine> exactLine(std::string_view line);

/// Calls back for every line of such an output, in order. False when the file cannot be opened.
[[nodiscard]] bool forEachExactLine(const std::filesystem::path& outputFile,
                                    const std::function<void(const ExactLine&)>& call);

/// "Title-de": the text of a tag in one of the languages that it is kept in. Both point into the name given.
struct NameOfLanguage {
    QStringView tag;
    QStringView language;
};

/// Nothing where no language stands behind the name.
std::optional<NameOfLanguage> splitLanguage(QStringView name);

}  // namespace tags
