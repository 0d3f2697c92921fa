#pragma once

#include "core/text/language.h"

#include <string>

namespace parlex {

// A font as the user chooses it for a text.
struct TextFont {
    std::string family = "MS Sans Serif";
    double pointSize = 9.75;
    bool bold = false;
    bool italic = false;
    bool operator==(const TextFont&) const = default;
};

// What the user can set, as a first start has it. The settings file keeps these
// between runs; the options dialog, the help area and the phrase style change them.
struct Options {
    bool toolTips = false;         // hints on the grid, the help label and the slider
    bool paneFollowsPhrase = true; // the speech pane shows the phrase of the record's byte 14
    bool animationOff = false;     // dialogs close at once, without shrinking away
    int helpFontSize = 8;          // point size of the help text under the grid: 8-14
    int helpAlignment = 0;         // of the help text: 0 left, 1 right, 2 centre
    bool findEdtName = true;       // a script opened names its speech file (053.npc -> 053.EDT)
    bool autoLoad = false;         // ... and that speech file is opened with it
    bool rememberPath = false;     // the speech file's dialog starts at the last speech file
    bool flagOverwrite = true;     // ask before a list file is replaced
    unsigned phraseBackColour = 0xFFFFFF;  // of the phrase text, 0xRRGGBB
    TextFont phraseFont;                   // of the phrase text, 4-18 points
    Language language = Language::Russian; // of every text of the window
    bool operator==(const Options&) const = default;
};

} // namespace parlex
