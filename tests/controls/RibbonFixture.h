#pragma once

#include <QApplication>
#include <QHash>
#include <QSet>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "controls/CommandAction.h"
#include "controls/Icons.h"
#include "controls/RibbonMarkup.h"

/// A source that names each text after its number and makes each action when it is first asked for.
struct NumberedSource : controls::RibbonSource {
    QSet<int> missing;
    QSet<int> toggles;
    QHash<int, QKeySequence> keys;
    mutable std::vector<int> chosen;
    std::function<void(int)> onChosen;

    QString text(int stringNumber) const override { return QStringLiteral("T%1").arg(stringNumber); }
    QIcon icon(const QString& name) const override { return controls::icon(name); }
    controls::CommandAction* action(int commandId) const override {
        if (missing.contains(commandId)) return nullptr;
        std::unique_ptr<controls::CommandAction>& action = actions_[commandId];
        if (action != nullptr) return action.get();
        action = std::make_unique<controls::CommandAction>(commandId);
        action->setToolTip(QStringLiteral("Tip %1").arg(commandId));
        action->setIcon(controls::icon(QStringLiteral("tag")));
        action->setCheckable(toggles.contains(commandId));
        action->setShortcut(keys.value(commandId));
        QObject::connect(action.get(), &controls::CommandAction::Chosen, [this](int id) {
            chosen.push_back(id);
            if (onChosen) onChosen(id);
        });
        return action.get();
    }
    void setEnabled(int commandId, bool enabled) const {
        action(commandId)->setStates(enabled, action(commandId)->isChecked());
    }

 private:
    mutable std::map<int, std::unique_ptr<controls::CommandAction>> actions_;
};
