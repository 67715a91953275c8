#pragma once

#include "app/LanguageFile.h"
#include "controls/CommandAction.h"
#include "controls/RibbonMarkup.h"

namespace window {

/// Fills the ribbon: texts of the language file, icons by name, the actions of the commands.
class RibbonContents : public controls::RibbonSource {
 public:
    /// Both outlive it.
    RibbonContents(const app::LanguageFile& language, const controls::CommandActions& commands)
        : language_(language), commands_(commands) {}

    QString text(int stringNumber) const override;
    QString tip(int stringNumber) const override;
    QIcon icon(const QString& name) const override;
    int commandText(int commandId) const override;
    controls::CommandAction* action(int commandId) const override;

 private:
    const app::LanguageFile& language_;
    const controls::CommandActions& commands_;
};

}  // namespace window
