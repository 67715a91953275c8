#include "jobs/OperationDialog.h"

#include "dialogs/FileChooser.h"
#include "dialogs/Messages.h"
#include "jobs/FieldControls.h"
#include "platform/Text.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTreeWidget>
#include <algorithm>
#include <string_view>

namespace jobs {

namespace fs = std::filesystem;

namespace {

QString textIn(const QWidget* widget) {
    if (const auto* line = qobject_cast<const QLineEdit*>(widget)) return line->text();
    if (const auto* lines = qobject_cast<const QPlainTextEdit*>(widget)) return lines->toPlainText();
    return {};
}

void setText(QWidget* widget, const QString& text) {
    if (auto* line = qobject_cast<QLineEdit*>(widget)) line->setText(text);
    if (auto* lines = qobject_cast<QPlainTextEdit*>(widget)) lines->setPlainText(text);
}

int numberIn(const QWidget* widget) {
    if (const auto* spin = qobject_cast<const QSpinBox*>(widget)) return spin->value();
    if (const auto* offers = qobject_cast<const QComboBox*>(widget)) return offers->currentIndex();
    return textIn(widget).toInt();
}

void setNumber(QWidget* widget, int number) {
    if (auto* spin = qobject_cast<QSpinBox*>(widget)) return spin->setValue(number);
    if (auto* offers = qobject_cast<QComboBox*>(widget)) return offers->setCurrentIndex(number);
    setText(widget, QString::number(number));
}

std::vector<int> tickedRows(const QTreeWidget* list) {
    std::vector<int> ids;
    for (int row = 0; list != nullptr && row < list->topLevelItemCount(); ++row) {
        const QTreeWidgetItem* const item = list->topLevelItem(row);
        if (item->checkState(0) == Qt::Checked) ids.push_back(item->data(0, Qt::UserRole).toInt());
    }
    return ids;
}

void tickRows(QTreeWidget* list, const std::vector<int>& ids) {
    for (int row = 0; list != nullptr && row < list->topLevelItemCount(); ++row) {
        QTreeWidgetItem* const item = list->topLevelItem(row);
        const bool isTicked = std::ranges::find(ids, item->data(0, Qt::UserRole).toInt()) != ids.end();
        item->setCheckState(0, isTicked ? Qt::Checked : Qt::Unchecked);
    }
}

}  // namespace

OperationDialog::OperationDialog(const OperationParts& parts, const Operation& operation,
                                 std::vector<fs::path> files, QWidget* parent)
    : DarkModeDialogBase(parts.language, operation.templateNumber, parent),
      parts_(parts),
      operation_(operation),
      form_(app::commandFormOf(parts.context)),
      files_(std::move(files)),
      folder_(parts.shownFolder ? parts.shownFolder() : fs::path()),
      shown_(operation.chooseFiles != nullptr && parts.shownItems ? parts.shownItems()
                                                                  : std::vector<fs::path>()) {
    checkControls();
    if (operation_.title != nullptr) setWindowTitle(operation_.title(parts_.language, files_.size()));
    for (const OperationField& field : operation_.fields) prepare(field);
    for (const OperationButton& button : operation_.buttons)
        if (auto* pressed = qobject_cast<QAbstractButton*>(widget(button.control)))
            connect(pressed, &QAbstractButton::clicked, this, [this, &button] { press(button); });
    FilledForm offered;
    if (operation_.offer != nullptr) operation_.offer(opening(), offered);
    showOffered(offered);
    if (operation_.isEnabled != nullptr || operation_.isShown != nullptr) followOthers();
    if (auto* first = operation_.focus != 0 ? widget(operation_.focus) : nullptr) first->setFocus();
}

QWidget* OperationDialog::widget(int controlId) const {
    return dialogs::findControl(*this, controlId);
}

void OperationDialog::checkControls() {
    for (const NeededControl& needed : neededControls(operation_)) {
        const QWidget* const found = widget(needed.control);
        const bool fits =
            found != nullptr &&
            (needed.classes.empty() || std::ranges::any_of(needed.classes, [&](std::string_view name) {
                 return found->inherits(std::string(name).c_str());
             }));
        if (fits) continue;
        const std::string_view expected = needed.classes.empty() ? "QWidget" : needed.classes.front();
        setFault(QStringLiteral("%1 %2").arg(platform::wide(expected)).arg(needed.control));
    }
}

void OperationDialog::prepare(const OperationField& field) {
    if (field.kind == FieldKind::Rows || field.kind == FieldKind::Choice) fillRows(field);
    if (field.offer.button == 0) return;
    if (auto* choose = qobject_cast<QAbstractButton*>(widget(field.offer.button)))
        connect(choose, &QAbstractButton::clicked, this, [this, &field] { choosePath(field); });
}

void OperationDialog::fillRows(const OperationField& field) {
    std::vector<OperationEntry> entries;
    if (field.entries != nullptr) entries = field.entries(opening());
    for (const OperationListRow& row : field.rows)
        entries.push_back({row.id, QString::fromLatin1(row.name), QString::fromLatin1(row.group)});
    if (auto* offers = qobject_cast<QComboBox*>(widget(field.control))) {
        for (const OperationEntry& entry : entries) offers->addItem(entry.name);
    }
    auto* list = qobject_cast<QTreeWidget*>(widget(field.control));
    if (list == nullptr) return;
    for (const OperationEntry& entry : entries) {
        auto* item = new QTreeWidgetItem(list, {entry.name, entry.group});
        item->setData(0, Qt::UserRole, entry.id);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, entry.isTicked ? Qt::Checked : Qt::Unchecked);
    }
    for (int column = 0; column < list->columnCount(); ++column) list->resizeColumnToContents(column);
}

void OperationDialog::showOffered(const FilledForm& offered) {
    const auto showBox = [&](int controlId) {
        const FilledForm::Value value = offered.value(controlId);
        auto* box =
            std::holds_alternative<bool>(value) ? qobject_cast<QAbstractButton*>(widget(controlId)) : nullptr;
        if (box != nullptr) box->setChecked(std::get<bool>(value));
    };
    for (const OperationBox& box : operation_.boxes) showBox(box.control);
    for (const OperationField& field : operation_.fields) {
        showBox(field.control);
        const FilledForm::Value value = offered.value(field.control);
        auto* const holder = widget(field.control);
        if (const auto* text = std::get_if<QString>(&value)) setText(holder, *text);
        if (const auto* number = std::get_if<int>(&value)) setNumber(holder, *number);
        if (const auto* path = std::get_if<fs::path>(&value)) {
            chosen_[field.control] = *path;
            setText(holder, platform::display(*path));
        }
        if (const auto* ids = std::get_if<std::vector<int>>(&value))
            tickRows(qobject_cast<QTreeWidget*>(holder), *ids);
        auto* dateEdit = qobject_cast<QDateTimeEdit*>(holder);
        if (const auto* time = std::get_if<QDateTime>(&value); time != nullptr && dateEdit != nullptr)
            dateEdit->setDateTime(*time);
    }
}

void OperationDialog::press(const OperationButton& button) {
    FilledForm form = filled();
    button.press({opening(), parts_.language, form, this, results_});
    showOffered(form);
}

void OperationDialog::followOthers() {
    for (QAbstractButton* button : findChildren<QAbstractButton*>())
        if (button->isCheckable()) connect(button, &QAbstractButton::toggled, this, &OperationDialog::enable);
    for (QComboBox* offers : findChildren<QComboBox*>())
        connect(offers, &QComboBox::currentIndexChanged, this, &OperationDialog::enable);
    enable();
}

void OperationDialog::enable() {
    const FilledForm now = filled();
    const auto set = [&](int controlId) {
        QWidget* const changed = widget(controlId);
        if (changed == nullptr) return;
        if (operation_.isEnabled != nullptr) changed->setEnabled(operation_.isEnabled(controlId, form_, now));
        if (operation_.isShown == nullptr) return;
        const bool isShown = operation_.isShown(controlId, form_, now);
        changed->setVisible(isShown);
        for (QLabel* label : findChildren<QLabel*>())
            if (label->buddy() == changed) label->setVisible(isShown);
    };
    for (const OperationBox& box : operation_.boxes) set(box.control);
    for (const OperationField& field : operation_.fields) {
        set(field.control);
        if (field.offer.button != 0) set(field.offer.button);
    }
    for (const OperationButton& button : operation_.buttons) set(button.control);
}

void OperationDialog::choosePath(const OperationField& field) {
    const PathOffer& offer = field.offer;
    dialogs::FileQuestion question;
    question.title = offer.titleLiteral != nullptr ? QString::fromLatin1(offer.titleLiteral)
                                                   : parts_.language.text(offer.title);
    for (const char* type : offer.types) question.types.append(QString::fromLatin1(type));
    question.start = pathIn(field.control);
    if (question.start.empty() && offer.start != nullptr) question.start = offer.start(opening());
    if (question.start.empty() && !files_.empty()) question.start = files_.front().parent_path();
    fs::path path;
    if (field.kind == FieldKind::Folder) {
        path = dialogs::chooseFolder(this, question.title, question.start);
    } else if (offer.newExtension != nullptr) {
        question.defaultExtension = QString::fromLatin1(offer.newExtension);
        path = dialogs::chooseFileToSave(this, question);
    } else {
        path = dialogs::chooseFileToOpen(this, question);
    }
    if (path.empty()) return;
    chosen_[field.control] = path;
    setText(widget(field.control), platform::display(path));
}

fs::path OperationDialog::pathIn(int controlId) const {
    const QString text = textIn(widget(controlId));
    const auto chosen = chosen_.find(controlId);
    return chosen != chosen_.end() && text == platform::display(chosen->second)
               ? chosen->second
               : platform::pathFromText(text);
}

FilledForm::Value OperationDialog::valueOf(const OperationField& field) const {
    const QWidget* const holder = widget(field.control);
    switch (field.kind) {
        case FieldKind::Box:
            if (const auto* box = qobject_cast<const QAbstractButton*>(holder)) return box->isChecked();
            return false;
        case FieldKind::Text:
            return textIn(holder);
        case FieldKind::File:
        case FieldKind::Folder:
            return pathIn(field.control);
        case FieldKind::Number:
        case FieldKind::Choice:
            return numberIn(holder);
        case FieldKind::DateTime:
            if (const auto* time = qobject_cast<const QDateTimeEdit*>(holder)) return time->dateTime();
            return QDateTime();
        case FieldKind::Rows:
            return tickedRows(qobject_cast<const QTreeWidget*>(holder));
    }
    return {};
}

FilledForm OperationDialog::filled() const {
    FilledForm form;
    for (const OperationBox& row : operation_.boxes) {
        const auto* box = qobject_cast<QAbstractButton*>(widget(row.control));
        form.set(row.control, box != nullptr && box->isChecked());
    }
    for (const OperationField& field : operation_.fields) form.set(field.control, valueOf(field));
    return form;
}

void OperationDialog::refuse(const OperationRefusal& refusal) {
    if (!refusal.text.isEmpty()) {
        dialogs::Message message{refusal.text, static_cast<dialogs::MessageIcon>(refusal.icon)};
        if (!refusal.title.isEmpty()) message.title = refusal.title;
        dialogs::showMessage(this, message);
    }
    if (auto* missing = refusal.control != 0 ? widget(refusal.control) : nullptr) missing->setFocus();
}

bool OperationDialog::ask(FilledForm& form) {
    if (operation_.question == nullptr) return true;
    const OperationQuestion question = operation_.question(form, opening(), parts_.language);
    if (question.text.isEmpty()) return true;
    dialogs::Message message{question.text, dialogs::MessageIcon::Question};
    message.buttons = QMessageBox::Yes | QMessageBox::No;
    if (question.answer != 0) message.buttons |= QMessageBox::Cancel;
    message.defaultButton = question.answer != 0 ? QMessageBox::Cancel : QMessageBox::No;
    const QMessageBox::StandardButton answer = dialogs::showMessage(this, message);
    if (question.answer == 0) return answer == QMessageBox::Yes;
    form.set(question.answer, answer == QMessageBox::Yes);
    return answer == QMessageBox::Yes || answer == QMessageBox::No;
}

std::vector<fs::path> OperationDialog::showResults(const JobEnd& end) {
    results_ = operation_.results(end, asked_);
    std::vector<fs::path> files;
    auto* list = qobject_cast<QTreeWidget*>(widget(operation_.resultList));
    if (list != nullptr) list->clear();
    for (const OperationResult& result : results_) {
        if (list != nullptr) new QTreeWidgetItem(list, result.cells);
        if (!result.file.empty() && (files.empty() || files.back() != result.file))
            files.push_back(result.file);
    }
    return files;
}

void OperationDialog::accept() {
    if (!hasForm()) return reject();
    FilledForm form = filled();
    if (const std::optional<OperationRefusal> refusal = refusalOf(operation_, form, parts_.language))
        return refusal->cancels ? reject() : refuse(*refusal);
    const std::vector<fs::path> files =
        operation_.chooseFiles != nullptr ? operation_.chooseFiles(form, opening()) : files_;
    if (files.empty()) return refuse(refused(operation_.noFiles, 0, {}, parts_.language));
    if (!ask(form)) return;
    if (operation_.keep != nullptr) operation_.keep(form, form_, parts_.context);
    const QString title =
        operation_.progressText != 0 ? parts_.language.text(operation_.progressText) : windowTitle();
    setJob(jobOf(operation_, title, form_, form, files, parts_.dictionary));
    asked_ = std::move(form);
    DarkModeDialogBase::accept();
}

}  // namespace jobs
