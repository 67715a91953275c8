#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "jobs/Operation.h"
#include "jobs/OperationParts.h"

#include <filesystem>
#include <map>
#include <vector>

namespace jobs {

/// The dialog of any operation: shows its form, offers what is to be chosen, says what is missing, and leaves
/// the job. GUI thread.
class OperationDialog : public dialogs::DarkModeDialogBase, public JobSource {
    Q_OBJECT

 public:
    /// The operation has a form, and outlives the dialog and its job.
    OperationDialog(const OperationParts& parts, const Operation& operation,
                    std::vector<std::filesystem::path> files, QWidget* parent);

    /// Everything as it stands in the controls.
    FilledForm filled() const;

    void accept() override;

 private:
    /// The operation itself names the controls that it uses.
    QWidget* widget(int controlId) const;
    void checkControls();
    void prepare(const OperationField& field);
    void fillRows(const OperationField& field);
    void showOffered(const FilledForm& offered);
    void enable();
    void choosePath(const OperationField& field);
    std::filesystem::path pathIn(int control) const;
    FilledForm::Value valueOf(const OperationField& field) const;

    const OperationParts parts_;
    const Operation& operation_;
    const app::CommandForm form_;
    const std::vector<std::filesystem::path> files_;
    std::map<int, std::filesystem::path> chosen_;  ///< keep the bytes of names that a text cannot hold
};

}  // namespace jobs
