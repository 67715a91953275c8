#pragma once

#include "dialogs/DarkModeDialogBase.h"
#include "jobs/JobSource.h"
#include "jobs/OperationParts.h"
#include "taglists/RemovalLines.h"
#include "taglists/TagList.h"

#include <QSize>
#include <filesystem>
#include <vector>

namespace taglists {

/// The base of the dialogs in which tags or groups are ticked to be removed: the list with its filter, and
/// the buttons that tick all that is shown, or nothing.
class TickedTagsDialog : public dialogs::DarkModeDialogBase, public jobs::JobSource {
    Q_OBJECT

 public:
    static constexpr int kListControl = 1328;

 protected:
    /// wishes for the list; the control number and the ticks are set here.
    TickedTagsDialog(const jobs::OperationParts& parts, int templateNumber, TagList::Wishes wishes,
                     QSize size, QWidget* parent);

    const jobs::OperationParts& parts() const { return parts_; }
    app::CommandForm form() const { return app::commandFormOf(parts_.context); }
    TagList* list() const { return list_; }  ///< null when the form is missing
    /// The ticked rows that have a tag, as ExifTool is to get them.
    std::vector<TagAddress> tickedTags() const;
    /// Shows what the files hold, or why that is not known.
    void showHeldTags(TagRows rows, const QString& fault);

 private:
    const jobs::OperationParts parts_;
    TagList* list_ = nullptr;
};

}  // namespace taglists
