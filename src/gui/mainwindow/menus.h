#pragma once

#include <QHash>
#include <QString>

class QAction;
class QMainWindow;
class QMenu;

namespace parlex::gui {

// The menu bar of the main window and the hidden pop-up menu nPopUp, with every
// item named as the program names it ("nOpen", "nDelStand", ...), its caption, the
// hot-key text behind it and its shortcut. What an item does is wired by the window.
class MainMenus {
public:
    explicit MainMenus(QMainWindow* window);

    QAction* action(const QString& name) const;
    // Every caption again, in the language now in place.
    void retranslate();
    QMenu* popup() const { return popup_; }

private:
    QMainWindow* window_;
    QMenu* popup_ = nullptr;
    // The menus' actions by name: the window asks for each of them as it is wired,
    // and a search of the whole window each time cost the start half a millisecond.
    QHash<QString, QAction*> actions_;
};

} // namespace parlex::gui
