#pragma once

#include <string>

namespace parlex::session {

// A font as the user chooses it for a text.
struct TextFont {
    std::string family = "MS Sans Serif";
    double pointSize = 9.75;
    bool bold = false;
    bool italic = false;
    bool operator==(const TextFont&) const = default;
};

// What the user can set. Until there is a settings file these are the values a
// first start has.
struct Options {
    bool toolTips = false;     // hints on the grid, the help label and the slider
    bool showMessages = true;  // the speech pane follows byte 14 of the record
    bool animation = false;    // set: dialogs close at once, without shrinking away
    int helpFontSize = 8;      // point size of the help text under the grid: 8-14
    int helpAlignment = 0;     // of the help text: 0 left, 1 right, 2 centre
    bool findEdtName = true;   // a script opened names its speech file (053.npc -> 053.EDT)
    bool autoLoad = false;     // ... and that speech file is opened with it
    bool rememberPath = false; // the speech file's dialog starts at the last speech file
    bool flagOverwrite = true; // ask before a list file is replaced
    unsigned phraseBackColour = 0xFFFFFF; // of the phrase text, 0xRRGGBB
    TextFont phraseFont;                  // of the phrase text
    bool operator==(const Options&) const = default;
};

} // namespace parlex::session
