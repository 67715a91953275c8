#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"
#include "exiftool/FileProgress.h"
#include "exiftool/ReadCommands.h"
#include "exiftool/ToolRunner.h"
#include "tags/LabelLibrary.h"
#include "tags/RatingMemory.h"
#include "tags/TagDictionary.h"

namespace edit {

/// What the edits and their dialogs work with. Owned by the main window; all of it outlives them. GUI thread.
struct EditParts {
    app::AppContext& context;
    const app::LanguageFile& language;
    const tags::TagDictionary& dictionary;
    const tags::LabelLibrary& labels;
    tags::RatingMemory& ratingMemory;
    tags::RatingLog& ratingLog;
    exiftool::ToolRunner& runner;
    exiftool::ReadCommands& reads;
    exiftool::FileProgress& progress;
};

}  // namespace edit
