#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "jobs/OperationParts.h"
#include "jobs/ValueEditing.h"
#include "taglists/TagList.h"
#include "taglists/TagValueWrites.h"
#include "tags/TagEditContext.h"

#include <filesystem>
#include <vector>

class QLabel;

namespace taglists {

/// What the dialogs with a list of values have in common: a status bar of two parts, the list whose values
/// are edited one by one, and at OK a job that writes file after file.
class TagValuesDialog : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    static constexpr int kStatusBar = 400;
    static constexpr int kList = 1328;

    struct Task {
        int templateNumber = 0;
        QString title;
        std::vector<std::filesystem::path> files;  ///< at least one
        std::vector<TagColumn> columns;
    };

    /// What parts refer to outlives the dialog.
    TagValuesDialog(const jobs::OperationParts& parts, Task task, QWidget* parent);

    TagList& list() { return *list_; }

    void accept() override;

 protected:
    /// Shows the rows; with one file what it holds stands in them. False when it could not be read: the list
    /// is then empty.
    bool fill(TagRows rows, const std::filesystem::path& output, const ReadInto& read);

    /// rows: as they stood at OK.
    virtual jobs::Job jobOf(const TagRows& rows) = 0;

    const jobs::OperationParts& parts() const { return parts_; }
    const std::vector<std::filesystem::path>& files() const { return task_.files; }
    app::CommandForm form() const { return form_; }
    bool hasOneFile() const { return task_.files.size() == 1; }
    void showStatus(const QString& text);

 private:
    void placeList();
    void fillStatusBar();
    void editValue(std::size_t row);
    bool startEdit(const TagRow& row);
    bool holdsSeveral(const TagRow& row) const;

    const jobs::OperationParts parts_;
    const app::CommandForm form_;
    Task task_;
    TagList* list_ = nullptr;
    QLabel* status_ = nullptr;
    tags::TagEditContext edit_;  ///< the designed form opens a list of values on the entry chosen last
};

/// "photo.jpg", or "12 files": whom a dialog works on, for its title.
QString filesText(const app::LanguageFile& language, const std::vector<std::filesystem::path>& files);

}  // namespace taglists
