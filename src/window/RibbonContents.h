#pragma once

#include "app/LanguageFile.h"
#include "controls/RibbonMarkup.h"

namespace window {

/// Fills the ribbon: texts of the language file, icons by name, commands of the command table. A command that
/// is not built is not shown.
class RibbonContents : public controls::RibbonSource {
 public:
    explicit RibbonContents(const app::LanguageFile& language) : language_(language) {}

    QString text(int stringNumber) const override;
    QString tip(int stringNumber) const override;
    QIcon icon(const QString& name) const override;
    int commandText(int commandId) const override;
    QString commandIcon(int commandId) const override;
    bool available(int commandId) const override;
    QKeySequence shortcut(int commandId) const override;
    bool isToggle(int commandId) const override;

 private:
    const app::LanguageFile& language_;
};

}  // namespace window
