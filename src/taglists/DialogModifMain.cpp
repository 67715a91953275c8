#include "taglists/DialogModifMain.h"

#include "dialogs/FileChooser.h"
#include "dialogs/Messages.h"
#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "taglists/TagListTexts.h"
#include "taglists/ValuesFile.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QToolButton>

namespace taglists {

namespace {

constexpr int kNameWidth = 200;
constexpr int kGroupWidth = 90;
constexpr int kKindWidth = 16;
/// No list of values is longer; anything that is, is another kind of file.
constexpr std::size_t kLargestValuesFile = 16 << 20;

TagValuesDialog::Task taskOf(const jobs::OperationParts& parts, int commandId,
                             std::vector<std::filesystem::path> files) {
    const QString title = parts.language.formatted(
        text::kModifyTitle, {familyNameOfCommand(commandId), filesText(parts.language, files)});
    return {DialogModifMain::kTemplate,
            title,
            std::move(files),
            {TagColumn::Name, TagColumn::Group, TagColumn::Kind, TagColumn::Value}};
}

}  // namespace

DialogModifMain::DialogModifMain(const jobs::OperationParts& parts, int commandId,
                                 std::vector<std::filesystem::path> files, QWidget* parent)
    : TagValuesDialog(parts, taskOf(parts, commandId, std::move(files)), parent),
      mode_(modeOfCommand(form(), commandId)) {
    list().setColumnWidths({kNameWidth, kGroupWidth, kKindWidth});
    list().setEmptyText(parts.language.text(text::kNoTagOfMode));
    const std::filesystem::path& first = this->files().front();
    const bool wasRead =
        fill(rowsOfMode(parts.dictionary, mode_), valuesOutput(parts.context, first),
             [&](const std::filesystem::path& output) {
                 return this->parts().reads.ReadCategory(first, output, readCategoryOfMode(form(), mode_));
             });
    showStrip(wasRead);
}

void DialogModifMain::showStrip(bool shown) {
    auto* caption = control<QLabel>(kValuesCaption);
    auto* edit = control<QLineEdit>(kValuesFile);
    auto* choose = control<QAbstractButton>(kChooseValuesFile);
    for (QWidget* widget : std::initializer_list<QWidget*>{caption, edit, choose})
        if (widget != nullptr) widget->setVisible(shown);
    if (!shown || caption == nullptr || edit == nullptr || choose == nullptr) return;
    caption->setText(parts().language.text(text::kValuesCaption));
    edit->installEventFilter(this);
    connect(choose, &QAbstractButton::clicked, this, &DialogModifMain::chooseValuesFile);
}

bool DialogModifMain::eventFilter(QObject* watched, QEvent* event) {
    // A path that was typed is loaded by Enter, which must not write the files as OK does.
    const auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    const auto* edit = qobject_cast<QLineEdit*>(watched);
    if (key != nullptr && edit != nullptr && (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)) {
        if (!edit->text().trimmed().isEmpty()) loadValues(platform::pathFromText(edit->text().trimmed()));
        return true;
    }
    return TagValuesDialog::eventFilter(watched, event);
}

void DialogModifMain::chooseValuesFile() {
    const ValuesFileType type = valuesFileTypeOfMode(mode_);
    const QStringList types = valuesFileTypes(form());
    const std::filesystem::path chosen =
        dialogs::chooseFileToOpen(this, {.title = parts().language.text(text::kChooseValuesTitle),
                                         .types = types,
                                         .preselectedType = types.at(type.preselected),
                                         .defaultExtension = type.extension,
                                         .start = files().front().parent_path()});
    if (chosen.empty()) return;
    if (auto* edit = control<QLineEdit>(kValuesFile)) edit->setText(platform::display(chosen));
    loadValues(chosen);
}

void DialogModifMain::loadValues(const std::filesystem::path& file) {
    const platform::FileContent content = platform::readRegularFile(file, kLargestValuesFile);
    const bool isRead = content.status == platform::FileContent::Status::Read;
    const std::vector<NamedValue> values =
        isRead ? parseValuesFile(content.bytes, form()) : std::vector<NamedValue>();
    if (values.empty()) {
        if (form() == app::CommandForm::Corrected || !isRead)
            dialogs::showMessage(
                this, {.text = parts().language.formatted(text::kNoValuesInFile, {platform::display(file)}),
                       .icon = dialogs::MessageIcon::Exclamation});
        return;
    }
    LoadedValues loaded;
    list().model().changeRows([&](TagRows& rows) {
        loaded = applyValues(
            rows, values, form(),
            {.takesSeveral = [&](int tagId) { return parts().labels.takesSeveralValues(tagId); },
             .describesStructure = [&](int tagId) { return parts().labels.describesStructure(tagId); }});
    });
    const QLocale locale;
    showStatus(parts().language.formatted(text::kValuesLoaded,
                                          {locale.toString(static_cast<qulonglong>(loaded.set)),
                                           locale.toString(static_cast<qulonglong>(loaded.unknown))}));
    loaded.leftOut += leaveOutRefused();
    if (!loaded.leftOut.isEmpty())
        dialogs::showMessage(
            this, {.text = parts().language.formatted(text::kValuesLeftOut, {loaded.leftOut.join(u'\n')}),
                   .icon = dialogs::MessageIcon::Information});
}

QStringList DialogModifMain::leaveOutRefused() {
    QStringList refused;
    if (form() == app::CommandForm::Designed || parts().values == nullptr) return refused;
    for (std::size_t at = 0; at < list().rows().size(); ++at) {
        const TagRow& row = list().rows()[at];
        if (!row.loaded || row.kind != tags::ValueKind::Text) continue;
        tags::TagEditContext before;
        before.filePath = files().front();
        before.title = row.name;
        before.group = row.group;
        before.tagId = row.tagId;
        before.value = row.fileValue;
        before.severalEntries = row.severalEntries;
        tags::TagEditContext after = before;
        after.value = row.value;
        if (parts().values->refusalOf(before, after).isEmpty()) continue;
        refused.append(row.group + u':' + row.name);
        list().model().undo(at);
    }
    return refused;
}

jobs::Job DialogModifMain::jobOf(const TagRows& rows) {
    return modifyFilesJob(parts(), form(), windowTitle(), mode_, rows, files());
}

}  // namespace taglists
