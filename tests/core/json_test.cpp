#include "speech/exchange.h"
#include "text/json.h"

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
