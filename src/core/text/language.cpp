#include "core/text/language.h"

namespace parlex {
namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool sameWord(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (lower(a[i]) != lower(b[i]))
            return false;
    return true;
}

template <class Value, class Append>
void fillInto(std::string& out, std::string_view pattern, std::initializer_list<Value> values,
              const Append& append) {
    out.reserve(pattern.size());
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        const bool placeholder = pattern[i] == '{' && i + 2 < pattern.size() &&
                                 pattern[i + 1] >= '1' && pattern[i + 1] <= '9' &&
                                 pattern[i + 2] == '}';
        const auto number = placeholder ? static_cast<std::size_t>(pattern[i + 1] - '1') : 0;
        if (placeholder && number < values.size()) {
            append(out, *(values.begin() + number));
            i += 2;
        } else {
            out += pattern[i];
        }
    }
}

} // namespace

std::string fill(std::string_view pattern, std::initializer_list<std::string_view> values) {
    std::string out;
    fillInto(out, pattern, values, [](std::string& o, std::string_view v) { o += v; });
    return out;
}

Said say(const Text& text, std::initializer_list<Said> values) {
    Said said;
    said.ru.clear();
    fillInto(said.ru, text.ru, values, [](std::string& o, const Said& v) { o += v.ru; });
    fillInto(said.en, text.en, values, [](std::string& o, const Said& v) { o += v.en; });
    return said;
}

std::optional<Language> languageNamed(std::string_view name) {
    if (sameWord(name, "ru"))
        return Language::Russian;
    if (sameWord(name, "en"))
        return Language::English;
    return std::nullopt;
}

Language languageOfEnvironment(const std::function<const char*(const char*)>& variable) {
    const auto value = [&](const char* name) -> std::string_view {
        const char* v = variable(name);
        return v ? v : "";
    };
    if (const auto chosen = languageNamed(value("PARLEX_LANG")))
        return *chosen;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string_view locale = value(name);
        if (locale.empty())
            continue;
        // "en", "en_GB.UTF-8", "en@quot": the language ends at the first of _ . @
        const std::string_view language = locale.substr(0, locale.find_first_of("_.@"));
        return sameWord(language, "en") ? Language::English : Language::Russian;
    }
    return Language::Russian;
}

} // namespace parlex
