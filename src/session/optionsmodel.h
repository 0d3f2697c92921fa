#pragma once

#include "core/association/fileassociation.h"
#include "core/codelists/listkey.h"
#include "core/text/language.h"

#include <QString>
#include <array>

namespace parlex::session {

class Session;

// The check boxes of the options dialog, by their control names.
enum class OptionBox {
    Check,   // ask before a list file is replaced
    CheckR,  // scripts open with this program
    CheckA,  // no shrinking animation
    CheckH,  // tool tips
    CheckM,  // the speech pane follows the record's phrase
    CheckS,  // the speech file's name follows the script's
    CheckS1, // ... and it is loaded at once
    CheckUS, // the last speech file's path is remembered instead
};
inline constexpr int kOptionBoxCount = 8;

struct BoxState {
    bool ticked = false;
    bool enabled = true;
    bool operator==(const BoxState&) const = default;
};

// What the options dialog does, without its widgets: the boxes as the options and
// the association have them at opening, the two tabs, the effect of every click and
// what is stored when the dialog closes.
//
// Most boxes change their option at the click. The two ways of finding the speech
// file exclude each other: exactly one of CheckS and CheckUS is ticked, and the
// ticked one is the one enabled, so the user swaps them by unticking the enabled box.
// They and CheckS1 reach the options only at closing. CheckR ties scripts to the
// program at once; closing does not undo it.
class OptionsModel {
public:
    // `association` may be null where the desktop offers none: CheckR stays unticked
    // and disabled.
    OptionsModel(Session& session, FileAssociation* association);

    BoxState box(OptionBox box) const { return boxes_[static_cast<int>(box)]; }
    // A box the user ticks or unticks.
    void setTicked(OptionBox box, bool ticked);
    // The language of the window, chosen on the "Интерфейс" tab: it changes at once.
    Language language() const;
    void setLanguage(Language language);

    // 1 "Загрузка": the list buttons and Check; 2 "Интерфейс": the other boxes.
    int tab() const { return tab_; }
    void selectTab(int tab);
    QString frameCaption() const;
    bool onShownTab(OptionBox box) const;

    // A list button, and "Извлечь всё" (every list in button order, each with its own
    // question).
    void extract(ListKey key);
    void extractAll();

    // The dialog closes: the way of finding the speech file and the loading at once
    // are stored.
    void close();

private:
    BoxState& state(OptionBox box) { return boxes_[static_cast<int>(box)]; }

    Session& session_;
    FileAssociation* association_;
    std::array<BoxState, kOptionBoxCount> boxes_{};
    int tab_ = 1;
};

} // namespace parlex::session
