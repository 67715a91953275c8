#pragma once

#include "app/Settings.h"
#include "tags/GroupCatalogue.h"
#include "tags/RatingMemory.h"
#include "tags/TagDictionary.h"

#include <QString>
#include <QStringList>
#include <QStringView>
#include <array>
#include <filesystem>
#include <functional>
#include <optional>

namespace tags {

/// Data word of a row whose tag has no record.
constexpr int kUnknownTag = -1;

/// One row of the metadata panel, which is its only store.
struct MetadataRow {
    int itemIndex = 0;  ///< running count of the rows of its group, at the time of insertion
    std::uint32_t groupId =
        0;  ///< list group that shows the row; kGroupCount and above: see ParsedOutput::extraGroups
    int tagId = kUnknownTag;   ///< id of the TagRecord
    QString group;             ///< name of the group without brackets, in the catalogue's spelling
    QString tag;               ///< as ExifTool printed it
    QString id;                ///< hexadecimal without "0x", or "-"
    QString value;             ///< empty for a rating that shows as stars
    std::optional<int> stars;  ///< star count in place of the value
};

/// One line of ExifTool's output taken apart: `[Group] 0xHHHH TagName: value`. The views point into the line
/// given.
struct OutputLine {
    QStringView group;  ///< with its brackets
    QStringView id;
    QStringView tag;
    QStringView value;  ///< inner blanks and a trailing CR kept
};

/// Cuts the hint on how to extract binary data: "(Binary data 12 bytes, use -b option to extract)" becomes
/// "(Binary data 12 bytes)". Lines under eight characters stay as they are.
void shortenBinaryHint(QString& line);

/// Splits at blanks; what is missing is empty.
OutputLine splitOutputLine(QStringView line);

/// The leading integer of a text, after blanks and with a sign, as the platform's conversion reads it; 0
/// without one.
int leadingInteger(QStringView text);

/// Turns what ExifTool printed about one file into rows. Looks up group and tag, drops what the show settings
/// hide, counts, and notes ratings. GUI thread; keeps references to what it is given.
class OutputParser {
 public:
    using InsertMetadataRow = std::function<void(MetadataRow&&)>;

    OutputParser(const TagDictionary& dictionary, const app::Settings& settings, RatingMemory& memory,
                 RatingLog& log);

    /// Starts a load: all counters 0, the rating memory cleared, extra groups forgotten.
    void begin();

    /// False when the file cannot be opened. Rows arrive in the order of the lines.
    [[nodiscard]] bool ParseExifToolOutput(const std::filesystem::path& outputFile,
                                           const InsertMetadataRow& insert);

    /// One line of bytes (UTF-8) without its LF.
    void parseLine(std::string_view bytes, const InsertMetadataRow& insert);

    /// The counters of the catalogue's groups and, behind them, of the extra ones.
    int groupCount(std::uint32_t groupId) const;

    /// Groups that the catalogue lacks, in the order met; the first has the id kGroupCount. Only with
    /// ShowUnknown.
    const QStringList& extraGroups() const { return extraGroups_; }

    /// Calls back for each group whose header shows a count, with a counter above 0; in catalogue order.
    void forEachShownCount(const std::function<void(std::uint32_t groupId, int count)>& call) const;

 private:
    struct Place {
        std::uint32_t groupId;
        int tagId;
    };
    std::optional<Place> placeOf(const OutputLine& line);
    std::optional<Place> placeWithoutRecord(const OutputLine& line, std::optional<std::uint32_t> groupId);
    int tagIdOf(std::uint32_t groupId, QStringView tag) const;
    bool isHidden(std::uint32_t groupId) const;
    std::uint32_t extraGroup(QStringView token);
    QString groupName(std::uint32_t groupId) const;
    int nextItemIndex(std::uint32_t groupId);
    void noteRating(std::uint32_t groupId, QStringView tag, QStringView value);

    const TagDictionary& dictionary_;
    const app::Settings& settings_;
    RatingMemory& memory_;
    RatingLog& log_;
    std::array<int, kGroupCount> counts_{};
    QStringList extraGroups_;
    std::vector<int> extraCounts_;
};

/// The value of the first line of the group and tag in output without ids (`[Group] TagName: value`); empty
/// when absent.
QString FindTagValue(const std::filesystem::path& outputFile, QStringView group, QStringView tagName);

/// Calls back for every line of such an output, in order: group without its brackets. False when the file
/// cannot be opened.
[[nodiscard]] bool forEachTagValue(
    const std::filesystem::path& outputFile,
    const std::function<void(QStringView group, QStringView tagName, QStringView value)>& call);

}  // namespace tags
