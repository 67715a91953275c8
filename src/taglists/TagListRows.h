#pragma once

#include "app/AppContext.h"
#include "tags/TagDictionary.h"
#include "tags/TagFamilies.h"

#include <QString>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace taglists {

/// One row of a list of tags: a tag with the value that is to be written, or, in the lists that remove, a tag
/// or a whole group with its tick.
struct TagRow {
    int tagId = -1;  ///< TagRecord::id; -1 for a row that stands for no tag of the dictionary
    QString name;
    QString group;                        ///< as the dictionary spells it, which is what ExifTool takes
    std::optional<tags::ValueKind> kind;  ///< nothing: no icon and no editor
    QString value;                        ///< what the value column shows and a write takes
    QString fileValue;  ///< what the one file holds; empty when it lacks the tag or there are several files
    QString code;       ///< of the chosen entry of a list; empty: value is written as text
    bool changed = false;         ///< by the user; with an empty value the tag is to be removed
    bool severalEntries = false;  ///< value holds one entry a line, as tags::joinEntries makes it
    bool fileSeveral = false;     ///< and so does fileValue
    int timesInFile = 0;          ///< how often the tag stands in its group; one of several cannot be changed
    std::vector<app::Translation> translations;  ///< that the file holds
    bool loaded = false;                         ///< value came out of a values file; nobody typed it
    bool ticked = false;

    bool isRemoval() const { return changed && value.isEmpty(); }
};
using TagRows = std::vector<TagRow>;

/// A row without value for each writable, not binary tag of the category or family, in the dictionary's
/// order.
TagRows rowsOfCategory(const tags::TagDictionary& dictionary, std::uint32_t categoryId);
TagRows rowsOfFamily(const tags::TagDictionary& dictionary, const tags::TagFamily& family);

/// A row for the record, whatever its kind and whether it can be written.
TagRow rowOf(const tags::TagRecord& record);

/// Puts what a file holds (`[Group] TagName: value`) into value and fileValue of the rows; the first line of
/// a group and name counts. The file is read once. False, and the rows as they are, for a file
/// that cannot be read.
[[nodiscard]] bool fillValues(TagRows& rows, const std::filesystem::path& outputFile);

/// Whether the tag of an id holds a list.
using TakesSeveral = std::function<bool(int tagId)>;

/// The same for an output that holds every character (tags/ExactOutput.h). ExifTool may spell a group in
/// other case than the rows.
[[nodiscard]] bool fillExactValues(TagRows& rows, const std::filesystem::path& outputFile,
                                   const TakesSeveral& takesSeveral);

/// A value of the user's.
struct NewValue {
    QString value;
    QString code = {};  ///< of the chosen entry of a list
    bool severalEntries = false;
    bool loaded = false;
};

/// Equal to what the file holds, or empty where it holds nothing, the value is no change.
void setRowValue(TagRow& row, const NewValue& value);

/// The value on one line.
QString shownValue(const TagRow& row);

/// The user empties the row. Of a tag that the one file holds, this asks for its removal. With several files,
/// whose values are not known, a value typed before is forgotten, and a row without one is marked for
/// removal.
void emptyRow(TagRow& row, bool severalFiles);

/// Back to what the file holds.
void undoRow(TagRow& row);

enum class TagSort { Name, Group };

/// By the text of the column, comparing 16-bit units without regard to any language; equal ones keep their
/// order.
void sortRows(TagRows& rows, TagSort column, bool ascending);

std::size_t changedCount(const TagRows& rows);
std::size_t tickedCount(const TagRows& rows);

/// Whether the row has a value, or the user has done something with it.
bool isFilled(const TagRow& row);
std::size_t filledCount(const TagRows& rows);

/// What the file holds comes first, then the rest of the groups that it holds, then what it has nothing of;
/// within these the order stays.
void putFilledFirst(TagRows& rows);

/// Whether a row is shown under the filter: all its words must occur, without case, in name, group or label.
bool matchesFilter(const TagRow& row, const QString& label, const QString& filter);

}  // namespace taglists
