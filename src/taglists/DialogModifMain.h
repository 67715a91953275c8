#pragma once

#include "taglists/TagValuesDialog.h"

namespace taglists {

/// The tags of a family with their values, over one file or, in Batch Mode, over several. Values are prepared
/// in the list, or loaded from a file, and written at OK. Shown with run().
class DialogModifMain : public TagValuesDialog {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 125;
    enum StripControl { kValuesCaption = 408, kValuesFile = 409, kChooseValuesFile = 410 };

    /// commandId: 22 EXIF, 31 IPTC, 35 XMP. Reads the file when there is only one.
    DialogModifMain(const jobs::OperationParts& parts, int commandId,
                    std::vector<std::filesystem::path> files, QWidget* parent);

    /// Fills the list from a values file; says in the status bar, or in a message, what came of it.
    void loadValues(const std::filesystem::path& file);

 protected:
    jobs::Job jobOf(const TagRows& rows) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void showStrip(bool shown);
    void chooseValuesFile();
    /// Takes back loaded values that the tags of the first file would not hold as they are.
    QStringList leaveOutRefused();

    int mode_;
};

}  // namespace taglists
