#include "dialogs/ProgressDialog.h"

#include "dialogs/FormLoader.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <utility>

// A library's resources are only there once it has asked for them, and the asking must stand outside any
// namespace.
static void provideForms() {
    Q_INIT_RESOURCE(app_forms);
}

namespace dialogs {

namespace {

constexpr int kTextWidth = 396;  // pixels, within the form's least width

QByteArray ownForm() {
    provideForms();
    QFile file(QStringLiteral(":/app/forms/171.ui"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

ProgressDialog::ProgressDialog(int language, QWidget* parent) : ProgressDialog(language, Delays(), parent) {}

ProgressDialog::ProgressDialog(int language, const Delays& delays, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      language_(language),
      delays_(delays) {
    loadForm(*this, ownForm());
    setProperty(kTemplateNumberProperty, kTemplate);
    setAttribute(Qt::WA_ShowWithoutActivating);
    text_ = qobject_cast<QLabel*>(findControl(*this, kTextControl));
    stop_ = qobject_cast<QPushButton*>(findControl(*this, kStopControl));
    bar_ = qobject_cast<QProgressBar*>(findControl(*this, kBarControl));
    Q_ASSERT(text_ != nullptr && bar_ != nullptr && stop_ != nullptr);
    stop_->hide();
    // A key that was meant for the list must not stop what goes on: Esc does.
    stop_->setAutoDefault(false);
    setFocusPolicy(Qt::StrongFocus);
    connect(stop_, &QPushButton::clicked, this, &ProgressDialog::stopWaiting);
    show_.setSingleShot(true);
    connect(&show_, &QTimer::timeout, this, &ProgressDialog::showNow);
    offerStop_.setSingleShot(true);
    connect(&offerStop_, &QTimer::timeout, this, [this] {
        stop_->show();
        showNow();
    });
    setLanguage(language);
}

void ProgressDialog::setLanguage(int language) {
    language_ = language;
    stop_->setText(app::stopWaitingText(language));
}

void ProgressDialog::handleCommand(int number, const QString& fileName) {
    const std::optional<app::ProgressStep> step = app::progressStepOf(number);
    if (!step) return;
    if (!waiting_) begin(*step == app::ProgressStep::Reading ? delays_.showReading : delays_.show);
    say(app::progressText(language_, *step, fileName));
}

void ProgressDialog::begin(std::chrono::milliseconds showAfter) {
    waiting_ = true;
    sinceFirstStep_.start();
    show_.start(showAfter);
    offerStop_.start(delays_.offerStop);
}

void ProgressDialog::beginWait() {
    if (!waiting_) {
        say(QStringLiteral("ExifTool ..."));
        begin(std::chrono::milliseconds(0));
    }
    isModalWait_ = true;
}

void ProgressDialog::say(const QString& text) {
    // A name can hold line feeds, and be longer than the screen is wide; the dialog has one line.
    QString line = text;
    line.replace(u'\n', u' ').replace(u'\r', u' ');
    text_->setText(fontMetrics().elidedText(line, Qt::ElideMiddle, kTextWidth));
}

void ProgressDialog::beginFiles(const QString& title, std::size_t count, bool countsFiles) {
    finish();
    isShowingFiles_ = true;
    setWindowTitle(title);
    count_ = count;
    bar_->setRange(0, countsFiles ? static_cast<int>(count) : 0);
    bar_->setValue(0);
    text_->clear();
    stop_->show();
    begin(delays_.show);
}

void ProgressDialog::showFile(const QString& fileName, std::size_t number) {
    if (!isShowingFiles_) return;
    // The numbers behind the name must stay when the name is too long.
    const QString numbers = app::fileCountText({}, number, count_);
    const int room = kTextWidth - fontMetrics().horizontalAdvance(numbers);
    QString name = fileName;
    name.replace(u'\n', u' ').replace(u'\r', u' ');
    say(app::fileCountText(fontMetrics().elidedText(name, Qt::ElideMiddle, room), number, count_));
    if (bar_->maximum() > 0) bar_->setValue(static_cast<int>(number) - 1);
}

void ProgressDialog::showClosing() {
    if (isShowingFiles_) setWindowTitle(app::closingText(language_));
}

void ProgressDialog::pulse() {
    if (!waiting_ || sinceFirstStep_.elapsed() < delays_.show.count()) return;
    showNow();
    repaint();
}

void ProgressDialog::finish() {
    waiting_ = false;
    isModalWait_ = false;
    show_.stop();
    offerStop_.stop();
    stop_->hide();
    stop_->setEnabled(true);
    hide();
    if (!std::exchange(isShowingFiles_, false)) return;
    bar_->setRange(0, 0);
    setWindowTitle(QStringLiteral("Tagwright"));
}

QString ProgressDialog::text() const {
    return text_->text();
}

bool ProgressDialog::canStop() const {
    return waiting_ && !stop_->isHidden() && stop_->isEnabled();
}

void ProgressDialog::reject() {
    if (canStop()) stopWaiting();
}

void ProgressDialog::stopWaiting() {
    // Once is enough; what was asked for takes its time.
    stop_->setEnabled(false);
    Q_EMIT StopWaitingChosen();
}

void ProgressDialog::showNow() {
    if (isVisible() || !waiting_) return;
    setWindowModality(isModalWait_ ? Qt::ApplicationModal : Qt::NonModal);
    adjustSize();
    if (const QWidget* active = QApplication::activeWindow()) {
        const QPoint middle = active->frameGeometry().center();
        move(middle - rect().center());
    }
    setAttribute(Qt::WA_ShowWithoutActivating, !isShowingFiles_);
    show();
    if (!isShowingFiles_) return;
    activateWindow();
    setFocus(Qt::OtherFocusReason);
}

}  // namespace dialogs
