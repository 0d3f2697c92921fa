#include "gui/app/drawings.h"

#include <QImage>
#include <QPixmap>

namespace parlex::gui {
namespace {

// The pictures up to `largest` pixels.
QIcon iconOf(std::span<const drawings::Drawing> drawn, int largest = 1 << 16) {
    QIcon icon;
    for (const auto& d : drawn)
        if (d.size <= largest)
            icon.addPixmap(
                QPixmap::fromImage(QImage(reinterpret_cast<const uchar*>(d.pixels), d.size, d.size,
                                          QImage::Format_ARGB32_Premultiplied)));
    return icon;
}

} // namespace

QIcon programIcon() {
    static const QIcon icon = iconOf(drawings::program(), 64);
    return icon;
}

QIcon aboutPicture() {
    return iconOf(drawings::program());
}

QIcon scriptIcon() {
    return iconOf(drawings::script());
}

} // namespace parlex::gui
