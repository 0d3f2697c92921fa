#include "core/speech/exchange.h"

#include "core/speech/decompiler.h"
#include "core/speech/edtfile.h"
#include "core/speech/speechtexts.h"
#include "core/text/cp1251.h"
#include "core/text/escape.h"
#include "core/text/json.h"
#include "core/text/lines.h"
#include "core/text/numbers.h"

#include <algorithm>
#include <charconv>

namespace parlex {
namespace {

using speechtexts::kTexts;
using speechtexts::Say;

// ------------------------------------------------------------------ JSON

// A reader of the one JSON shape the engine uses: an array of strings.
class JsonArrayReader {
public:
    explicit JsonArrayReader(std::string_view text) : s_(text) {}

    Result<std::vector<PhraseText>> read() {
        std::vector<PhraseText> out;
        skipBlanks();
        if (!take('['))
            return refuse(say(kTexts[Say::ArrayExpected]));
        skipBlanks();
        if (take(']'))
            return finish(out);
        while (true) {
            skipBlanks();
            auto text = string();
            if (!text)
                return std::unexpected(text.error());
            out.push_back({static_cast<int>(out.size()), std::move(*text)});
            skipBlanks();
            if (take(']'))
                return finish(out);
            if (!take(','))
                return refuse(say(kTexts[Say::CommaOrEnd]));
        }
    }

private:
    Result<std::vector<PhraseText>> finish(std::vector<PhraseText>& out) {
        skipBlanks();
        if (pos_ != s_.size())
            return refuse(say(kTexts[Say::TextAfterArray]));
        return std::move(out);
    }

    Result<std::string> string() {
        if (!take('"'))
            return refuse(say(kTexts[Say::StringExpected]));
        std::string out;
        while (pos_ < s_.size()) {
            const char c = s_[pos_++];
            if (c == '"')
                return out;
            if (static_cast<unsigned char>(c) < 0x20)
                return refuse(say(kTexts[Say::ControlInString]));
            if (c != '\\') {
                out += c;
                continue;
            }
            if (pos_ == s_.size())
                break;
            const char e = s_[pos_++];
            switch (e) {
            case '"':
                out += '"';
                break;
            case '\\':
                out += '\\';
                break;
            case '/':
                out += '/';
                break;
            case 'b':
                out += '\b';
                break;
            case 'f':
                out += '\f';
                break;
            case 'n':
                out += '\n';
                break;
            case 'r':
                out += '\r';
                break;
            case 't':
                out += '\t';
                break;
            case 'u': {
                auto cp = hex4();
                if (!cp)
                    return std::unexpected(cp.error());
                if (*cp >= 0xD800 && *cp < 0xDC00) { // a surrogate pair
                    if (!take('\\') || !take('u'))
                        return refuse(say(kTexts[Say::HalfSurrogate]));
                    auto low = hex4();
                    if (!low || *low < 0xDC00 || *low > 0xDFFF)
                        return refuse(say(kTexts[Say::HalfSurrogate]));
                    *cp = 0x10000 + ((*cp - 0xD800) << 10) + (*low - 0xDC00);
                }
                text::appendUtf8(out, static_cast<char32_t>(*cp));
                break;
            }
            default:
                return refuse(say(kTexts[Say::UnknownEscape]));
            }
        }
        return refuse(say(kTexts[Say::UnclosedString]));
    }

    Result<std::uint32_t> hex4() {
        if (pos_ + 4 > s_.size())
            return refuse(say(kTexts[Say::ShortUnicode]));
        std::uint32_t v = 0;
        const auto [end, ec] = std::from_chars(s_.data() + pos_, s_.data() + pos_ + 4, v, 16);
        if (ec != std::errc() || end != s_.data() + pos_ + 4)
            return refuse(say(kTexts[Say::BadUnicode]));
        pos_ += 4;
        return v;
    }

    void skipBlanks() {
        while (pos_ < s_.size() &&
               (s_[pos_] == ' ' || s_[pos_] == '\n' || s_[pos_] == '\r' || s_[pos_] == '\t'))
            ++pos_;
    }
    bool take(char c) {
        if (pos_ < s_.size() && s_[pos_] == c) {
            ++pos_;
            return true;
        }
        return false;
    }
    std::unexpected<Error> refuse(const Said& what) const {
        const auto line = 1 + std::count(s_.begin(), s_.begin() + static_cast<long>(pos_), '\n');
        return std::unexpected(Error::said(ErrorKind::Invalid,
                                           say(kTexts[Say::JsonAt], {std::to_string(line), what})));
    }

    std::string_view s_;
    std::size_t pos_ = 0;
};

// ------------------------------------------------------------------ gettext

std::string poEscaped(std::string_view utf8) {
    return '"' + text::backslashEscaped(utf8, "\"") + '"';
}

// The text of a quoted PO string (without its quotes), escapes undone.
std::optional<std::string> poUnquoted(std::string_view quoted) {
    if (quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"')
        return std::nullopt;
    std::string out;
    for (std::size_t i = 1; i + 1 < quoted.size(); ++i) {
        if (quoted[i] != '\\') {
            out += quoted[i];
            continue;
        }
        if (++i + 1 > quoted.size() - 1)
            return std::nullopt;
        switch (quoted[i]) {
        case 'n':
            out += '\n';
            break;
        case 'r':
            out += '\r';
            break;
        case 't':
            out += '\t';
            break;
        case '"':
            out += '"';
            break;
        case '\\':
            out += '\\';
            break;
        default:
            return std::nullopt;
        }
    }
    return out;
}

} // namespace

std::string phrasesToJson(const EdtFile& file) {
    std::string out = "[\n";
    for (int i = 0; i <= file.lastPhrase(); ++i)
        out += "  " + text::jsonString(file.phrase(i)) + (i < file.lastPhrase() ? ",\n" : "\n");
    return out + "]\n";
}

Result<std::vector<PhraseText>> phrasesFromJson(std::string_view json) {
    if (json.starts_with("\xEF\xBB\xBF"))
        json.remove_prefix(3);
    return JsonArrayReader(json).read();
}

std::string phrasesToPo(const EdtFile& file) {
    // The header of a catalogue not yet translated: the fields a translation tool
    // fills in stand as gettext's own templates have them.
    std::string out = "msgid \"\"\nmsgstr \"\"\n"
                      "\"Project-Id-Version: " +
                      file.title() +
                      "\\n\"\n"
                      "\"PO-Revision-Date: YEAR-MO-DA HO:MI+ZONE\\n\"\n"
                      "\"Last-Translator: FULL NAME <EMAIL@ADDRESS>\\n\"\n"
                      "\"Language-Team: LANGUAGE <LL@li.org>\\n\"\n"
                      "\"Language: \\n\"\n"
                      "\"MIME-Version: 1.0\\n\"\n"
                      "\"Content-Type: text/plain; charset=UTF-8\\n\"\n"
                      "\"Content-Transfer-Encoding: 8bit\\n\"\n"
                      "\"X-Generator: parlex-cli\\n\"\n";
    for (int i = 0; i <= file.lastPhrase(); ++i) {
        if (file.phraseBytes(i).empty())
            continue;
        out += "\n";
        if (file.kind() == EdtKind::NpcDialogues)
            if (const auto role = phraseRole(i); !role.empty())
                out += "#. " + role + "\n";
        out += "msgctxt \"" + text::zeroPadded(static_cast<unsigned>(i), 3) + "\"\n";
        out += "msgid " + poEscaped(file.phrase(i)) + "\n";
        out += "msgstr \"\"\n";
    }
    return out;
}

Result<std::vector<PhraseText>> phrasesFromPo(std::string_view po) {
    struct Entry {
        std::string context, id, str;
        bool fuzzy = false;
        int line = 0;
    };
    std::vector<PhraseText> out;
    Entry entry;
    std::string* open = nullptr; // the string that continuation lines add to
    int lineNumber = 0;
    const auto refuse = [](int line, const Said& what) {
        return std::unexpected(
            Error::said(ErrorKind::Invalid, say(kTexts[Say::PoAt], {std::to_string(line), what})));
    };
    const auto finish = [&]() -> std::optional<Error> {
        if (!entry.str.empty() && !entry.fuzzy && !entry.id.empty()) {
            int number = -1;
            const auto [end, ec] = std::from_chars(
                entry.context.data(), entry.context.data() + entry.context.size(), number);
            if (ec != std::errc() || end != entry.context.data() + entry.context.size())
                return Error::said(
                    ErrorKind::Invalid,
                    say(kTexts[Say::PoAt], {std::to_string(entry.line),
                                            say(kTexts[Say::ContextNotNumber], {entry.context})}));
            out.push_back({number, entry.str});
        }
        entry = {};
        open = nullptr;
        return std::nullopt;
    };
    for (std::string_view raw : text::splitLines(po)) {
        ++lineNumber;
        const std::string_view line = text::trimmed(raw);
        if (line.empty()) {
            if (auto error = finish())
                return std::unexpected(*error);
            continue;
        }
        if (line.starts_with("#,")) {
            entry.fuzzy = entry.fuzzy || line.find("fuzzy") != std::string_view::npos;
            continue;
        }
        if (line.starts_with("#"))
            continue;
        if (line.starts_with("\"")) {
            const auto more = poUnquoted(line);
            if (!open || !more)
                return refuse(lineNumber, say(kTexts[Say::LineOutsideEntry]));
            *open += *more;
            continue;
        }
        const auto blank = line.find(' ');
        const std::string_view keyword = line.substr(0, blank);
        const auto value =
            poUnquoted(blank == std::string_view::npos ? "" : text::trimmed(line.substr(blank)));
        if (!value)
            return refuse(lineNumber, say(kTexts[Say::QuotedExpected]));
        if ((keyword == "msgctxt" || (keyword == "msgid" && entry.context.empty())) &&
            !entry.str.empty()) {
            if (auto error = finish()) // an entry without a blank line before the next
                return std::unexpected(*error);
        }
        if (keyword == "msgctxt") {
            entry.context = *value, open = &entry.context, entry.line = lineNumber;
        } else if (keyword == "msgid") {
            entry.id = *value, open = &entry.id;
            if (!entry.line)
                entry.line = lineNumber;
        } else if (keyword == "msgstr") {
            entry.str = *value, open = &entry.str;
        } else {
            return refuse(lineNumber, say(kTexts[Say::UnknownKeyword], {std::string(keyword)}));
        }
    }
    if (auto error = finish())
        return std::unexpected(*error);
    return out;
}

Result<void> importPhrases(EdtFile& file, const std::vector<PhraseText>& phrases) {
    EdtFile changed = file;
    for (const auto& [number, text] : phrases) {
        if (number < 0 || number > file.lastPhrase())
            return fail(ErrorKind::Invalid,
                        say(kTexts[Say::NoSuchPhraseToImport],
                            {std::to_string(number), std::to_string(file.lastPhrase())}));
        if (auto set = changed.setPhrase(number, text); !set)
            return fail(ErrorKind::Invalid,
                        say(kTexts[Say::PhraseAt], {std::to_string(number), set.error().words()}));
    }
    file = std::move(changed);
    return {};
}

} // namespace parlex
