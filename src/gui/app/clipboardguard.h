#pragma once

#include <QString>

namespace parlex::gui {

// Parlex clears the system clipboard at the end, but only of what it put there
// itself: a text the user copied in another program since then stays.
class ClipboardGuard {
public:
    void put(const QString& text);
    // Empties the clipboard if it still holds the text that put() placed there.
    void clearIfOurs();

private:
    QString ours_;
};

} // namespace parlex::gui
