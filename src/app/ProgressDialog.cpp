#include "app/ProgressDialog.h"

#include "app/FormLoader.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QWindow>

// A library's resources are only there once it has asked for them, and the asking must stand outside any
// namespace.
static void provideForms() {
    Q_INIT_RESOURCE(app_forms);
}

namespace app {

namespace {

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
    LoadForm(*this, ownForm());
    setProperty(kTemplateNumberProperty, kTemplate);
    setAttribute(Qt::WA_ShowWithoutActivating);
    text_ = qobject_cast<QLabel*>(FindControl(*this, kTextControl));
    stop_ = qobject_cast<QPushButton*>(FindControl(*this, kStopControl));
    Q_ASSERT(text_ != nullptr && stop_ != nullptr);
    stop_->hide();
    connect(stop_, &QPushButton::clicked, this, &ProgressDialog::stopWaiting);
    setLanguage(language);
}

void ProgressDialog::setLanguage(int language) {
    language_ = language;
    stop_->setText(StopWaitingText(language));
}

void ProgressDialog::HandleCommand(int number, const QString& fileName) {
    const std::optional<ProgressStep> step = ProgressStepOf(number);
    if (!step) return;
    if (!waiting_) {
        waiting_ = true;
        sinceFirstStep_.start();
    }
    stopped_ = false;
    // A name can hold line feeds; the dialog has one line.
    text_->setText(ProgressText(language_, *step, fileName).replace(u'\n', u' ').replace(u'\r', u' '));
    pulse();
}

void ProgressDialog::pulse() {
    if (!waiting_ || sinceFirstStep_.elapsed() < kShowAfter.count()) return;
    showNow();
    paintWaitingWindows(false);
}

bool ProgressDialog::keepWaiting(std::chrono::milliseconds sinceStart) {
    if (sinceStart < kShowAfter) return true;
    waiting_ = true;
    showNow();
    const bool canStop = sinceStart >= kStopAfter;
    if (stop_->isHidden() == canStop) stop_->setVisible(canStop);
    paintWaitingWindows(canStop);
    const bool stopped = stopped_;
    stopped_ = false;
    return !stopped;
}

void ProgressDialog::finish() {
    waiting_ = false;
    stopped_ = false;
    stop_->hide();
    hide();
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

bool ProgressDialog::eventFilter(QObject* receiver, QEvent* event) {
    if (!painting_ || !isUserInput(event->type()) || isOwn(receiver)) return false;
    event->ignore();
    return true;
}

}  // namespace app
