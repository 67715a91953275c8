#include "taglists/DialogDeleteGroup_FromOneFile.h"

#include "platform/Text.h"
#include "taglists/DeletionQuestion.h"
#include "taglists/TagListControls.h"
#include "taglists/TagListTexts.h"

#include <QLabel>
#include <QPlainTextEdit>

namespace taglists {

DialogDeleteGroup_FromOneFile::DialogDeleteGroup_FromOneFile(const jobs::OperationParts& parts,
                                                             app::CommandForm form,
                                                             const std::vector<tags::MetadataRow>& rows,
                                                             std::filesystem::path file, QWidget* parent)
    : DarkModeDialogBase(parts.language, kTemplate, parent),
      form_(form),
      tags_(addressesOf(parts, form, rows)),
      file_(std::move(file)) {
    const QString group = rows.front().group;
    if (auto* text = control<QLabel>(control::kQuestion))
        text->setText(app::formatText(u"You are going to delete the %s group.\nPlease confirm.", {group}));
    if (auto* place = control<QLabel>(control::kPlace))
        place->setText(parts.language.formatted(
            text::kTagsOfFile, {QString::number(tags_.size()), platform::display(file_.filename())}));
    QStringList names;
    for (const TagAddress& tag : tags_) names.append(QString::fromStdString(tag.name));
    if (auto* list = control<QPlainTextEdit>(control::kHelp)) list->setPlainText(names.join(u'\n'));
    QWidget* confirm = findControl(*this, dialogs::kOkControl);
    if (form_ == app::CommandForm::Corrected)
        makeCancelDefault(*this);
    else if (confirm != nullptr)
        confirm->setFocus();
}

void DialogDeleteGroup_FromOneFile::accept() {
    setJob(deleteTagsJob(form_, windowTitle(), tags_, file_));
    DarkModeDialogBase::accept();
}

}  // namespace taglists
