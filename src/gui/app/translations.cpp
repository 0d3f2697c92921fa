#include "gui/app/translations.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEvent>
#include <QLibraryInfo>
#include <QTranslator>
#include <QWidget>

#include <memory>
#include <optional>

namespace parlex::gui {
namespace {

// The translators in place: one per program, replaced when the language changes.
struct Installed {
    std::optional<Language> language;
    std::unique_ptr<QTranslator> qt;
    std::unique_ptr<QTranslator> ours;
};
Installed& installed() {
    static Installed now;
    return now;
}

std::unique_ptr<QTranslator> loaded(const QString& name, const QString& folder) {
    auto translator = std::make_unique<QTranslator>();
    if (!translator->load(name, folder))
        return nullptr;
    QCoreApplication::installTranslator(translator.get());
    return translator;
}

} // namespace

bool loadQtTranslations(QCoreApplication& app) {
    auto* translator = new QTranslator(&app);
    if (!translator->load("qtbase_ru", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}

void applyLanguage(Language language) {
    Installed& now = installed();
    if (now.language == language)
        return;
    now.language = language;
    // A translator is taken out of the application when it is destroyed.
    now.qt.reset();
    now.ours.reset();
    if (language == Language::English)
        now.ours = loaded("parlex_en", ":/i18n");
    else
        now.qt = loaded("qtbase_ru", QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    // Qt tells the widgets only once its event loop runs; the settings are read
    // before that, so every widget is told here. A second telling says the same.
    for (QWidget* widget : QApplication::allWidgets()) {
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(widget, &change);
    }
}

} // namespace parlex::gui
