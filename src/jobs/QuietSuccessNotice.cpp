#include "jobs/QuietSuccessNotice.h"

#include <QApplication>
#include <QSystemTrayIcon>
#include <chrono>

namespace jobs {

namespace {

constexpr std::chrono::milliseconds kShownFor{5000};

}  // namespace

QuietSuccessNotice::QuietSuccessNotice(QObject* parent) : QObject(parent) {
    end_.setSingleShot(true);
    end_.setInterval(kShownFor);
    connect(&end_, &QTimer::timeout, this, [this] { icon_.reset(); });
}

QuietSuccessNotice::~QuietSuccessNotice() = default;

bool QuietSuccessNotice::Show(const QString& text) {
    if (!QSystemTrayIcon::isSystemTrayAvailable() || !QSystemTrayIcon::supportsMessages()) return false;
    icon_ = std::make_unique<QSystemTrayIcon>(QApplication::windowIcon());
    icon_->setToolTip(QStringLiteral("Tagwright"));
    icon_->show();
    icon_->showMessage(QStringLiteral("Tagwright"), text, QSystemTrayIcon::Information,
                       static_cast<int>(kShownFor.count()));
    end_.start();
    return true;
}

}  // namespace jobs
