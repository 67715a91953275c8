#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "jobs/OperationParts.h"
#include "payload/PayloadExporter.h"

#include <filesystem>
#include <vector>

class QLineEdit;

namespace payload {

/// What the dialogs have in common that write embedded data of the selected files out into a folder. GUI
/// thread.
class ExportDialogPayload : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    ExportDialogPayload(const jobs::OperationParts& parts, std::vector<std::filesystem::path> files,
                        int templateNumber, QWidget* parent);

 public Q_SLOTS:
    void accept() override;

 protected:
    /// What is to be written, in this order; empty when the user has chosen nothing.
    virtual std::vector<PayloadExport> payloads() const = 0;
    /// Title for one file and for several, with "%s" for their number.
    void setTitle(int titleOfOne, int titleOfMore);

 private:
    void chooseFolder();
    std::filesystem::path folder() const;
    void refuse(const QString& why);
    /// False when the user wants to think again.
    bool decideAboutExisting(PayloadExporter& exporter, const std::vector<PayloadExport>& chosen);
    QString jobTitle(const std::vector<PayloadExport>& chosen) const;

    jobs::OperationParts parts_;
    std::vector<std::filesystem::path> files_;
    std::filesystem::path chosen_;  ///< by the button; its text cannot always be turned back into it
    QLineEdit* edit_;
};

}  // namespace payload
