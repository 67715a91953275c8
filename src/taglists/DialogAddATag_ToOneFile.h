#pragma once

#include "taglists/TagValuesDialog.h"

namespace taglists {

/// Every tag of one group that can be written, for the file that is shown. Shown with run().
class DialogAddATag_ToOneFile : public TagValuesDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 81824;

    /// group: as the metadata panel names it.
    DialogAddATag_ToOneFile(const jobs::OperationParts& parts, const QString& group,
                            const std::filesystem::path& file, QWidget* parent);

 protected:
    jobs::Job jobOf(const TagRows& rows) override;

 private:
    QString group_;
};

}  // namespace taglists
