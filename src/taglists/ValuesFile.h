#pragma once

#include "app/CommandForm.h"
#include "taglists/TagListRows.h"

#include <QString>
#include <QStringList>
#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

/// A file with values to fill a list with: a line of names separated by commas, and a line with the values
/// that belong to them. It begins with the name of the file that the values were read from. In the designed
/// form the first line has to end in a carriage return and is cut at 256 names, a name at 255 bytes, the
/// values at 5096 bytes. The corrected form takes what ExifTool writes with -csv, on any platform and of any
/// length: quotes are doubled within quotes, and a name may have its group before it ("IFD0:Make").
namespace taglists {

struct NamedValue {
    QString group;  ///< empty when the name stood alone
    QString name;
    QString value;

    bool operator==(const NamedValue&) const = default;
};

/// Nothing when the file has no such two lines. Names without a value are left out.
std::vector<NamedValue> parseValuesFile(std::string_view bytes, app::CommandForm form);

struct LoadedValues {
    std::size_t set = 0;
    std::size_t unknown = 0;  ///< names that no row has
    QStringList leftOut;      ///< "GROUP:NAME" of what must not come out of another file
};

/// What is known of tags beside their rows, by id.
struct TagTraits {
    TakesSeveral takesSeveral;
    std::function<bool(int tagId)> describesStructure;
};

/// Gives each value to the first row of its name, blind to case. In the corrected form to the row of its
/// group, and where it has none, of the likeliest one: a make is that of IFD0 before that of the thumbnail;
/// an empty value touches no row there, and no value a row that says how its file is built (strips, their
/// compression), or one of a tag that the file has several times. Of a list ExifTool writes the entries with
/// ", " between them.
LoadedValues applyValues(TagRows& rows, std::span<const NamedValue> values, app::CommandForm form,
                         const TagTraits& traits);

}  // namespace taglists
