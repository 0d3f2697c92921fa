#pragma once

// What the core says of code lists and their files, in each language.
#include "core/text/language.h"

namespace parlex::listtexts {

enum class Say {
    Number,
    RowLimit,
    RowLimitMarker,
    Unreadable,
    FileHeader,
    Exists,
};

inline constexpr auto kTexts = textTable<Say>({
    {Say::Number, {"№_{1}", "#{1}"}},
    {Say::RowLimit,
     {"Достигнут предел потребления ресурсов памяти.\nСейчас будет очищены все занимаемые этой "
      "программой\nресурсы памяти. Остоновка на чтении.... \nСтрока: {1}\nНомер стороки: {2}",
      "The list has reached the most rows the program shows.\nReading stops here.\nLine: "
      "{1}\nLine number: {2}"}},
    {Say::RowLimitMarker, {"Error - аварийное прерывание", "Error - reading stopped"}},
    {Say::Unreadable, {"Error {1}\n{2}\nФайл: {3}", "Error {1}\n{2}\nFile: {3}"}},
    {Say::FileHeader,
     {"; Вы можете изменять значения данного списка\r\n"
      "; и при наличии данного файла в директории с программой\r\n"
      "; данные будут загружаться из списка\r\n"
      "; Parlex (v.2.01) - редактор скриптов и речи НПЦ Jagged Alliance 2 и Unfinished "
      "Business\r\n",
      "; You can change the values of this list,\r\n"
      "; and while this file is in the program's folder\r\n"
      "; the list is read from it\r\n"
      "; Parlex (v.2.01) - an editor of the NPC scripts and speech of Jagged Alliance 2 and "
      "Unfinished Business\r\n"}},
    {Say::Exists,
     {"Файл {1}\nуже существует. Заменить его?", "The file {1}\nalready exists. Replace it?"}},
});

} // namespace parlex::listtexts
