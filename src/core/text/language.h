#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace parlex {

// The languages the program speaks. Russian is the default everywhere; nothing
// below the window keeps a language of its own: callers pass it in.
enum class Language { Russian, English };

// One text of the program in each language. "{1}" to "{9}" stand for the values
// that are filled in; both languages hold the same ones, in any order.
struct Text {
    std::string_view ru;
    std::string_view en;
    constexpr std::string_view in(Language language) const {
        return language == Language::English ? en : ru;
    }
};

// The texts of one subject, one row for each value of `Key` (0, 1, 2, ...) in that
// order; a row out of place does not compile.
template <class Key> struct TextRow {
    Key key;
    Text text;
};
template <class Key, std::size_t N> class TextTable {
public:
    consteval TextTable(const TextRow<Key> (&rows)[N]) {
        for (std::size_t i = 0; i < N; ++i) {
            if (static_cast<std::size_t>(rows[i].key) != i)
                throw "a text row out of the order of its keys";
            texts_[i] = rows[i].text;
        }
    }
    constexpr const Text& operator[](Key key) const {
        return texts_[static_cast<std::size_t>(key)];
    }
    constexpr std::string_view operator()(Key key, Language language) const {
        return (*this)[key].in(language);
    }
    constexpr const std::array<Text, N>& all() const { return texts_; }

private:
    std::array<Text, N> texts_{};
};
// A table written as textTable<Key>({{Key::A, {"...", "..."}}, ...}).
template <class Key, std::size_t N>
consteval TextTable<Key, N> textTable(const TextRow<Key> (&rows)[N]) {
    return TextTable<Key, N>(rows);
}

// `pattern` with "{1}", "{2}", ... replaced by the values in their order. A
// placeholder without a value stays as it is.
std::string fill(std::string_view pattern, std::initializer_list<std::string_view> values);

// Words already said in each language: what an error or a finding carries until a
// caller who knows the language shows it. A value said the same in each (a path, a
// number) converts from a plain string.
struct Said {
    std::string ru;
    std::string en;
    Said() = default;
    Said(std::string same) : ru(same), en(std::move(same)) {}
    Said(const char* same) : Said(std::string(same)) {}
    Said(std::string russian, std::string english)
        : ru(std::move(russian)), en(std::move(english)) {}
    const std::string& in(Language language) const {
        return language == Language::English ? en : ru;
    }
    Said& operator+=(const Said& more) {
        ru += more.ru;
        en += more.en;
        return *this;
    }
    friend Said operator+(Said a, const Said& b) { return a += b; }
    bool empty() const { return ru.empty() && en.empty(); }
};
// What `words(language)` says, in each language.
template <class Words> Said inEach(const Words& words) {
    return {words(Language::Russian), words(Language::English)};
}

// A text of a table with its values filled in, in each language.
Said say(const Text& text, std::initializer_list<Said> values = {});

// "ru" or "en", in any case; nothing for any other word.
std::optional<Language> languageNamed(std::string_view name);

// The language of the environment as a program of the command line finds it:
// PARLEX_LANG ("ru" or "en") first; else the first of LC_ALL, LC_MESSAGES and LANG
// that is set decides: English when it names English ("en", "en_GB.UTF-8"), else
// Russian ("C" and "POSIX" too). `variable` answers a variable's value, or null.
Language languageOfEnvironment(const std::function<const char*(const char*)>& variable);

} // namespace parlex
