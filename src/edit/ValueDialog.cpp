#include "edit/ValueDialog.h"

#include "edit/EditControls.h"
#include "edit/EditTexts.h"
#include "platform/Text.h"

#include <QLabel>
#include <QLayout>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <utility>

namespace edit {

namespace {

constexpr int kMostHelpLines = 6;
/// Without it a text that just fits could be scrolled.
constexpr int kHelpSpare = 6;
constexpr int kWidth = 460;
constexpr int kNameMargin = 40;
constexpr double kSecondary = 0.72;

QPalette secondary(const QWidget& widget) {
    QPalette palette = widget.palette();
    const QColor text = palette.color(QPalette::WindowText);
    const QColor ground = palette.color(QPalette::Window);
    const auto mixed = [&](int onText, int onGround) {
        return static_cast<int>(onText * kSecondary + onGround * (1 - kSecondary));
    };
    const QColor faint(mixed(text.red(), ground.red()), mixed(text.green(), ground.green()),
                       mixed(text.blue(), ground.blue()));
    palette.setColor(QPalette::WindowText, faint);
    palette.setColor(QPalette::Text, faint);
    palette.setColor(QPalette::Base, ground);
    return palette;
}

}  // namespace

ValueDialog::ValueDialog(const jobs::OperationParts& parts, tags::TagEditContext& edit, int templateNumber,
                         QWidget* parent)
    : DarkModeDialogBase(parts.language, templateNumber, parent),
      parts_(parts),
      form_(app::commandFormOf(parts.context)),
      edit_(edit) {
    setWindowTitle(parts.language.formatted(text::kModify, {edit.title}));
    showLabel();
    showHelp();
    showHint({});
}

void ValueDialog::setVisible(bool visible) {
    // No taller than its contents ask for: text edits would like more.
    if (visible && !edit_.refusal.isEmpty()) showHint(std::exchange(edit_.refusal, {}), HintKind::Refusal);
    if (visible && !testAttribute(Qt::WA_Resized) && layout() != nullptr) {
        const int width = std::max(kWidth, layout()->totalMinimumSize().width());
        resize(width,
               std::max(layout()->totalMinimumHeightForWidth(width), layout()->totalMinimumSize().height()));
    }
    DarkModeDialogBase::setVisible(visible);
}

void ValueDialog::showLabel() {
    auto* label = control<QLabel>(control::kTagLabel);
    if (label == nullptr) return;
    const QString known = parts_.labels.label(edit_.tagId);
    const QString place = edit_.group.isEmpty() ? QString() : QStringLiteral("  (%1)").arg(edit_.group);
    QString shown = (known.isEmpty() ? edit_.title : known) + place;
    if (!edit_.filePath.empty()) {
        // A name may hold line feeds, and be longer than the dialog is wide.
        QString name = platform::display(edit_.filePath.filename());
        name.replace(u'\n', u' ').replace(u'\r', u' ');
        const QFontMetrics metrics(label->font());
        shown += u'\n' + metrics.elidedText(name, Qt::ElideMiddle, kWidth - kNameMargin);
        label->setToolTip(platform::display(edit_.filePath));
    }
    label->setText(shown);
}

void ValueDialog::showHelp() {
    auto* help = control<QPlainTextEdit>(control::kHelp);
    if (help == nullptr) return;
    QString text;
    parts_.labels.GetHelpFromLibelle(edit_.tagId, text);
    // Its first line is the label, which stands above.
    if (text.startsWith(parts_.labels.label(edit_.tagId) + u'\n')) text.remove(0, text.indexOf(u'\n') + 1);
    help->setVisible(!text.isEmpty());
    help->setPalette(secondary(*this));
    help->document()->setDocumentMargin(0);
    help->setPlainText(text);
    const int lines = std::min(static_cast<int>(text.count(u'\n')) + 1, kMostHelpLines);
    help->setMinimumHeight(lines * help->fontMetrics().lineSpacing() + kHelpSpare);
}

void ValueDialog::showHint(const QString& text, HintKind kind) {
    auto* hint = control<QLabel>(control::kHint);
    if (hint == nullptr) return;
    QFont font = hint->font();
    font.setBold(kind == HintKind::Refusal);
    hint->setFont(font);
    hint->setText(text);
    hint->setVisible(!text.isEmpty());
}

}  // namespace edit
