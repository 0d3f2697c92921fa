#include "session/session.h"

#include "session/commandline.h"

#include <cmath>

namespace parlex::session {

Session::Session(UserPrompts& prompts, std::filesystem::path programDir, QObject* parent)
    : QObject(parent), prompts_(prompts), programDir_(std::move(programDir)),
      lists_(prompts, programDir_), speech_(prompts, options_, programDir_),
      disk_(prompts, document_), cursor_(document_, lists_.lists(), options_, speech_, prompts),
      flows_(prompts, document_, disk_, speech_, programDir_) {
    connect(&disk_, &DiskWatch::reloadWanted, this, [this] { flows_.reload(); });
}

// ---------------------------------------------------------------- options

namespace {

// The file keeps colours as the platform's colour value, 0x00BBGGRR; a system colour
// (negative) stands for the usual white of a text box.
unsigned rgbOf(std::int32_t colourRef) {
    if (colourRef < 0 || colourRef > 0xFFFFFF)
        return 0xFFFFFF;
    const auto c = static_cast<unsigned>(colourRef);
    return ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF);
}

std::int32_t colourRefOf(unsigned rgb) {
    return static_cast<std::int32_t>(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF));
}

} // namespace

void Session::setOptions(const Options& options) {
    if (options == options_)
        return;
    options_ = options;
    emit optionsChanged();
}

void Session::updateOptions(const std::function<void(Options&)>& change) {
    Options changed = options_;
    change(changed);
    setOptions(changed);
}

void Session::choosePhraseColour() {
    if (const auto colour = prompts_.chooseColour(options_.phraseBackColour))
        updateOptions([&](Options& o) { o.phraseBackColour = *colour & 0xFFFFFFu; });
}

void Session::choosePhraseFont() {
    if (const auto font = prompts_.chooseFont(options_.phraseFont, 4, 18))
        updateOptions([&](Options& o) { o.phraseFont = *font; });
}

void Session::restore(const Settings& s) {
    options_.toolTips = s.toolTips;
    options_.animation = s.animation;
    options_.flagOverwrite = s.flagOverwrite;
    options_.showMessages = s.showMessages;
    options_.helpFontSize = static_cast<int>(std::lround(s.helpFontSize));
    options_.helpAlignment = s.helpAlignment;
    options_.phraseFont = {s.fontName, s.fontSize, s.bold, s.italic};
    options_.phraseBackColour = rgbOf(s.backColour);
    options_.rememberPath = s.rememberPath;
    options_.findEdtName = s.findEdtName;
    options_.autoLoad = s.autoLoad;
    if (!s.scriptPath.empty())
        flows_.setLastPath(platform::pathFromUtf8(s.scriptPath));
    if (!s.speechPath.empty())
        speech_.setRememberedPath(platform::pathFromUtf8(s.speechPath));
    emit optionsChanged();
}

Settings Session::remembered(Settings s) const {
    s.toolTips = options_.toolTips;
    s.animation = options_.animation;
    s.flagOverwrite = options_.flagOverwrite;
    s.showMessages = options_.showMessages;
    s.helpFontSize = options_.helpFontSize;
    s.helpAlignment = options_.helpAlignment;
    s.fontName = options_.phraseFont.family;
    s.fontSize = options_.phraseFont.pointSize;
    s.bold = options_.phraseFont.bold;
    s.italic = options_.phraseFont.italic;
    s.backColour = colourRefOf(options_.phraseBackColour);
    s.rememberPath = options_.rememberPath;
    s.findEdtName = options_.findEdtName;
    s.autoLoad = options_.autoLoad;
    s.scriptPath = platform::utf8(flows_.lastPath());
    s.speechPath = platform::utf8(speech_.rememberedPath());
    return s;
}

// ---------------------------------------------------------------- start and end

bool Session::start(const QStringList& arguments, const QString& programName) {
    return runCommandLine(arguments, programName, prompts_,
                          [this](const std::filesystem::path& path) { flows_.openPath(path); });
}

bool Session::queryClose() {
    return speech_.askSave() && flows_.askSave();
}

void Session::shutdown() {
    document_.clear();
    disk_.stop();
}

// ---------------------------------------------------------------- edits at the cursor

void Session::deleteRecord(bool standard) {
    if (cursor_.currentRecord())
        document_.wipe(cursor_.recordIndex(), standard);
}

void Session::copyRecord() {
    if (cursor_.currentRecord())
        document_.copy(cursor_.recordIndex());
}

void Session::pasteRecord() {
    if (cursor_.currentRecord())
        document_.paste(cursor_.recordIndex());
}

void Session::undo() {
    if (const auto index = document_.undo())
        cursor_.setPosition(static_cast<int>(*index) + 1);
}

void Session::redo() {
    if (const auto index = document_.redo())
        cursor_.setPosition(static_cast<int>(*index) + 1);
}

} // namespace parlex::session
