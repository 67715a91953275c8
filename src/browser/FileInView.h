#pragma once

#include "browser/ItemList.h"

#include <filesystem>

namespace browser {

/// Which of the selected files a panel is about.
struct FileInView {
    int row = -1;    ///< -1: no file is selected
    int number = 0;  ///< of the file among the selected ones, counted from 1 from top to bottom
    int count = 0;   ///< of selected files; folders do not count
};

/// The current item when it is a selected file, else the one that is shown as long as it stays selected, else
/// the first. currentRow may be -1, shown empty or of another folder.
FileInView fileInView(const ItemList& list, int currentRow, const std::filesystem::path& shown);

/// Whether that path is a selected file of the list.
bool isSelectedFile(const ItemList& list, const std::filesystem::path& path);

}  // namespace browser
