#pragma once

#include "core/common/error.h"

#include <string>
#include <string_view>
#include <vector>

// Speech files to and from the formats of other tools: a JSON array of phrases (the
// mod format of the open-source engine) and a gettext catalogue for translators.
namespace parlex {

class EdtFile;

// A phrase to be set: its number and its UTF-8 text.
struct PhraseText {
    int phrase;
    std::string text;
};

// Every phrase of the kind (0 to the last, "" for an empty one) as a JSON array of
// UTF-8 strings, one per line.
std::string phrasesToJson(const EdtFile& file);
// The strings of a JSON array, numbered from 0 by their place. A text that is no
// array of strings is refused with where it goes wrong.
Result<std::vector<PhraseText>> phrasesFromJson(std::string_view json);

// A gettext catalogue: one entry per non-empty phrase, its number (three digits) as
// the context, the phrase as msgid, an empty msgstr, and for phrases 0-10 of NPC
// dialogues the phrase's role as a comment.
std::string phrasesToPo(const EdtFile& file);
// The translated entries of a catalogue: every entry with a non-empty msgstr that is
// not marked fuzzy, by its context. An entry without a numeric context is refused.
Result<std::vector<PhraseText>> phrasesFromPo(std::string_view po);

// Sets the phrases into `file`, all or none: a number outside the kind or a text the
// file cannot hold (outside Windows-1251) is refused, naming the entry, and the file
// stays as it was.
Result<void> importPhrases(EdtFile& file, const std::vector<PhraseText>& phrases);

} // namespace parlex
