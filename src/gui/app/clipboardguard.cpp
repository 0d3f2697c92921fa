#include "gui/app/clipboardguard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace parlex::gui {

void ClipboardGuard::put(const QString& text) {
    ours_ = text;
    QGuiApplication::clipboard()->setText(text);
}

void ClipboardGuard::clearIfOurs() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (!ours_.isEmpty() && clipboard->text() == ours_)
        clipboard->clear();
    ours_.clear();
}

} // namespace parlex::gui
