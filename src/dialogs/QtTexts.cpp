#include "dialogs/QtTexts.h"

#include "app/ProgressTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace dialogs {

std::unique_ptr<QTranslator> speakQtTexts(int language) {
    auto texts = std::make_unique<QTranslator>();
    const QString name = QStringLiteral("qtbase_") + app::languageCode(language);
    const bool isThere = texts->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (!isThere || !QCoreApplication::installTranslator(texts.get())) return nullptr;
    return texts;
}

}  // namespace dialogs
