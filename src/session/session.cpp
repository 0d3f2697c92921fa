#include "session/session.h"

#include "session/commandline.h"

namespace parlex::session {

Session::Session(UserPrompts& prompts, std::filesystem::path programDir, QObject* parent)
    : QObject(parent), prompts_(prompts), programDir_(std::move(programDir)),
      lists_(prompts, programDir_), speech_(prompts, options_, programDir_),
      disk_(prompts, document_), cursor_(document_, lists_.lists(), options_, speech_, prompts),
      flows_(prompts, document_, disk_, speech_, programDir_) {
    connect(&disk_, &DiskWatch::reloadWanted, this, [this] { flows_.reload(); });
}

// ---------------------------------------------------------------- options

OptionChanges optionChanges(const Options& before, const Options& after) {
    OptionChanges changed;
    if (before.helpFontSize != after.helpFontSize || before.helpAlignment != after.helpAlignment)
        changed |= OptionChange::HelpText;
    if (before.toolTips != after.toolTips)
        changed |= OptionChange::ToolTips;
    if (before.phraseBackColour != after.phraseBackColour || before.phraseFont != after.phraseFont)
        changed |= OptionChange::PhraseStyle;
    if (before.language != after.language)
        changed |= OptionChange::Language;
    Options rest = after; // what is left once the looks and the language are set alike
    rest.language = before.language;
    rest.helpFontSize = before.helpFontSize;
    rest.helpAlignment = before.helpAlignment;
    rest.toolTips = before.toolTips;
    rest.phraseBackColour = before.phraseBackColour;
    rest.phraseFont = before.phraseFont;
    if (!(rest == before))
        changed |= OptionChange::Behaviour;
    return changed;
}

void Session::setOptions(const Options& options) {
    const OptionChanges changed = optionChanges(options_, options);
    if (!changed)
        return;
    options_ = options;
    prompts_.setLanguage(options_.language);
    emit optionsChanged(changed);
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

void Session::restore(const Settings& settings) {
    options_ = settings.options;
    prompts_.setLanguage(options_.language);
    if (!settings.scriptPath.empty())
        flows_.setLastPath(platform::pathFromUtf8(settings.scriptPath));
    if (!settings.speechPath.empty())
        speech_.setRememberedPath(platform::pathFromUtf8(settings.speechPath));
    emit optionsChanged(OptionChange::HelpText | OptionChange::ToolTips |
                        OptionChange::PhraseStyle | OptionChange::Behaviour |
                        OptionChange::Language);
}

Settings Session::remembered(Settings base) const {
    base.options = options_;
    base.scriptPath = platform::utf8(flows_.lastPath());
    base.speechPath = platform::utf8(speech_.rememberedPath());
    return base;
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
