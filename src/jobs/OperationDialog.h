#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "jobs/Operation.h"
#include "jobs/OperationJob.h"
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

    /// Whether it is to be shown once more when its job has ended.
    bool comesBack() const { return operation_.results != nullptr; }
    /// Puts what the job has brought into the list; the files it tells of. For a dialog that comes back.
    std::vector<std::filesystem::path> showResults(const JobEnd& end);

    void accept() override;

 private:
    /// The operation itself names the controls that it uses.
    QWidget* widget(int controlId) const;
    void checkControls();
    void prepare(const OperationField& field);
    Opening opening() const { return {parts_.context, form_, files_, folder_, shown_}; }
    void fillRows(const OperationField& field);
    void press(const OperationButton& button);
    void showOffered(const FilledForm& offered);
    void followOthers();
    void enable();
    void refuse(const OperationRefusal& refusal);
    /// False where the answer keeps the dialog open.
    bool ask(FilledForm& form);
    void choosePath(const OperationField& field);
    std::filesystem::path pathIn(int control) const;
    FilledForm::Value valueOf(const OperationField& field) const;

    const OperationParts parts_;
    const Operation& operation_;
    const app::CommandForm form_;
    const std::vector<std::filesystem::path> files_;
    const std::filesystem::path folder_;
    const std::vector<std::filesystem::path> shown_;
    FilledForm asked_;  ///< of the last job
    std::vector<OperationResult> results_;
    std::map<int, std::filesystem::path> chosen_;  ///< keep the bytes of names that a text cannot hold
};

}  // namespace jobs
