#pragma once

#include <QString>
#include <Qt>

namespace parlex::gui {

// Where the native codes of a key event come from.
enum class KeySource {
    X11,     // xcb and Wayland: the scan code is the XKB key code (evdev + 8)
    Windows, // the virtual key, which names the key's place for letters in every layout
    Other,   // no native codes to go by: the letter as typed
};
KeySource keySourceFor(const QString& platformName);

// The Latin letter of the key's place on the keyboard for a letter typed in another
// alphabet (Alt+Ы is Alt+S with a Russian layout), so that letter keys of the map
// and of the dialogs work whatever layout is active. Other keys pass unchanged.
int latinKey(int key, quint32 nativeScanCode, quint32 nativeVirtualKey, KeySource source);

} // namespace parlex::gui
