#pragma once

#include "core/explain/fieldlayout.h"
#include "core/npc/npcrecord.h"

#include <cstdint>
#include <optional>
#include <string>

namespace parlex::session {

class Session;

// The byte editor without its widgets: a private copy of the current record, the
// field chosen in it, the mode (Byte or Word) that follows the field, the number
// being typed and its encoding, and when Replace and Apply may be pressed. Replace
// changes the copy only; Apply hands the copy to the session's one edit path, so it
// is one step of undo and the grid, the explanation and the change test follow.
class ByteEditor {
public:
    // What became of a request to encode.
    enum class Encoding {
        Encoded,
        Refused, // nothing to encode, or the entry is out of range: the user hears a beep
        Ignored, // the other mode's button, which is disabled
    };

    // The editor on byte `byteIndex` of the current record, or on the byte that the
    // position text names when no byte is given. Nothing when no record is shown.
    static std::optional<ByteEditor> open(Session& session, std::optional<int> byteIndex);

    // ------------------------------------------------------------ the field
    // Chooses a row of the field chooser (0-23): shows its help and mark on the main
    // window, switches the mode and checks the entry against the new limit.
    void selectRow(int row);
    int row() const { return row_; }
    int field() const;       // the index of the chosen field's first byte
    FieldWidth mode() const; // Byte or Word: which of the two buttons is enabled
    std::string caption(Language language = Language::Russian) const; // "Запись 05 : Байты 21-22"
    std::string currentHex() const; // the field in the copy: "0C 01"
    std::uint32_t currentValue() const;
    const NpcRecord& copy() const { return copy_; }

    // ------------------------------------------------------------ the entry
    // The text typed or pasted. Text that is no number at all is refused and the
    // entry emptied; returns false then (the user hears a beep). Text that is a
    // number of another form than plain digits is kept but counts as out of range.
    bool setEntry(const std::string& text);
    const std::string& entry() const { return entry_; }
    // The colour of the entry: red when out of range. An empty entry keeps the
    // colour of the text before it.
    bool entryOutOfRange() const { return outOfRange_; }
    // What the typed number means in the field's code list ("?" for an unknown
    // code); empty for a field without a list or an entry that does not fit.
    std::string entryMeaning() const;

    // Encodes the entry as a Byte or a Word; only the present mode's button does.
    Encoding encode(FieldWidth mode);
    const std::string& encodedText() const { return encoded_; }
    // The greatest value offered by the label of `mode`: a left click enters it and
    // encodes, another click puts it on the clipboard. Nothing in the other mode.
    std::optional<std::string> offeredMaximum(FieldWidth mode) const;
    Encoding enterMaximum(FieldWidth mode);

    // ------------------------------------------------------------ the copy and the record
    bool canReplace() const; // an encoded text of the field's width
    bool canApply() const { return applyPending_; }
    void replace(); // the encoded value into the copy's field
    bool apply();   // the copy into the record; false if the record is gone

private:
    ByteEditor(Session& session, int byteIndex);
    void validate();
    void refreshGrid();
    const NpcRecord* record() const; // the record edited, as the document holds it

    Session* session_;
    int recordIndex_;
    NpcRecord copy_;
    int row_ = 0;
    std::string entry_;
    bool outOfRange_ = false;
    std::string encoded_;
    std::optional<std::uint32_t> encodedValue_;
    bool applyPending_ = false;
};

} // namespace parlex::session
