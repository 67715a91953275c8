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
    return wasRead;
}

jobs::EditableValue TagValuesDialog::editableValue(const TagRow& row) const {
    if (form_ == CommandForm::Designed) return {row.value.left(kLongestDesignedValue), {}};
    const auto record =
        row.tagId < 0 ? std::nullopt : parts_.dictionary.FindTagById(static_cast<std::uint32_t>(row.tagId));
    if (row.changed || row.value.isEmpty() || !record) return {row.value, {}};
    return parts_.values->editableValue(form_, files().front(), *record, row.value);
}

/// False when the value could not be read, which is told.
bool TagValuesDialog::startEdit(const TagRow& row) {
    const auto [value, fault] = editableValue(row);
    if (!fault.isEmpty()) {
        const QString file = platform::display(files().front());
        dialogs::showMessage(
            this, {.text = parts_.language.formatted(jobs::text::kValueNotRead, {row.name, file, fault}),
                   .icon = dialogs::MessageIcon::Stop});
        return false;
    }
    edit_.filePath.clear();
    edit_.value = value;
    edit_.title = row.name;
    edit_.group = row.group;
    edit_.tagId = row.tagId;
    edit_.comboCode.clear();
    if (row.kind == tags::ValueKind::Rating) edit_.selection = tags::designedRatingSelection(edit_.value);
    if (row.kind == tags::ValueKind::List && form_ == CommandForm::Corrected)
        edit_.selection = parts_.labels.GetComboIndex(row.tagId, edit_.value);
    return true;
}

void TagValuesDialog::editValue(std::size_t row) {
    const TagRow& edited = list_->rows()[row];
    if (!edited.kind || !startEdit(edited)) return;
    const tags::TagEditContext before = edit_;
    if (parts_.values->editValue(edit_, *edited.kind, this) == 0) return;
    const bool isSame = edited.kind == tags::ValueKind::List ? edit_.selection == before.selection
                                                             : edit_.value == before.value;
    if (form_ == CommandForm::Corrected && isSame) return;
    const bool severalEntries = form_ == CommandForm::Corrected && edited.kind == tags::ValueKind::Text &&
                                parts_.labels.takesSeveralValues(edited.tagId);
    list_->model().setValue(
        row, {.value = edit_.value, .code = edit_.comboCode, .severalEntries = severalEntries});
}

void TagValuesDialog::accept() {
    app::Settings::Main& settings = parts_.context.settings.main;
    settings.widthAddModify = width();
    settings.heightAddModify = height();
    setJob(jobOf(list_->rows()));
    DarkModeDialogBase::accept();
}

}  // namespace taglists
