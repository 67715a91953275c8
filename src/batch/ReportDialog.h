#pragma once

#include "app/DarkModeDialogBase.h"

namespace batch {

/// Shows a report: monospaced, to be read, selected and copied, not to be changed. Both its buttons close it.
class ReportDialog : public app::DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 94;
    static constexpr int kTextControl = 924;

    /// text in plain characters, lines ended by line feeds; see ReportForDisplay.
    ReportDialog(const app::LanguageFile& languageFile, const QString& text, QWidget* parent);
};

}  // namespace batch
