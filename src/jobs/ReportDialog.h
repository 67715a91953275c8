#pragma once

#include "dialogs/DarkModeDialogBase.h"

namespace jobs {

/// Shows a report: monospaced, to be read, selected and copied, not to be changed. Both its buttons close it.
class ReportDialog : public dialogs::DarkModeDialogBase {
    Q_OBJECT

 public:
    static constexpr int kTemplate = 94;
    static constexpr int kTextControl = 924;

    /// text in plain characters, lines ended by line feeds; see reportForDisplay.
    ReportDialog(const app::LanguageFile& languageFile, const QString& text, QWidget* parent);
};

}  // namespace jobs
