#include "gui/mainwindow/menus.h"

#include "gui/codes/codelistpane.h"

#include <QAction>
#include <QCoreApplication>
#include <QMainWindow>
#include <QMenuBar>

namespace parlex::gui {
namespace {

struct Item {
    const char* name;    // objectName; "-" is a separator named by `caption`
    const char* caption; // with "&" before the access key
    const char* hotKeys; // the text after the tab, where the shortcut is the key map's
    QList<QKeySequence> shortcuts;
};

struct Menu {
    const char* name;
    const char* caption;
    std::vector<Item> items;
};

QList<QKeySequence> keys(std::initializer_list<const char*> texts) {
    QList<QKeySequence> out;
    for (const char* t : texts)
        out << QKeySequence(QString::fromLatin1(t));
    return out;
}

// The code lists on F3-F9, a separator after the first two.
std::vector<Item> listItems() {
    std::vector<Item> items;
    for (std::size_t i = 0; i < kListMenus.size(); ++i) {
        if (i == 2)
            items.push_back({"-", "n4", "", {}});
        items.push_back({kListMenus[i].name,
                         kListMenus[i].caption,
                         "",
                         {QKeySequence(Qt::Key_F3 + static_cast<int>(i))}});
    }
    return items;
}

const std::vector<Menu>& menuTree() {
    static const std::vector<Menu> tree = {
        {"nFile",
         QT_TRANSLATE_NOOP("Menus", "&Файл"),
         {{"nOpen", QT_TRANSLATE_NOOP("Menus", "&Открыть..."), "", keys({"Ctrl+O"})},
          {"nNew", QT_TRANSLATE_NOOP("Menus", "Созд&ать"), "", keys({"Ctrl+N"})},
          {"nSave", QT_TRANSLATE_NOOP("Menus", "&Сохранить"), "Alt+S (F2)", {}},
          {"nSaveAs", QT_TRANSLATE_NOOP("Menus", "Сохранить &как..."), "", keys({"Ctrl+S"})},
          {"-", "n1", "", {}},
          {"nExit", QT_TRANSLATE_NOOP("Menus", "В&ыход"), "Alt+X", {}}}},
        {"nRec",
         QT_TRANSLATE_NOOP("Menus", "&Запись"),
         {{"nFrec", QT_TRANSLATE_NOOP("Menus", "Перейти к пе&рвой"), "Numpad /", {}},
          {"nLrec", QT_TRANSLATE_NOOP("Menus", "Перейти к п&оследней"), "Numpad *", {}},
          {"nNext", QT_TRANSLATE_NOOP("Menus", "С&ледующая"), "Numpad + (Ctrl+Numpad +)", {}},
          {"nBack", QT_TRANSLATE_NOOP("Menus", "Пре&дыдущая"), "Numpad - (Ctrl+Numpad -)", {}},
          {"-", "n2", "", {}},
          {"nDelStand", QT_TRANSLATE_NOOP("Menus", "Удалит&ь стандартно"), "Ctrl+Numpad Del", {}},
          {"nDel", QT_TRANSLATE_NOOP("Menus", "&Удалить полностью"), "Numpad Del", {}},
          {"nCopy", QT_TRANSLATE_NOOP("Menus", "&Копировать"), "Alt+C", {}},
          {"nPaste", QT_TRANSLATE_NOOP("Menus", "Вст&авить"), "Alt+V", {}},
          {"-", "nUndoSeparator", "", {}},
          {"nUndo", QT_TRANSLATE_NOOP("Menus", "От&менить"), "", keys({"Ctrl+Z"})},
          {"nRedo", QT_TRANSLATE_NOOP("Menus", "По&вторить"), "",
           keys({"Ctrl+Y", "Ctrl+Shift+Z"})}}},
        {"nTools",
         QT_TRANSLATE_NOOP("Menus", "&Инструменты"),
         {{"nType", QT_TRANSLATE_NOOP("Menus", "&Тип файла"), "", {}},
          {"nEdit", QT_TRANSLATE_NOOP("Menus", "&Редактировать"), "", keys({"Ctrl+E"})},
          {"nOverview", QT_TRANSLATE_NOOP("Menus", "&Обзор"), "", keys({"Ctrl+T"})},
          {"-", "n3", "", {}},
          {"nOptions", QT_TRANSLATE_NOOP("Menus", "&Параметры"), "", keys({"Ctrl+P"})}}},
        {"nKeys", QT_TRANSLATE_NOOP("Menus", "&Коды"), listItems()},
        {"nHelp",
         QT_TRANSLATE_NOOP("Menus", "Помо&щь"),
         {{"nContecst", QT_TRANSLATE_NOOP("Menus", "&Справка"), "", keys({"F1"})},
          {"-", "n5", "", {}},
          {"nAbout", QT_TRANSLATE_NOOP("Menus", "&О Программе..."), "", {}}}},
    };
    return tree;
}

QString translated(const char* caption) {
    return QCoreApplication::translate("Menus", caption);
}

QString itemText(const Item& item) {
    return *item.hotKeys ? translated(item.caption) + "\t" + item.hotKeys
                         : translated(item.caption);
}

// The items under the layout command.
const std::vector<Item>& typeItems() {
    static const std::vector<Item> items = {
        {"nSelect", QT_TRANSLATE_NOOP("Menus", "Выбрать и &Изменить"), "", keys({"Ctrl+F11"})},
        {"nCurrent", QT_TRANSLATE_NOOP("Menus", "&Текущий"), "", keys({"Ctrl+F12"})}};
    return items;
}

const std::vector<Item>& popupItems() {
    static const std::vector<Item> items = {
        {"nFon", QT_TRANSLATE_NOOP("Menus", "&Фон Текста"), "", {}},
        {"nFont", QT_TRANSLATE_NOOP("Menus", "&Шрифт Текста"), "", {}}};
    return items;
}

void fill(QMenu* menu, const std::vector<Item>& items) {
    for (const Item& item : items) {
        if (QString(item.name) == "-") {
            menu->addSeparator()->setObjectName(item.caption);
            continue;
        }
        QAction* action = menu->addAction(itemText(item));
        action->setObjectName(item.name);
        action->setShortcuts(item.shortcuts);
        if (QString(item.name) == "nType") { // the layout commands live one level down
            auto* type = new QMenu(menu);
            type->setObjectName("nType");
            action->setMenu(type);
            // Ctrl+F11 and Ctrl+F12: the two menu shortcuts after F9, clear of Ctrl+F1.
            fill(type, typeItems());
        }
    }
}

} // namespace

MainMenus::MainMenus(QMainWindow* window) : window_(window) {
    for (const Menu& m : menuTree()) {
        QMenu* menu = window->menuBar()->addMenu(translated(m.caption));
        menu->setObjectName(m.name);
        menu->menuAction()->setObjectName(m.name);
        fill(menu, m.items);
    }
    popup_ = new QMenu(window);
    popup_->setObjectName("nPopUp");
    fill(popup_, popupItems());
    for (QAction* a : window->findChildren<QAction*>())
        if (!a->objectName().isEmpty() && !actions_.contains(a->objectName()))
            actions_.insert(a->objectName(), a);
}

void MainMenus::retranslate() {
    const auto retitle = [this](const std::vector<Item>& items) {
        for (const Item& item : items)
            if (QString(item.name) != "-")
                if (QAction* a = action(item.name))
                    a->setText(itemText(item));
    };
    for (const Menu& m : menuTree()) {
        if (auto* menu = window_->findChild<QMenu*>(m.name))
            menu->setTitle(translated(m.caption));
        retitle(m.items);
    }
    retitle(typeItems());
    retitle(popupItems());
}

QAction* MainMenus::action(const QString& name) const {
    if (auto found = actions_.constFind(name); found != actions_.cend())
        return *found;
    return window_->findChild<QAction*>(name); // one made after the menus
}

} // namespace parlex::gui
