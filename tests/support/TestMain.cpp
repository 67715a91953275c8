#include "app/LanguageFile.h"
#include "app/SpokenText.h"
#include "support/WorkingFolder.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>
#include <cstdio>
#include <cstdlib>

namespace {

// A dialog that asks for a control which no FormControls.tsv declares works, until a language file lacks it.
void tellUndeclaredControls(QtMsgType type, const QMessageLogContext&, const QString& message) {
    std::fprintf(stderr, "%s\n", qPrintable(message));
    if (type == QtFatalMsg) std::abort();
    if (message.startsWith(QLatin1StringView("Undeclared control"))) ADD_FAILURE() << message.toStdString();
}

}  // namespace

// Every test program gets an application object, offscreen unless the caller asks for a real display, and a
// working folder of its own.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    qInstallMessageHandler(tellUndeclaredControls);
    QLocale::setDefault(QLocale::c());
    const app::LanguageFile english(TAGWRIGHT_BIN_DIR, app::kEnglishLanguage);
    const app::SpokenLanguage spoken(english);
    ::testing::InitGoogleTest(&argc, argv);
    support::keepToAWorkingFolder();
    return RUN_ALL_TESTS();
}
