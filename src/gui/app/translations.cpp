#include "gui/app/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace parlex::gui {

bool loadQtTranslations(QCoreApplication& app) {
    auto* translator = new QTranslator(&app);
    if (!translator->load("qtbase_ru", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}

} // namespace parlex::gui
