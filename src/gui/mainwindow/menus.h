#pragma once

#include "core/codelists/listkey.h"

#include <QString>
#include <array>

class QAction;
class QMainWindow;
class QMenu;

namespace parlex::gui {

// The menu items of the code lists, in the order of their keys F3-F9.
struct ListMenu {
    const char* name;
    ListKey key;
};
inline constexpr std::array<ListMenu, 7> kListMenus{{{"nReact", ListKey::R},
                                                     {"nAction", ListKey::A},
                                                     {"nTrig", ListKey::T},
                                                     {"nName", ListKey::N},
                                                     {"nItem", ListKey::I},
                                                     {"nIq", ListKey::Qi},
                                                     {"nOq", ListKey::Qo}}};

// The menu bar of the main window and the hidden pop-up menu nPopUp, with every
// item named as the program names it ("nOpen", "nDelStand", ...), its caption, the
// hot-key text behind it and its shortcut. What an item does is wired by the window.
class MainMenus {
public:
    explicit MainMenus(QMainWindow* window);

    QAction* action(const QString& name) const;
    QMenu* popup() const { return popup_; }

private:
    QMainWindow* window_;
    QMenu* popup_ = nullptr;
};

} // namespace parlex::gui
