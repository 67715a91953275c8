#include "taglists/TagValuesDialog.h"

#include "dialogs/Messages.h"
#include "jobs/JobTexts.h"
#include "platform/Text.h"
#include "taglists/TagListTexts.h"

#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

namespace taglists {

using app::CommandForm;

namespace {

enum Control { kListPlace = 80522, kStatusFile = 80523, kStatusNow = 80524 };
constexpr qsizetype kLongestDesignedValue = 255;

void showPath(QLabel* label, const QString& text) {
    if (label == nullptr) return;
    label->setText(text);
    label->setToolTip(text.toHtmlEscaped());
}

}  // namespace

QString filesText(const app::LanguageFile& language, const std::vector<std::filesystem::path>& files) {
    if (files.size() == 1) return platform::display(files.front().filename());
    return language.formatted(text::kCountOfFiles,
                              {QLocale().toString(static_cast<qulonglong>(files.size()))});
}

TagValuesDialog::TagValuesDialog(const jobs::OperationParts& parts, Task task, QWidget* parent)
    : DarkModeDialogBase(parts.language, task.templateNumber, parent),
      parts_(parts),
      form_(app::commandFormOf(parts.context)),
      task_(std::move(task)) {
    setWindowTitle(task_.title);
    setSizeGripEnabled(true);
    placeList();
    fillStatusBar();
    if (auto* ok = control<QPushButton>(dialogs::kOkControl)) {
        ok->setText(parts_.language.text(text::kWrite));
        ok->setDefault(true);
    }
    const app::Settings::Main& settings = parts_.context.settings.main;
    resize(QSize(settings.widthAddModify, settings.heightAddModify).expandedTo(minimumSizeHint()));
}

void TagValuesDialog::placeList() {
    auto* place = control<QWidget>(kListPlace);
    TagList::Wishes wishes{.listControl = kList,
                           .look = {.columns = task_.columns},
                           .severalFiles = form_ == CommandForm::Corrected && !hasOneFile(),
                           .tellsFilled = form_ == CommandForm::Corrected && hasOneFile()};
    list_ = place == nullptr ? new TagList(parts_, std::move(wishes), this)
                             : TagList::placeIn(*place, parts_, std::move(wishes));
    list_->setEmptyText(parts_.language.text(text::kNoTagOfGroup));
    connect(list_, &TagList::EditRequested, this, &TagValuesDialog::editValue);
    list_->filter().setFocus();
}

void TagValuesDialog::fillStatusBar() {
    status_ = control<QLabel>(kStatusNow);
    showPath(control<QLabel>(kStatusFile),
             hasOneFile() ? platform::display(files().front()) : QStringLiteral("Batch Mode"));
}

void TagValuesDialog::showStatus(const QString& text) {
    showPath(status_, text);
}

bool TagValuesDialog::fill(TagRows rows, const std::filesystem::path& output, const ReadInto& read) {
    const bool wasRead = !hasOneFile() || readValues(parts_, form_, rows, output, read);
    // Hundreds of tags that the file lacks would stand before the few that it has.
    if (form_ == CommandForm::Corrected && hasOneFile()) putFilledFirst(rows);
    list_->model().setRows(wasRead ? std::move(rows) : TagRows());
    if (!wasRead) list_->setEmptyText(parts_.language.text(text::kFileNotRead));
    // The designed form empties the group also where it has nothing to write.
    if (auto* ok = control<QPushButton>(dialogs::kOkControl))
        ok->setEnabled(form_ == CommandForm::Designed || !list_->rows().empty());
    return wasRead;
}

bool TagValuesDialog::holdsSeveral(const TagRow& row) const {
    const bool isListOfTexts =
        row.kind == tags::ValueKind::Text && parts_.labels.takesSeveralValues(row.tagId);
    return form_ == CommandForm::Corrected && (row.severalEntries || isListOfTexts);
}

/// False when the tag cannot be changed, which is told.
bool TagValuesDialog::startEdit(const TagRow& row) {
    if (row.timesInFile > 1) {
        const QString times = QString::number(row.timesInFile);
        dialogs::showMessage(
            this, {.text = parts_.language.formatted(jobs::text::kStandsTwice, {row.name, times, row.group}),
                   .icon = dialogs::MessageIcon::Information});
        return false;
    }
    const bool isDesigned = form_ == CommandForm::Designed;
    edit_.filePath = isDesigned ? std::filesystem::path() : files().front();
    edit_.value = isDesigned ? row.value.left(kLongestDesignedValue) : row.value;
    edit_.severalEntries = holdsSeveral(row);
    edit_.title = row.name;
    edit_.group = row.group;
    edit_.tagId = row.tagId;
    edit_.comboCode.clear();
    if (row.kind == tags::ValueKind::Rating) edit_.selection = tags::designedRatingSelection(edit_.value);
    if (row.kind == tags::ValueKind::List && !isDesigned)
        edit_.selection = parts_.labels.GetComboIndex(row.tagId, edit_.value);
    return true;
}

void TagValuesDialog::editValue(std::size_t row) {
    const TagRow& edited = list_->rows()[row];
    if (!edited.kind || !startEdit(edited)) return;
    const tags::TagEditContext before = edit_;
    // Several entries of any kind are edited as texts, one a line.
    const tags::ValueKind kind = edit_.severalEntries ? tags::ValueKind::Text : *edited.kind;
    if (parts_.values->editValue(edit_, kind, this) == 0) return;
    const bool isSame =
        kind == tags::ValueKind::List ? edit_.selection == before.selection : edit_.value == before.value;
    if (form_ == CommandForm::Corrected && isSame) return;
    list_->model().setValue(
        row, {.value = edit_.value, .code = edit_.comboCode, .severalEntries = edit_.severalEntries});
}

void TagValuesDialog::accept() {
    app::Settings::Main& settings = parts_.context.settings.main;
    settings.widthAddModify = width();
    settings.heightAddModify = height();
    setJob(jobOf(list_->rows()));
    DarkModeDialogBase::accept();
}

}  // namespace taglists
