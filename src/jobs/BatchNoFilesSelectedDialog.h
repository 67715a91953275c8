#pragma once

#include "dialogs/DarkModeDialogBase.h"

#include <filesystem>

class QLineEdit;
class QRadioButton;

namespace jobs {

/// Asked when a command over files finds none selected: whether it shall take those of a folder, and which.
class BatchNoFilesSelectedDialog : public dialogs::DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 9;
    static constexpr int kShownFolderControl = 1930;
    static constexpr int kTypedFolderControl = 1931;
    static constexpr int kFolderControl = 1321;
    static constexpr int kChooseControl = 1097;
    static constexpr int kSubfoldersControl = 1008;
    static constexpr int kShownFolderName = 82020;

    /// shownFolder is the one that the browser shows.
    BatchNoFilesSelectedDialog(const app::LanguageFile& languageFile,
                               const std::filesystem::path& shownFolder, QWidget* parent);

    /// What was chosen; good after run() has given 1.
    std::filesystem::path folder() const;
    bool withSubfolders() const;

 public Q_SLOTS:
    void accept() override;

 private:
    void chooseFolder();
    void updateControls();

    const app::LanguageFile& language_;
    std::filesystem::path shownFolder_;
    std::filesystem::path chosen_;  ///< by the button; its text cannot always be turned back into it
    QRadioButton* typedFolder_ = nullptr;
    QLineEdit* edit_ = nullptr;
};

}  // namespace jobs
