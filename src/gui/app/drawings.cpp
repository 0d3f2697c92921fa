#include "gui/app/drawings.h"

#include <QImage>
#include <QPixmap>

namespace parlex::gui {
namespace {

QIcon iconOf(std::span<const drawings::Drawing> drawn) {
    QIcon icon;
    for (const auto& d : drawn)
        icon.addPixmap(QPixmap::fromImage(QImage(reinterpret_cast<const uchar*>(d.pixels), d.size,
                                                 d.size, QImage::Format_ARGB32_Premultiplied)));
    return icon;
}

} // namespace

QIcon programIcon() {
    static const QIcon icon = iconOf(drawings::program());
    return icon;
}

QIcon scriptIcon() {
    return iconOf(drawings::script());
}

} // namespace parlex::gui
