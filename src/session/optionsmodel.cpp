#include "session/optionsmodel.h"

#include "session/session.h"

#include <QCoreApplication>

namespace parlex::session {

OptionsModel::OptionsModel(Session& session, FileAssociation* association)
    : session_(session), association_(association) {
    const Options& options = session_.options();
    state(OptionBox::Check).ticked = options.flagOverwrite;
    state(OptionBox::CheckR) = {association_ && association_->isAssociated(),
                                association_ != nullptr};
    state(OptionBox::CheckA).ticked = options.animationOff;
    state(OptionBox::CheckH).ticked = options.toolTips;
    state(OptionBox::CheckM).ticked = options.paneFollowsPhrase;
    state(OptionBox::CheckS1).ticked = options.autoLoad;
    const bool remember = options.rememberPath;
    state(OptionBox::CheckS) = {!remember, !remember};
    state(OptionBox::CheckS1).enabled = !remember;
    state(OptionBox::CheckUS) = {remember, remember};
}

void OptionsModel::setTicked(OptionBox box, bool ticked) {
    if (!state(box).enabled)
        return;
    Options options = session_.options();
    switch (box) {
    case OptionBox::Check:
        options.flagOverwrite = ticked;
        break;
    case OptionBox::CheckA:
        options.animationOff = ticked;
        break;
    case OptionBox::CheckH:
        options.toolTips = ticked;
        break;
    case OptionBox::CheckM:
        options.paneFollowsPhrase = ticked;
        break;
    case OptionBox::CheckS1:
        break; // stored at closing
    case OptionBox::CheckR:
        // A failure is not told: the box shows the true state at the next opening.
        if (association_)
            ticked ? (void)association_->associate() : (void)association_->disassociate();
        break;
    case OptionBox::CheckS:
    case OptionBox::CheckUS: {
        if (ticked)
            return; // only unticking the enabled box swaps the two
        const bool remember = box == OptionBox::CheckS;
        state(OptionBox::CheckS) = {!remember, !remember};
        state(OptionBox::CheckUS) = {remember, remember};
        state(OptionBox::CheckS1).enabled = !remember;
        return;
    }
    }
    state(box).ticked = ticked;
    session_.setOptions(options);
}

Language OptionsModel::language() const {
    return session_.options().language;
}

void OptionsModel::setLanguage(Language language) {
    session_.updateOptions([language](Options& o) { o.language = language; });
}

void OptionsModel::selectTab(int tab) {
    tab_ = tab == 2 ? 2 : 1;
}

QString OptionsModel::frameCaption() const {
    return tab_ == 2 ? QCoreApplication::translate("OptionsModel", "Разное")
                     : QCoreApplication::translate("OptionsModel", "Извлечь список");
}

bool OptionsModel::onShownTab(OptionBox box) const {
    return (box == OptionBox::Check) == (tab_ == 1);
}

void OptionsModel::extract(ListKey key) {
    session_.lists().extract(key, box(OptionBox::Check).ticked);
}

void OptionsModel::extractAll() {
    for (ListKey key :
         {ListKey::R, ListKey::A, ListKey::T, ListKey::I, ListKey::N, ListKey::Qi, ListKey::Qo})
        extract(key);
}

void OptionsModel::close() {
    Options options = session_.options();
    options.findEdtName = box(OptionBox::CheckS).enabled;
    options.rememberPath = !options.findEdtName;
    options.autoLoad = box(OptionBox::CheckS1).ticked;
    session_.setOptions(options);
}

} // namespace parlex::session
