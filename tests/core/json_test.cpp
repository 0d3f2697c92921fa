#include "core/speech/exchange.h"
#include "core/text/json.h"

#include <gtest/gtest.h>

namespace {

// Every escape, runs of plain text around them, and the reader taking it back.
TEST(JsonString, EscapesWhatItMustAndReadsBack) {
    struct Case {
        std::string text;
        std::string json;
    };
    const Case cases[] = {
        {"", "\"\""},
        {"plain текст", "\"plain текст\""},
        {"a\"b\\c", "\"a\\\"b\\\\c\""},
        {"\n\r\t", "\"\\n\\r\\t\""},
        {std::string("x\x01y\x1fz", 5), "\"x\\u0001y\\u001fz\""},
        {"end\"", "\"end\\\"\""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(parlex::text::jsonString(c.text), c.json);
        const auto back = parlex::phrasesFromJson("[" + c.json + "]");
        ASSERT_TRUE(back) << c.json;
        EXPECT_EQ(back->at(0).text, c.text);
    }
}

} // namespace

namespace {

// Bytes that make no UTF-8 character (a file name in another code page, a cut or an
// overlong sequence, a surrogate) each become U+FFFD; valid characters stay.
TEST(JsonString, ReplacesInvalidUtf8) {
    const std::string r = "\xEF\xBF\xBD";
    struct Case {
        std::string text;
        std::string json;
    };
    const Case cases[] = {
        {"\xff\xfe-bad.npc", "\"" + r + r + "-bad.npc\""},
        {"\xC0\xAF", "\"" + r + r + "\""},
        {"\xED\xA0\x80x", "\"" + r + r + r + "x\""},
        {"\xF0\x9F\x98\x80", "\"\xF0\x9F\x98\x80\""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parlex::text::jsonString(c.text), c.json) << c.json;
}

} // namespace
