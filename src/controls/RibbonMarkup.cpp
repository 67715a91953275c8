#include "controls/RibbonMarkup.h"

#include <QSet>
#include <QXmlStreamReader>
#include <algorithm>
#include <initializer_list>

namespace controls {
namespace {

constexpr int kDeepestMenu = 4;

class MarkupReader {
 public:
    explicit MarkupReader(const QByteArray& xml) : xml_(xml) {}

    RibbonMarkupResult read() {
        RibbonMarkup markup;
        if (!xml_.readNextStartElement())
            fail(QStringLiteral("The ribbon markup is empty."));
        else if (xml_.name() != QLatin1String("ribbon"))
            fail(QStringLiteral("The outermost element is <%1>, not <ribbon>.").arg(xml_.name()));
        else
            readRibbon(markup);
        while (!xml_.hasError() && !xml_.atEnd()) xml_.readNext();
        if (xml_.hasError())
            return {std::nullopt, QStringLiteral("Line %1: %2")
                                      .arg(line_ > 0 ? line_ : xml_.lineNumber())
                                      .arg(xml_.errorString())};
        return {std::move(markup), {}};
    }

 private:
    void fail(const QString& message) {
        if (xml_.hasError()) return;
        line_ = xml_.lineNumber();
        xml_.raiseError(message);
    }

    void refuseElement(const char* parent) {
        fail(QStringLiteral("<%1> is unknown inside <%2>.").arg(xml_.name(), QLatin1String(parent)));
    }

    void allowAttributes(std::initializer_list<const char*> names) {
        for (const QXmlStreamAttribute& attribute : xml_.attributes()) {
            const bool known = std::any_of(names.begin(), names.end(), [&](const char* name) {
                return attribute.name() == QLatin1String(name);
            });
            if (!known) {
                fail(QStringLiteral("<%1> has no attribute \"%2\".").arg(xml_.name(), attribute.name()));
                return;
            }
        }
    }

    QString attribute(const char* name) const {
        return xml_.attributes().value(QLatin1String(name)).toString();
    }
    bool hasAttribute(const char* name) const { return xml_.attributes().hasAttribute(QLatin1String(name)); }

    /// A whole number not below `lowest`; 0 after a failure.
    int number(const char* name, int lowest) {
        bool valid = false;
        const int value = attribute(name).toInt(&valid);
        if (valid && value >= lowest) return value;
        fail(hasAttribute(name)
                 ? QStringLiteral("Attribute \"%1\" of <%2> is no valid number: \"%3\".")
                       .arg(QLatin1String(name), xml_.name(), attribute(name))
                 : QStringLiteral("<%1> lacks the attribute \"%2\".").arg(xml_.name(), QLatin1String(name)));
        return 0;
    }

    /// One letter or digit, or none.
    QString keyTip() {
        const QString tip = attribute("keyTip").toUpper();
        if (hasAttribute("keyTip") && (tip.size() != 1 || !tip.at(0).isLetterOrNumber()))
            fail(QStringLiteral("A key tip is one letter or digit, not \"%1\".").arg(attribute("keyTip")));
        return tip;
    }

    QString uniqueId() {
        QString id = attribute("id");
        if (id.isEmpty())
            fail(QStringLiteral("<%1> lacks the attribute \"id\".").arg(xml_.name()));
        else if (ids_.contains(id))
            fail(QStringLiteral("The id \"%1\" stands twice.").arg(id));
        ids_.insert(id);
        return id;
    }

    void readRibbon(RibbonMarkup& markup) {
        allowAttributes({"foldText"});
        if (hasAttribute("foldText")) markup.foldText = number("foldText", 1);
        while (!xml_.hasError() && xml_.readNextStartElement()) {
            if (xml_.name() == QLatin1String("tab"))
                markup.tabs.push_back(readTab());
            else
                refuseElement("ribbon");
        }
        if (markup.tabs.empty()) fail(QStringLiteral("The ribbon has no tab."));
    }

    RibbonTabMarkup readTab() {
        RibbonTabMarkup tab;
        allowAttributes({"id", "text", "keyTip"});
        tab.id = uniqueId();
        tab.text = number("text", 1);
        tab.keyTip = keyTip();
        while (!xml_.hasError() && xml_.readNextStartElement()) {
            if (xml_.name() == QLatin1String("group"))
                tab.groups.push_back(readGroup());
            else
                refuseElement("tab");
        }
        return tab;
    }

    RibbonGroupMarkup readGroup() {
        RibbonGroupMarkup group;
        allowAttributes({"id", "text", "icon", "priority", "keyTip"});
        group.id = uniqueId();
        group.text = number("text", 1);
        group.icon = attribute("icon");
        group.keyTip = keyTip();
        if (hasAttribute("priority")) group.priority = number("priority", 0);
        while (!xml_.hasError() && xml_.readNextStartElement()) group.items.push_back(readItem("group", 0));
        return group;
    }

    RibbonItem readItem(const char* parent, int depth) {
        RibbonItem item;
        const bool inMenu = depth > 0;
        if (xml_.name() == QLatin1String("button"))
            readButton(item, inMenu);
        else if (xml_.name() == QLatin1String("split") && !inMenu)
            readSplit(item, depth);
        else if (xml_.name() == QLatin1String("menu"))
            readMenu(item, depth);
        else if (xml_.name() == QLatin1String("separator") && inMenu)
            readSeparator(item);
        else
            refuseElement(parent);
        return item;
    }

    void readCommand(RibbonItem& item) {
        item.command = number("command", 1);
        if (hasAttribute("text")) item.text = number("text", 1);
        if (commands_.contains(item.command) && !xml_.hasError())
            fail(QStringLiteral("The command %1 stands twice.").arg(item.command));
        commands_.insert(item.command);
    }

    void readLook(RibbonItem& item, bool inMenu) {
        item.icon = attribute("icon");
        item.keyTip = keyTip();
        if (inMenu) return;
        if (item.icon.isEmpty() && item.kind == RibbonItem::Kind::Menu)
            fail(QStringLiteral("<%1> lacks the attribute \"icon\".").arg(xml_.name()));
        const QString size = attribute("size");
        if (hasAttribute("size") && size != QLatin1String("large") && size != QLatin1String("small"))
            fail(QStringLiteral("The size is \"large\" or \"small\", not \"%1\".").arg(size));
        item.large = size == QLatin1String("large");
    }

    void allowLookAttributes(const char* key, bool inMenu) {
        if (inMenu)
            allowAttributes({key, "text", "icon", "keyTip"});
        else
            allowAttributes({key, "text", "icon", "keyTip", "size"});
    }

    void readButton(RibbonItem& item, bool inMenu) {
        allowLookAttributes("command", inMenu);
        readCommand(item);
        readLook(item, inMenu);
        if (!xml_.hasError() && xml_.readNextStartElement()) refuseElement("button");
    }

    void readSplit(RibbonItem& item, int depth) {
        item.kind = RibbonItem::Kind::Split;
        allowLookAttributes("command", false);
        readCommand(item);
        readLook(item, false);
        readEntries(item, "split", depth);
    }

    void readMenu(RibbonItem& item, int depth) {
        item.kind = RibbonItem::Kind::Menu;
        allowLookAttributes("id", depth > 0);
        item.id = uniqueId();
        item.text = number("text", 1);
        readLook(item, depth > 0);
        readEntries(item, "menu", depth);
    }

    void readSeparator(RibbonItem& item) {
        item.kind = RibbonItem::Kind::Separator;
        allowAttributes({});
        if (!xml_.hasError() && xml_.readNextStartElement()) refuseElement("separator");
    }

    void readEntries(RibbonItem& item, const char* name, int depth) {
        if (depth >= kDeepestMenu) fail(QStringLiteral("Menus are nested too deeply."));
        while (!xml_.hasError() && xml_.readNextStartElement())
            item.entries.push_back(readItem(name, depth + 1));
        if (item.entries.empty()) fail(QStringLiteral("A <%1> has no entries.").arg(QLatin1String(name)));
    }

    QXmlStreamReader xml_;
    qint64 line_ = 0;
    QSet<QString> ids_;
    QSet<int> commands_;
};

void nameCommands(std::vector<RibbonItem>& items, const RibbonSource& source) {
    for (RibbonItem& item : items) {
        nameCommands(item.entries, source);
        if (item.command == 0) continue;
        if (item.text == 0) item.text = source.commandText(item.command);
    }
}

void keepAvailable(std::vector<RibbonItem>& items, const RibbonSource& source);

/// Whether anything of the item is left.
bool keepAvailable(RibbonItem& item, const RibbonSource& source) {
    using Kind = RibbonItem::Kind;
    keepAvailable(item.entries, source);
    switch (item.kind) {
        case Kind::Separator:
            return true;
        case Kind::Menu:
            return !item.entries.empty();
        case Kind::Button:
            return source.action(item.command) != nullptr;
        case Kind::Split:
            break;
    }
    const bool works = source.action(item.command) != nullptr;
    if (works && item.entries.empty()) item.kind = Kind::Button;
    if (!works) {
        item.kind = Kind::Menu;  // which keeps the key tip of the button
        item.id = QStringLiteral("split-%1").arg(item.command);
        item.command = 0;
    }
    return works || !item.entries.empty();
}

void keepAvailable(std::vector<RibbonItem>& items, const RibbonSource& source) {
    std::vector<RibbonItem> kept;
    for (RibbonItem& item : items) {
        const bool separator = item.kind == RibbonItem::Kind::Separator;
        if (separator && (kept.empty() || kept.back().kind == RibbonItem::Kind::Separator)) continue;
        if (keepAvailable(item, source)) kept.push_back(std::move(item));
    }
    while (!kept.empty() && kept.back().kind == RibbonItem::Kind::Separator) kept.pop_back();
    items = std::move(kept);
}

}  // namespace

RibbonMarkupResult readRibbonMarkup(const QByteArray& xml) {
    return MarkupReader(xml).read();
}

void nameCommands(RibbonMarkup& markup, const RibbonSource& source) {
    for (RibbonTabMarkup& tab : markup.tabs)
        for (RibbonGroupMarkup& group : tab.groups) nameCommands(group.items, source);
}

RibbonMarkup keepAvailable(RibbonMarkup markup, const RibbonSource& source) {
    for (RibbonTabMarkup& tab : markup.tabs) {
        for (RibbonGroupMarkup& group : tab.groups) keepAvailable(group.items, source);
        std::erase_if(tab.groups, [](const RibbonGroupMarkup& group) { return group.items.empty(); });
    }
    std::erase_if(markup.tabs, [](const RibbonTabMarkup& tab) { return tab.groups.empty(); });
    return markup;
}

}  // namespace controls
