// The two languages of the core's texts, held against each other, and how a
// language is chosen.
#include "core/codelists/resources.h"
#include "core/explain/explainer.h"
#include "core/explain/fieldlayout.h"
#include "core/settings/settingsfile.h"
#include "core/text/catalogue.h"
#include "core/text/language.h"

#include "testutil.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <tuple>

namespace {

using namespace parlex;

// The placeholders of a text, sorted: "{2} ... {1}" gives "{1}{2}".
std::string placeholders(std::string_view text) {
    std::vector<std::string> found;
    for (std::size_t i = 0; i + 2 < text.size(); ++i)
        if (text[i] == '{' && text[i + 1] >= '1' && text[i + 1] <= '9' && text[i + 2] == '}')
            found.emplace_back(text.substr(i, 3));
    std::ranges::sort(found);
    std::string all;
    for (const auto& p : found)
        all += p;
    return all;
}

TEST(Language, EveryTextHasBothLanguagesWithTheSamePlaceholders) {
    const auto all = textCatalogue();
    ASSERT_FALSE(all.empty());
    for (const auto& [table, text] : all) {
        SCOPED_TRACE(std::string(table) + ": " + std::string(text.ru));
        EXPECT_FALSE(text.ru.empty());
        EXPECT_FALSE(text.en.empty());
        EXPECT_EQ(placeholders(text.ru), placeholders(text.en));
        EXPECT_FALSE(testutil::hasCyrillic(text.en));
        // A text with Russian words has English ones of its own.
        if (testutil::hasCyrillic(text.ru)) {
            EXPECT_NE(text.ru, text.en);
        }
    }
}

// Every field has its help text in each language: a title, an empty line, a body.
TEST(Language, EveryFieldHasItsHelpInBothLanguages) {
    for (const FieldInfo& field : fieldTable()) {
        const auto russian = helpText(field.index, Language::Russian);
        const auto english = helpText(field.index, Language::English);
        ASSERT_TRUE(russian && english) << field.index;
        EXPECT_FALSE(testutil::hasCyrillic(*english)) << field.index;
        const auto lines = [](const std::string& text) { return std::ranges::count(text, '\n'); };
        EXPECT_EQ(lines(*russian), lines(*english)) << field.index;
        // "Байты 01-02 (as Word) - ..." and "Bytes 01-02 (as Word) - ...": the same bytes.
        const auto bytesOf = [](const std::string& text) {
            const auto from = text.find(' ');
            return text.substr(from, text.find(')') - from);
        };
        EXPECT_EQ(bytesOf(*russian), bytesOf(*english));
    }
}

TEST(Language, FillPutsValuesInTheirPlaces) {
    const std::tuple<std::string_view, std::vector<std::string_view>, std::string> cases[] = {
        {"{1} from {2}", {"a", "b"}, "a from b"},
        {"{2} and {1}{1}", {"a", "b"}, "b and aa"},
        {"{3} stays, {1}", {"a"}, "{3} stays, a"},
        {"{x} {0} {", {"a"}, "{x} {0} {"},
    };
    for (const auto& [pattern, values, expected] : cases) {
        std::string got;
        switch (values.size()) {
        case 1:
            got = fill(pattern, {values[0]});
            break;
        default:
            got = fill(pattern, {values[0], values[1]});
        }
        EXPECT_EQ(got, expected) << pattern;
    }
    const Said said = say({"{1} и {2}", "{2} and {1}"}, {Said("один", "one"), "2"});
    EXPECT_EQ(said.ru, "один и 2");
    EXPECT_EQ(said.en, "2 and one");
}

TEST(Language, TheEnvironmentChoosesEnglishOnlyWhenItNamesIt) {
    using Env = std::map<std::string, std::string>;
    const std::tuple<Env, Language> cases[] = {
        {Env{}, Language::Russian},
        {{{"LANG", "en_GB.UTF-8"}}, Language::English},
        {{{"LANG", "en"}}, Language::English},
        {{{"LANG", "EN_us"}}, Language::English},
        {{{"LANG", "C"}}, Language::Russian},
        {{{"LANG", "POSIX"}}, Language::Russian},
        {{{"LANG", "eng_XX"}}, Language::Russian},
        {{{"LANG", "de_DE.UTF-8"}}, Language::Russian},
        // The first of LC_ALL, LC_MESSAGES and LANG that is set decides.
        {{{"LC_ALL", "ru_RU.UTF-8"}, {"LANG", "en_US.UTF-8"}}, Language::Russian},
        {{{"LC_MESSAGES", "en_AU"}, {"LANG", "ru_RU"}}, Language::English},
        {{{"LC_ALL", ""}, {"LANG", "en@quot"}}, Language::English},
        // PARLEX_LANG before them all; a word it does not know leaves them to decide.
        {{{"PARLEX_LANG", "en"}, {"LC_ALL", "ru_RU"}}, Language::English},
        {{{"PARLEX_LANG", "RU"}, {"LANG", "en_US"}}, Language::Russian},
        {{{"PARLEX_LANG", "fr"}, {"LANG", "en_US"}}, Language::English},
    };
    for (const auto& [env, expected] : cases) {
        const auto get = [&env](const char* name) -> const char* {
            const auto it = env.find(name);
            return it == env.end() ? nullptr : it->second.c_str();
        };
        EXPECT_EQ(languageOfEnvironment(get), expected) << testing::PrintToString(env);
    }
}

// The window's language is a key of its own in the settings file, written only for
// English, so that a Russian file keeps the old program's lines.
TEST(Language, TheSettingsFileKeepsTheWindowsLanguage) {
    const ScreenTwips screen{19200, 10800, 120, 600};
    const auto read = [&](const std::string& text) {
        Settings s;
        applySettingsText(text, s, screen, [](const std::string&) { return true; });
        return s.options.language;
    };
    EXPECT_EQ(read("[INTERFACE]\r\nLanguage=en\r\n"), Language::English);
    EXPECT_EQ(read("[INTERFACE]\r\nLanguage=EN\r\n"), Language::English);
    EXPECT_EQ(read("[INTERFACE]\r\nLanguage=de\r\n"), Language::Russian);
    EXPECT_EQ(read("[INTERFACE]\r\nToolTip=1\r\n"), Language::Russian);

    Settings english;
    english.options.language = Language::English;
    const std::string written = settingsText(english);
    EXPECT_EQ(read(written), Language::English);
    EXPECT_NE(written.find("AutoLoad=0\r\nLanguage=en\r\n\r\n[HISTORY]"), std::string::npos);
    EXPECT_EQ(settingsText(Settings{}).find("Language"), std::string::npos);
}

TEST(Language, EnglishCountsPhrasesInItsOwnWay) {
    const std::tuple<std::uint32_t, std::string, std::string> cases[] = {
        {1, " фразу ", " phrase "},  {2, " фразы ", " phrases "},  {5, " фраз ", " phrases "},
        {11, " фраз ", " phrases "}, {21, " фразу ", " phrases "},
    };
    for (const auto& [count, russian, english] : cases) {
        EXPECT_EQ(phraseWord(count, Language::Russian), russian) << count;
        EXPECT_EQ(phraseWord(count, Language::English), english) << count;
    }
}

} // namespace
