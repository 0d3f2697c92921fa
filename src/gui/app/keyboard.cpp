#include "gui/app/keyboard.h"

#include <string>

namespace parlex::gui {
namespace {

// The letters of the main block by XKB key code, row by row (Q W E ..., A S D ..., Z X C ...).
constexpr struct {
    quint32 firstCode;
    const char* letters;
} kX11Rows[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

} // namespace

KeySource keySourceFor(const QString& platformName) {
    if (platformName == "xcb" || platformName.startsWith("wayland"))
        return KeySource::X11;
    if (platformName == "windows")
        return KeySource::Windows;
    return KeySource::Other;
}

int latinKey(int key, quint32 nativeScanCode, quint32 nativeVirtualKey, KeySource source) {
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return key;
    switch (source) {
    case KeySource::X11:
        for (const auto& row : kX11Rows) {
            const quint32 column = nativeScanCode - row.firstCode;
            if (nativeScanCode >= row.firstCode &&
                column < std::char_traits<char>::length(row.letters))
                return Qt::Key_A + (row.letters[column] - 'A');
        }
        break;
    case KeySource::Windows:
        if (nativeVirtualKey >= 'A' && nativeVirtualKey <= 'Z')
            return Qt::Key_A + static_cast<int>(nativeVirtualKey - 'A');
        break;
    case KeySource::Other:
        break;
    }
    return key;
}

} // namespace parlex::gui
