#include "core/text/cp1251.h"

#include <gtest/gtest.h>
#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

using namespace parlex::text;

namespace {

// The system's own converter, as an independent reference: code page 1251 of
// Windows, or the C library's iconv.
#ifdef _WIN32
std::string referenceDecode(unsigned char byte) {
    const char in[1] = {static_cast<char>(byte)};
    wchar_t wide[4] = {};
    const int n = ::MultiByteToWideChar(1251, MB_ERR_INVALID_CHARS, in, 1, wide, 4);
    if (n != 1)
        return {};
    char out[8] = {};
    const int m = ::WideCharToMultiByte(CP_UTF8, 0, wide, 1, out, sizeof out, nullptr, nullptr);
    return std::string(out, static_cast<std::size_t>(m));
}
#else
std::string referenceDecode(unsigned char byte) {
    iconv_t cd = ::iconv_open("UTF-8", "CP1251");
    char in[1] = {static_cast<char>(byte)};
    char out[8] = {};
    char* inp = in;
    char* outp = out;
    std::size_t inLeft = 1, outLeft = sizeof out;
    const std::size_t r = ::iconv(cd, &inp, &inLeft, &outp, &outLeft);
    ::iconv_close(cd);
    return r == static_cast<std::size_t>(-1) ? std::string() : std::string(out, outp);
}
#endif

TEST(Cp1251, EveryDefinedByteDecodesLikeTheSystemConverter) {
    int checked = 0;
    for (int b = 0; b < 256; ++b) {
        const std::string expected = referenceDecode(static_cast<unsigned char>(b));
        if (expected.empty())
            continue; // undefined in the system's table (0x98)
        EXPECT_EQ(cp1251ToUtf8(std::string(1, static_cast<char>(b))), expected) << "byte " << b;
        ++checked;
    }
    EXPECT_GE(checked, 255);
}

TEST(Cp1251, WhatTheCodePageLacksAndMalformedUtf8AreRefused) {
    for (const char* text : {"日本", "𝄞", "ok ✓", "\xC3", "\xE2\x82", "\xFF", "\xC0\xAF", "a\x80"})
        EXPECT_FALSE(utf8ToCp1251(text)) << ::testing::PrintToString(std::string(text));
    const auto refused = utf8ToCp1251("ok ✓");
    EXPECT_NE(refused.error().message.find("U+2713"), std::string::npos);
    EXPECT_NE(refused.error().message.find("Windows-1251"), std::string::npos);
}

} // namespace
