#pragma once

#include "gui/app/keyboard.h"
#include "gui/mainwindow/commands.h"

#include <Qt>

namespace parlex::gui {

// The key map: the command a key asks for, or Command::None. The numeric pad is told
// from the other keys by its modifier (both NumLock states are understood);
// `documentOpen` enables the script keys.
Command keyCommand(int key, Qt::KeyboardModifiers modifiers, bool documentOpen);

} // namespace parlex::gui
