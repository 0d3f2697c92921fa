#include "core/speech/exchange.h"
#include "core/text/json.h"

#include <gtest/gtest.h>

namespace {

// Every escape, runs of plain text around them, and the reader taking it back. Bytes
// that make no UTF-8 character (a file name in another code page, a cut or an
// overlong sequence, a surrogate) each become U+FFFD; valid characters stay.
TEST(JsonString, EscapesWhatItMustAndReadsBack) {
    const std::string r = "\xEF\xBF\xBD";
    const std::pair<std::string, std::string> cases[] = {
        {"", "\"\""},
        {"plain текст", "\"plain текст\""},
        {"a\"b\\c", "\"a\\\"b\\\\c\""},
        {"\n\r\t", "\"\\n\\r\\t\""},
        {std::string("x\x01y\x1fz", 5), "\"x\\u0001y\\u001fz\""},
        {"end\"", "\"end\\\"\""},
        {"\xF0\x9F\x98\x80", "\"\xF0\x9F\x98\x80\""},
        {"\xff\xfe-bad.npc", "\"" + r + r + "-bad.npc\""},
        {"\xC0\xAF", "\"" + r + r + "\""},
        {"\xED\xA0\x80x", "\"" + r + r + r + "x\""},
    };
    for (const auto& [text, json] : cases) {
        EXPECT_EQ(parlex::text::jsonString(text), json);
        const auto back = parlex::phrasesFromJson("[" + json + "]");
        ASSERT_TRUE(back) << json;
        if (json.find(r) == std::string::npos) {
            EXPECT_EQ(back->at(0).text, text);
        }
    }
}

} // namespace
