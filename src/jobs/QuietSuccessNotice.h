#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <memory>

class QSystemTrayIcon;

namespace jobs {

/// Says at the edge of the desktop that an operation went well, where the desktop has such a place. The icon
/// that this needs is there as long as the words are. GUI thread.
class QuietSuccessNotice : public QObject {
    Q_OBJECT

 public:
    explicit QuietSuccessNotice(QObject* parent = nullptr);
    ~QuietSuccessNotice() override;

    /// False where the desktop shows no such notices; the caller has to say it otherwise.
    bool Show(const QString& text);

 private:
    std::unique_ptr<QSystemTrayIcon> icon_;
    QTimer end_;
};

}  // namespace jobs
