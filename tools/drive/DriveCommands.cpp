#include "drive/DriveCommands.h"

#include "app/Program.h"
#include "drive/OpenWindows.h"

namespace drive {

namespace {

bool isHow(const QString& word) { return word == u"left" || word == u"right" || word == u"alt"; }

}  // namespace

struct DriveCommands::Verb {
    const char* name;
    int least;  ///< words behind the verb
    int most;
    bool needsWindow;
    std::function<Answer(WindowCommands&, const QStringList&)> run;
};

const std::vector<DriveCommands::Verb>& DriveCommands::verbs() {
    using Words = QStringList;
    constexpr int kAny = 10000;
    static const std::vector<Verb> table = {
        {"open", 1, 1, true, [](WindowCommands& w, const Words& words) { return w.open(words[0]); }},
        {"files", 0, 0, true, [](WindowCommands& w, const Words&) { return w.files(); }},
        {"select", 0, kAny, true, [](WindowCommands& w, const Words& words) { return w.select(words); }},
        {"click", 1, 2, true,
         [](WindowCommands& w, const Words& words) { return w.click(words[0], words.value(1), false); }},
        {"doubleclick", 1, 1, true,
         [](WindowCommands& w, const Words& words) { return w.click(words[0], {}, true); }},
        {"rows", 0, 0, true, [](WindowCommands& w, const Words&) { return w.rows(); }},
        {"row", 2, 4, true,
         [](WindowCommands& w, const Words& words) {
             const bool columnLeftOut = words.size() == 3 && isHow(words[2]);
             return w.row(words[0], words[1], columnLeftOut ? QString() : words.value(2),
                          columnLeftOut ? words[2] : words.value(3, QStringLiteral("left")));
         }},
        {"header", 1, 1, true, [](WindowCommands& w, const Words& words) { return w.header(words[0]); }},
        {"command", 1, 1, true, [](WindowCommands& w, const Words& words) { return w.command(words[0].toInt()); }},
        {"status", 0, 0, true, [](WindowCommands& w, const Words&) { return w.status(); }},
        {"title", 0, 0, true, [](WindowCommands& w, const Words&) { return w.title(); }},
        {"screenshot", 1, 1, true, [](WindowCommands& w, const Words& words) { return w.screenshot(words[0]); }},
        {"wait", 1, 1, false, [](WindowCommands& w, const Words& words) { return w.wait(words[0].toInt()); }},
        {"quit", 0, 0, true, [](WindowCommands& w, const Words&) { return w.quit(); }},
        {"menu", 0, 0, false, [](WindowCommands&, const Words&) { return describeMenu(); }},
        {"choose", 1, 1, false, [](WindowCommands&, const Words& words) { return chooseEntry(words[0].toInt()); }},
        {"key", 1, 1, false, [](WindowCommands&, const Words& words) { return pressKey(words[0]); }},
        {"message", 0, 0, false, [](WindowCommands&, const Words&) { return describeMessage(); }},
        {"dialog", 0, 0, false, [](WindowCommands&, const Words&) { return describeDialog(); }},
        {"set", 2, 2, false,
         [](WindowCommands&, const Words& words) { return setControl(words[0].toInt(), words[1]); }},
        {"check", 3, 3, false,
         [](WindowCommands&, const Words& words) {
             return checkRow(words[0].toInt(), words[1].toInt(), words[2] == u"1");
         }},
        {"press", 1, 1, false, [](WindowCommands&, const Words& words) { return pressButton(words[0].toInt()); }},
    };
    return table;
}

Answer DriveCommands::execute(const QStringList& words) {
    for (const Verb& verb : verbs()) {
        if (words[0] != QLatin1String(verb.name)) continue;
        const qsizetype given = words.size() - 1;
        if (given < verb.least || given > verb.most)
            return Answer::failed(QStringLiteral("\"%1\" does not take %2 words").arg(words[0]).arg(given));
        if (verb.needsWindow && !program_.hasWindow()) return Answer::failed(QStringLiteral("there is no window"));
        return verb.run(window_, words.mid(1));
    }
    return Answer::failed(QStringLiteral("there is no command \"%1\"").arg(words[0]));
}

}  // namespace drive
