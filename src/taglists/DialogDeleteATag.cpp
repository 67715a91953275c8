#include "taglists/DialogDeleteATag.h"

#include "platform/Text.h"
#include "taglists/DeletionQuestion.h"
#include "taglists/TagListControls.h"
#include "taglists/TagListTexts.h"

#include <QLabel>

namespace taglists {

DialogDeleteATag::DialogDeleteATag(const jobs::OperationParts& parts, app::CommandForm form,
                                   const tags::MetadataRow& row, std::filesystem::path file, QWidget* parent)
    : DarkModeDialogBase(parts.language, kTemplate, parent),
      parts_(parts),
      form_(form),
      row_(row),
      file_(std::move(file)) {
    if (auto* text = control<QLabel>(control::kQuestion))
        text->setText(row.tag + QStringLiteral(" is going to be deleted."));
    if (auto* place = control<QLabel>(control::kPlace))
        place->setText(
            parts.language.formatted(text::kGroupAndFile, {row.group, platform::display(file_.filename())}));
    if (form_ == app::CommandForm::Corrected) makeCancelDefault(*this);
}

void DialogDeleteATag::accept() {
    setJob(deleteTagsJob(form_, row_.tag, addressOfEntry(parts_, form_, row_), file_));
    DarkModeDialogBase::accept();
}

}  // namespace taglists
