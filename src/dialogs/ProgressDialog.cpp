#include "dialogs/ProgressDialog.h"

#include "dialogs/FormLoader.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QWindow>
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

bool isUserInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::NonClientAreaMouseButtonPress:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

ProgressDialog::ProgressDialog(int language)
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint), language_(language) {
    loadForm(*this, ownForm());
    setProperty(kTemplateNumberProperty, kTemplate);
    setAttribute(Qt::WA_ShowWithoutActivating);
    text_ = qobject_cast<QLabel*>(findControl(*this, kTextControl));
    stop_ = qobject_cast<QPushButton*>(findControl(*this, kStopControl));
    bar_ = qobject_cast<QProgressBar*>(findControl(*this, kBarControl));
    Q_ASSERT(text_ != nullptr && bar_ != nullptr && stop_ != nullptr);
    stop_->hide();
    connect(stop_, &QPushButton::clicked, this, &ProgressDialog::stopWaiting);
    setLanguage(language);
}

void ProgressDialog::setLanguage(int language) {
    language_ = language;
    stop_->setText(app::stopWaitingText(language));
}

void ProgressDialog::handleCommand(int number, const QString& fileName) {
    const std::optional<app::ProgressStep> step = app::progressStepOf(number);
    if (!step) return;
    if (!waiting_) {
        waiting_ = true;
        sinceFirstStep_.start();
    }
    stopped_ = false;
    say(app::progressText(language_, *step, fileName));
    pulse();
}

void ProgressDialog::say(const QString& text) {
    // A name can hold line feeds, and be longer than the screen is wide; the dialog has one line.
    QString line = text;
    line.replace(u'\n', u' ').replace(u'\r', u' ');
    text_->setText(fontMetrics().elidedText(line, Qt::ElideMiddle, kTextWidth));
}

void ProgressDialog::beginFiles(const QString& title, std::size_t count) {
    waiting_ = true;
    isShowingFiles_ = true;
    stopped_ = false;
    sinceFirstStep_.start();
    setWindowTitle(title);
    count_ = count;
    bar_->setRange(0, static_cast<int>(count));
    bar_->setValue(0);
    text_->clear();
}

void ProgressDialog::showFile(const QString& fileName, std::size_t number) {
    if (!isShowingFiles_) return;
    // The numbers behind the name must stay when the name is too long.
    const QString numbers = app::fileCountText({}, number, count_);
    const int room = kTextWidth - fontMetrics().horizontalAdvance(numbers);
    QString name = fileName;
    name.replace(u'\n', u' ').replace(u'\r', u' ');
    say(app::fileCountText(fontMetrics().elidedText(name, Qt::ElideMiddle, room), number, count_));
    bar_->setValue(static_cast<int>(number) - 1);
    stop_->hide();
    pulse();
}

void ProgressDialog::showClosing() {
    if (isShowingFiles_) setWindowTitle(app::closingText(language_));
}

void ProgressDialog::pulse() {
    if (!waiting_ || sinceFirstStep_.elapsed() < kShowAfter.count()) return;
    showNow();
    paintWaitingWindows(isShowingFiles_);
}

bool ProgressDialog::keepWaiting(std::chrono::milliseconds sinceStart) {
    // Many short runs make a long wait.
    const std::chrono::milliseconds waited(isShowingFiles_ ? sinceFirstStep_.elapsed() : sinceStart.count());
    if (waited < kShowAfter) return true;
    if (!std::exchange(waiting_, true)) say(QStringLiteral("ExifTool ..."));
    showNow();
    const bool canStop = sinceStart >= kStopAfter;
    if (stop_->isHidden() == canStop) stop_->setVisible(canStop);
    paintWaitingWindows(canStop || isShowingFiles_);
    const bool stopped = stopped_;
    stopped_ = false;
    return !stopped;
}

void ProgressDialog::finish() {
    waiting_ = false;
    stopped_ = false;
    stop_->hide();
    hide();
    if (!std::exchange(isShowingFiles_, false)) return;
    bar_->setRange(0, 0);
    setWindowTitle(QStringLiteral("Tagwright"));
}

QString ProgressDialog::text() const {
    return text_->text();
}

bool ProgressDialog::canStop() const {
    return waiting_ && !stop_->isHidden();
}

void ProgressDialog::reject() {
    if (canStop()) stopWaiting();
}

void ProgressDialog::stopWaiting() {
    stopped_ = true;
    Q_EMIT StopWaitingChosen();
}

void ProgressDialog::showNow() {
    if (isVisible()) return;
    // A dialog that is open shuts out every other window's input, and the button must be reached.
    const bool isOverDialog = QApplication::activeModalWidget() != nullptr;
    setWindowModality(isOverDialog ? Qt::ApplicationModal : Qt::NonModal);
    adjustSize();
    if (const QWidget* active = QApplication::activeWindow()) {
        const QPoint middle = active->frameGeometry().center();
        move(middle - rect().center());
    }
    show();
}

// A window can only be painted when its events come through, since the screen tells by an event when it may
// be. Input is kept out of it: left in the queue, or, once the dialog takes input, dropped for everyone else.
void ProgressDialog::paintWaitingWindows(bool ownInput) {
    if (painting_) return;
    painting_ = true;
    if (ownInput) {
        qApp->installEventFilter(this);
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        qApp->removeEventFilter(this);
    } else {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    painting_ = false;
}

bool ProgressDialog::isOwn(QObject* receiver) const {
    if (receiver == this || receiver == windowHandle()) return true;
    const auto* widget = qobject_cast<QWidget*>(receiver);
    return widget != nullptr && isAncestorOf(widget);
}

bool ProgressDialog::isClosing(QObject* receiver, QEvent::Type type) const {
    if (type != QEvent::Close || !isShowingFiles_ || closableWindow_ == nullptr) return false;
    return receiver == closableWindow_ || receiver == closableWindow_->windowHandle();
}

bool ProgressDialog::eventFilter(QObject* receiver, QEvent* event) {
    if (!painting_ || !isUserInput(event->type()) || isOwn(receiver) || isClosing(receiver, event->type()))
        return false;
    event->ignore();
    return true;
}

}  // namespace dialogs
