#pragma once

#include "app/AppContext.h"
#include "platform/PointInTime.h"

#include <QString>
#include <filesystem>
#include <vector>

namespace tags {

/// The tag that a value dialog works on: what it shows, and what it leaves behind.
struct TagEditContext {
    std::filesystem::path filePath;  ///< file shown in the panel, or the first of a list's; may be empty
    QString value;                   ///< text on entry, new text on return; one entry a line for a tag
                                     ///< that takes several values (tags/Entries.h)
    bool severalEntries = false;     ///< value is such a text
    std::vector<app::Translation> translations;  ///< see CurrentEdit
    QString title;                               ///< tag name, for the title
    QString group;                               ///< TagRecord::group
    int tagId = -1;
    int selection = 0;               ///< index of the chosen entry (list, rating)
    QString comboCode;               ///< code that belongs to the chosen entry of a list
    platform::PointInTime fileTime;  ///< the moment chosen in a date dialog
    QString refusal = {};            ///< why this value could not be written, for people; else empty
};

}  // namespace tags
