#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"
#include "exiftool/ReadCommands.h"
#include "exiftool/ToolRunner.h"
#include "jobs/ValueEditing.h"
#include "tags/LabelLibrary.h"
#include "tags/RatingMemory.h"
#include "tags/TagDictionary.h"

#include <filesystem>
#include <functional>
#include <vector>

namespace jobs {

/// What operations and their dialogs work with. Owned by the main window; all of it outlives them. GUI
/// thread.
struct OperationParts {
    app::AppContext& context;
    const app::LanguageFile& language;
    const tags::TagDictionary& dictionary;
    const tags::LabelLibrary& labels;
    tags::RatingMemory& ratingMemory;
    tags::RatingLog& ratingLog;
    exiftool::ToolRunner& runner;
    exiftool::ReadCommands& reads;
    ValueEditing* values = nullptr;                           ///< for the dialogs that edit lists of values
    std::function<std::filesystem::path()> shownFolder = {};  ///< of the file list; empty: none
    std::function<std::vector<std::filesystem::path>()> shownItems =
        {};  ///< all of the file list, in its order
};

}  // namespace jobs
