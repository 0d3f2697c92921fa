#include "gui/mainwindow/menus.h"

#include "gui/codes/codelistpane.h"

#include <QAction>
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
         "&Файл",
         {{"nOpen", "&Открыть...", "", keys({"Ctrl+O"})},
          {"nNew", "Созд&ать", "", keys({"Ctrl+N"})},
          {"nSave", "&Сохранить", "Alt+S (F2)", {}},
          {"nSaveAs", "Сохранить &как...", "", keys({"Ctrl+S"})},
          {"-", "n1", "", {}},
          {"nExit", "В&ыход", "Alt+X", {}}}},
        {"nRec",
         "&Запись",
         {{"nFrec", "Перейти к пе&рвой", "Numpad /", {}},
          {"nLrec", "Перейти к п&оследней", "Numpad *", {}},
          {"nNext", "С&ледующая", "Numpad + (Ctrl+Numpad +)", {}},
          {"nBack", "Пре&дыдущая", "Numpad - (Ctrl+Numpad -)", {}},
          {"-", "n2", "", {}},
          {"nDelStand", "Удалит&ь стандартно", "Ctrl+Numpad Del", {}},
          {"nDel", "&Удалить полностью", "Numpad Del", {}},
          {"nCopy", "&Копировать", "Alt+C", {}},
          {"nPaste", "Вст&авить", "Alt+V", {}},
          {"-", "nUndoSeparator", "", {}},
          {"nUndo", "От&менить", "", keys({"Ctrl+Z"})},
          {"nRedo", "По&вторить", "", keys({"Ctrl+Y", "Ctrl+Shift+Z"})}}},
        {"nTools",
         "&Инструменты",
         {{"nType", "&Тип файла", "", {}},
          {"nEdit", "&Редактировать", "", keys({"Ctrl+E"})},
          {"nOverview", "&Обзор", "", keys({"Ctrl+T"})},
          {"-", "n3", "", {}},
          {"nOptions", "&Параметры", "", keys({"Ctrl+P"})}}},
        {"nKeys", "&Коды", listItems()},
        {"nHelp",
         "Помо&щь",
         {{"nContecst", "&Справка", "", keys({"F1"})},
          {"-", "n5", "", {}},
          {"nAbout", "&О Программе...", "", {}}}},
    };
    return tree;
}

void fill(QMenu* menu, const std::vector<Item>& items) {
    for (const Item& item : items) {
        if (QString(item.name) == "-") {
            menu->addSeparator()->setObjectName(item.caption);
            continue;
        }
        const QString caption =
            *item.hotKeys ? QString(item.caption) + "\t" + item.hotKeys : QString(item.caption);
        QAction* action = menu->addAction(caption);
        action->setObjectName(item.name);
        action->setShortcuts(item.shortcuts);
        if (QString(item.name) == "nType") { // the layout commands live one level down
            auto* type = new QMenu(menu);
            type->setObjectName("nType");
            action->setMenu(type);
            // Ctrl+F11 and Ctrl+F12: the two menu shortcuts after F9, clear of Ctrl+F1.
            fill(type, {{"nSelect", "Выбрать и &Изменить", "", keys({"Ctrl+F11"})},
                        {"nCurrent", "&Текущий", "", keys({"Ctrl+F12"})}});
        }
    }
}

} // namespace

MainMenus::MainMenus(QMainWindow* window) : window_(window) {
    for (const Menu& m : menuTree()) {
        QMenu* menu = window->menuBar()->addMenu(m.caption);
        menu->setObjectName(m.name);
        menu->menuAction()->setObjectName(m.name);
        fill(menu, m.items);
    }
    popup_ = new QMenu(window);
    popup_->setObjectName("nPopUp");
    fill(popup_, {{"nFon", "&Фон Текста", "", {}}, {"nFont", "&Шрифт Текста", "", {}}});
}

QAction* MainMenus::action(const QString& name) const {
    return window_->findChild<QAction*>(name);
}

} // namespace parlex::gui
