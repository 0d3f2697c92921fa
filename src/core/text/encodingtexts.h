#pragma once

// What the core says of text it cannot convert, in each language.
#include "core/text/language.h"

namespace parlex::encodingtexts {

enum class Say { NotUtf8, NotInCp1251 };

inline constexpr auto kTexts = textTable<Say>({
    {Say::NotUtf8, {"Текст не является корректным UTF-8.", "The text is not valid UTF-8."}},
    {Say::NotInCp1251,
     {"Символ {1} нельзя записать в кодировке Windows-1251.",
      "The character {1} cannot be written in the Windows-1251 code page."}},
});

} // namespace parlex::encodingtexts
