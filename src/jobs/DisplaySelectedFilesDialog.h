#pragma once

#include "dialogs/DarkModeDialogBase.h"

#include <filesystem>
#include <vector>

namespace jobs {

/// Lists the files that an operation over several would work on, in its order. Only to be read and copied.
class DisplaySelectedFilesDialog : public dialogs::DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 5041;
    static constexpr int kListControl = 924;
    static constexpr int kCountControl = 82048;

    DisplaySelectedFilesDialog(const app::LanguageFile& languageFile,
                               const std::vector<std::filesystem::path>& files, QWidget* parent);
};

}  // namespace jobs
