#pragma once

#include "core/codelists/listkey.h"

#include <QFrame>
#include <QtGlobal>
#include <array>
#include <optional>

class QListWidget;

namespace parlex::session {
class ListLibrary;
}

namespace parlex::gui {

// The code lists as the menus, the byte editor's pop-up and the keys F3-F9 offer
// them, in that order: the menu item's object name, its caption and the list.
struct ListMenu {
    const char* name;
    const char* caption;
    ListKey key;
};
inline constexpr std::array<ListMenu, 7> kListMenus{{
    {"nReact", QT_TRANSLATE_NOOP("Menus", "Коды &Реакций"), ListKey::R},
    {"nAction", QT_TRANSLATE_NOOP("Menus", "Коды &Воздействий"), ListKey::A},
    {"nTrig", QT_TRANSLATE_NOOP("Menus", "Коды &Триггеров"), ListKey::T},
    {"nName", QT_TRANSLATE_NOOP("Menus", "Список &Имен"), ListKey::N},
    {"nItem", QT_TRANSLATE_NOOP("Menus", "Коды &Предметов"), ListKey::I},
    {"nIq", QT_TRANSLATE_NOOP("Menus", "Коды При&немаемых квестов"), ListKey::Qi},
    {"nOq", QT_TRANSLATE_NOOP("Menus", "Коды Завершенных &квестов"), ListKey::Qo},
}};

// The pane of the main window that shows one code list (List), row by row. The byte
// editor's scroll bar moves through it. Until a list is first shown the pane draws
// itself as an empty list: the list widget and Qt's item views behind it are made
// then, not at start, since the window opens with no list shown.
class CodeListPane : public QFrame {
    Q_OBJECT
public:
    CodeListPane(session::ListLibrary& lists, QWidget* parent = nullptr);

    // The rows of a list, built in or from its file, in place of what was shown.
    void showList(ListKey key);
    // Marks row `row` and scrolls it to the top of the pane.
    void showRow(int row);
    // The first of the rows the user selected, if any.
    std::optional<int> firstSelectedRow() const;
    // How many rows are shown; 0 before the first list.
    int count() const;
    // The list widget, made on the first call.
    QListWidget& rows();

protected:
    void changeEvent(QEvent* event) override; // a new language: the list shown again

private:
    session::ListLibrary& lists_;
    std::optional<ListKey> shown_;
    QListWidget* rows_ = nullptr;
};

} // namespace parlex::gui
