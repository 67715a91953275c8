#pragma once

#include "app/AppContext.h"
#include "app/LanguageFile.h"

#include <QWidget>
#include <cstdint>

class QLabel;

namespace browser {
class ShellBrowser;
}

namespace window {

/// The line at the foot of the window: what happens on the left, what is selected on the right. GUI thread.
class StatusBar : public QWidget {
    Q_OBJECT

 public:
    static constexpr int kHeightPixels = 26;

    /// Both outlive it.
    StatusBar(const app::AppContext& context, const app::LanguageFile& language, QWidget* parent);

    void showStatus(const QString& text);
    QString statusText() const;

    /// Counts and sizes of the list and of its selection.
    void showTotals(const browser::ShellBrowser& list);
    QString selectionText() const;

 private:
    QString sizeText(std::uint64_t bytes) const;

    const app::AppContext& context_;
    const app::LanguageFile& language_;
    QLabel* status_;
    QLabel* selection_;
};

}  // namespace window
