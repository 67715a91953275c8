#pragma once

#include <QByteArray>
#include <QIcon>
#include <QString>
#include <optional>
#include <vector>

namespace controls {

class CommandAction;

/// Where the ribbon gets what its markup names only by number or name. Asked while setMarkup() runs.
class RibbonSource {
 public:
    virtual ~RibbonSource() = default;

    virtual QString text(int stringNumber) const = 0;
    /// A sentence more for the tool tip of a menu; empty: the text alone.
    virtual QString tip(int /*stringNumber*/) const { return {}; }
    virtual QIcon icon(const QString& name) const = 0;
    /// String number of a command for which the markup names none of its own.
    virtual int commandText(int commandId) const { return commandId; }
    /// Null for a command that the program does not have, which is then not shown. The actions outlive what
    /// the ribbon shows, or take it out of use when they go.
    virtual CommandAction* action(int commandId) const = 0;
};

/// One button, menu or line. docs/ribbon.md describes the markup.
struct RibbonItem {
    enum class Kind { Button, Split, Menu, Separator };

    Kind kind = Kind::Button;
    int command = 0;  ///< Button and Split
    QString id{};     ///< Menu
    int text = 0;     ///< string number; 0: the one of the command
    QString icon{};   ///< empty: the one of the command's action, or none
    bool large = false;
    QString keyTip{};                   ///< what is typed for it; in a menu, the letter that is underlined
    QString arrowKeyTip{};              ///< Split, for its menu
    std::vector<RibbonItem> entries{};  ///< Split and Menu

    bool operator==(const RibbonItem&) const = default;
};

struct RibbonGroupMarkup {
    QString id;
    int text = 0;
    QString icon;      ///< of the drop-down that stands for the group when there is no room
    int priority = 0;  ///< the lowest makes room first; among equals the rightmost
    QString keyTip;    ///< of that drop-down
    std::vector<RibbonItem> items;

    bool operator==(const RibbonGroupMarkup&) const = default;
};

struct RibbonTabMarkup {
    QString id;
    int text = 0;
    QString keyTip;
    std::vector<RibbonGroupMarkup> groups;

    bool operator==(const RibbonTabMarkup&) const = default;
};

struct RibbonMarkup {
    int foldText = 0;  ///< string number of the fold button's tool tip; 0: none
    std::vector<RibbonTabMarkup> tabs;

    bool operator==(const RibbonMarkup&) const = default;
};

struct RibbonMarkupResult {
    std::optional<RibbonMarkup> markup;
    QString error;  ///< "Line 7: ..." when there is no markup
};

/// Reads the XML. Refuses what it does not know, so that a slip in a language file is found at once.
RibbonMarkupResult readRibbonMarkup(const QByteArray& xml);

/// Gives each command without one its text.
void nameCommands(RibbonMarkup& markup, const RibbonSource& source);

/// Takes out the commands that are not available, and every menu, group and tab that is then empty.
RibbonMarkup keepAvailable(RibbonMarkup markup, const RibbonSource& source);

}  // namespace controls
