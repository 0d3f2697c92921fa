#pragma once

// The program's pictures. tools/drawicons draws them from resources/icons/*.svg into
// pixels at build time, so that showing them needs neither Qt's SVG engine nor an
// image reader (each of which loads plug-ins the first paint can do without).
#include <QIcon>

#include <cstdint>
#include <span>

namespace parlex::gui {
namespace drawings {

struct Drawing {
    int size;                    // width and height, in pixels
    const std::uint32_t* pixels; // premultiplied ARGB, row by row
};

// Each picture at every size it is drawn in, smallest first.
std::span<const Drawing> program(); // the program's own: windows, the desktop
std::span<const Drawing> script();  // a script file: the status bar

} // namespace drawings

// An icon that has the picture at every size drawn: a screen of any pixel ratio
// gets the nearest one. The windows' icon stops at 64 pixels: a window sends every
// size its icon has to the X server as it is made, and title bars and task bars need
// no more; the About box shows the picture at 64 points, so it has them all.
QIcon programIcon();
QIcon aboutPicture();
QIcon scriptIcon();

} // namespace parlex::gui
