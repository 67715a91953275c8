#include "drive/DriveCommands.h"

#include "drive/CellClicks.h"
#include "drive/OpenWindows.h"
#include "window/Program.h"

namespace drive {

namespace {

bool isNumber(const QString& word) {
    bool valid = false;
    word.toInt(&valid);
    return valid;
}

/// The kind of click that a command ends with; "left" when it names none.
QString clickOf(const QStringList& words, qsizetype at) {
    return words.value(at, QStringLiteral("left"));
}

Answer noSuchClick(const QString& how) {
    return Answer::failed(QStringLiteral("\"%1\" is no kind of click").arg(how));
}

Answer clickRow(WindowCommands& window, const QStringList& words) {
    // The column can be left out, the kind of click too.
    const bool columnLeftOut = words.size() == 3 && isKindOfClick(words[2]);
    const QString how = clickOf(words, columnLeftOut ? 2 : 3);
    if (!isKindOfClick(how)) return noSuchClick(how);
    return window.row(words[0], words[1], columnLeftOut ? QString() : words.value(2), how);
}

Answer clickDialogCell(const QStringList& words) {
    const QString how = clickOf(words, 3);
    if (!isKindOfClick(how)) return noSuchClick(how);
    return clickCell(words[0].toInt(), words[1], words[2], how);
}

Answer tickRow(const QStringList& words) {
    if (!isNumber(words[2])) return Answer::failed(QStringLiteral("\"%1\" is no number").arg(words[2]));
    return checkRow(words[0].toInt(), words[1], words[2].toInt() != 0);
}

}  // namespace

enum class DriveCommands::Needs {
    Nothing,
    Window,    ///< only looks at the window
    Reachable  ///< does something in the window, which a dialog in front keeps from the user
};

struct DriveCommands::Verb {
    const char* name;
    int least;  ///< words behind the verb
    int most;
    int numbers;  ///< the first so many words are integers
    Needs needs;
    std::function<Answer(WindowCommands&, const QStringList&)> run;
};

const std::vector<DriveCommands::Verb>& DriveCommands::verbs() {
    using Words = QStringList;
    constexpr int kAny = 10000;
    using enum Needs;
    static const std::vector<Verb> table = {
        {"open", 1, 1, 0, Reachable, [](WindowCommands& w, const Words& words) { return w.open(words[0]); }},
        {"files", 0, 0, 0, Window, [](WindowCommands& w, const Words&) { return w.files(); }},
        {"select", 0, kAny, 0, Reachable,
         [](WindowCommands& w, const Words& words) { return w.select(words); }},
        {"click", 1, 3, 0, Reachable,
         [](WindowCommands& w, const Words& words) {
             return w.click(words[0], words.value(1), clickOf(words, 2));
         }},
        {"doubleclick", 1, 1, 0, Reachable,
         [](WindowCommands& w, const Words& words) {
             return w.click(words[0], {}, QStringLiteral("double"));
         }},
        {"rows", 0, 0, 0, Window, [](WindowCommands& w, const Words&) { return w.rows(); }},
        {"row", 2, 4, 0, Reachable, clickRow},
        {"header", 1, 1, 0, Reachable,
         [](WindowCommands& w, const Words& words) { return w.header(words[0]); }},
        {"command", 1, 1, 1, Reachable,
         [](WindowCommands& w, const Words& words) { return w.command(words[0].toInt()); }},
        {"state", 1, 1, 1, Window,
         [](WindowCommands& w, const Words& words) { return w.state(words[0].toInt()); }},
        {"status", 0, 0, 0, Window, [](WindowCommands& w, const Words&) { return w.status(); }},
        {"stop", 0, 0, 0, Window, [](WindowCommands& w, const Words&) { return w.stop(); }},
        {"title", 0, 0, 0, Window, [](WindowCommands& w, const Words&) { return w.title(); }},
        {"screenshot", 1, 1, 0, Nothing,
         [](WindowCommands& w, const Words& words) { return w.screenshot(words[0]); }},
        {"wait", 1, 1, 1, Nothing,
         [](WindowCommands& w, const Words& words) { return w.wait(words[0].toInt()); }},
        // What it waits for has ended when it is executed.
        {"await", 0, 0, 0, Nothing, [](WindowCommands&, const Words&) { return Answer(); }},
        {"quit", 0, 0, 0, Nothing, [](WindowCommands& w, const Words&) { return w.quit(); }},
        {"menu", 0, 0, 0, Nothing, [](WindowCommands&, const Words&) { return describeMenu(); }},
        {"choose", 1, 1, 1, Nothing,
         [](WindowCommands&, const Words& words) { return chooseEntry(words[0].toInt()); }},
        {"key", 1, 1, 0, Nothing, [](WindowCommands& w, const Words& words) { return w.key(words[0]); }},
        {"type", 1, 1, 0, Nothing, [](WindowCommands& w, const Words& words) { return w.type(words[0]); }},
        {"focus", 1, 1, 0, Reachable,
         [](WindowCommands& w, const Words& words) { return w.focus(words[0]); }},
        {"menuof", 1, 1, 0, Reachable,
         [](WindowCommands& w, const Words& words) { return w.menuOf(words[0]); }},
        {"tab", 1, 1, 1, Reachable,
         [](WindowCommands& w, const Words& words) { return w.tab(words[0].toInt()); }},
        {"area", 1, 1, 0, Window, [](WindowCommands& w, const Words& words) { return w.area(words[0]); }},
        {"message", 0, 0, 0, Nothing, [](WindowCommands&, const Words&) { return describeMessage(); }},
        {"dialog", 0, 0, 0, Nothing, [](WindowCommands&, const Words&) { return describeDialog(); }},
        {"set", 2, 2, 1, Nothing,
         [](WindowCommands&, const Words& words) { return setControl(words[0].toInt(), words[1]); }},
        {"check", 3, 3, 1, Nothing, [](WindowCommands&, const Words& words) { return tickRow(words); }},
        {"cell", 3, 4, 1, Nothing,
         [](WindowCommands&, const Words& words) { return clickDialogCell(words); }},
        {"column", 2, 2, 1, Nothing,
         [](WindowCommands&, const Words& words) { return clickColumnHeader(words[0].toInt(), words[1]); }},
        {"press", 1, 1, 1, Nothing,
         [](WindowCommands&, const Words& words) { return pressButton(words[0].toInt()); }},
    };
    return table;
}

Answer DriveCommands::execute(const QStringList& words) {
    for (const Verb& verb : verbs()) {
        if (words[0] != QLatin1String(verb.name)) continue;
        const qsizetype given = words.size() - 1;
        if (given < verb.least || given > verb.most)
            return Answer::failed(QStringLiteral("\"%1\" does not take %2 words").arg(words[0]).arg(given));
        for (int at = 1; at <= verb.numbers; ++at)
            if (!isNumber(words[at]))
                return Answer::failed(QStringLiteral("\"%1\" is no number").arg(words[at]));
        if (verb.needs != Needs::Nothing && !program_.hasWindow())
            return Answer::failed(QStringLiteral("there is no window"));
        if (verb.needs == Needs::Reachable) {
            if (isWindowBlocked())
                return Answer::failed(QStringLiteral("a dialog is open in front of the window"));
            // The first click outside of a menu closes it.
            closeMenus();
        }
        return verb.run(window_, words.mid(1));
    }
    return Answer::failed(QStringLiteral("there is no command \"%1\"").arg(words[0]));
}

}  // namespace drive
