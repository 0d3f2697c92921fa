<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="ru_RU">
<context>
    <name>CommandLine</name>
    <message>
        <source>PARLEX - ОШИБКА ЗАГРУЗКИ</source>
        <translation>PARLEX - CANNOT OPEN</translation>
    </message>
</context>
<context>
    <name>DialogPrompts</name>
    <message>
        <source>Да</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>Нет</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>FilePropWindow</name>
    <message>
        <source>Файл открыт как</source>
        <translation>Opened as</translation>
    </message>
    <message>
        <source>Число существующих строк</source>
        <translation>Phrases with text</translation>
    </message>
    <message>
        <source>Номер первой существующей строки</source>
        <translation>First phrase with text</translation>
    </message>
    <message>
        <source>Номер последней существующей строки</source>
        <translation>Last phrase with text</translation>
    </message>
    <message>
        <source>Текущий размер файла на диске</source>
        <translation>Size on disk</translation>
    </message>
    <message>
        <source>Предпологаемый размер при сохранении</source>
        <translation>Size after a save</translation>
    </message>
    <message>
        <source>Перейти к началу</source>
        <translation>Go to the first phrase</translation>
    </message>
    <message>
        <source>Перейти в конец</source>
        <translation>Go to the last phrase</translation>
    </message>
    <message>
        <source>Следующая строка</source>
        <translation>Next phrase</translation>
    </message>
    <message>
        <source>Стрелка вправо</source>
        <translation>Right arrow</translation>
    </message>
    <message>
        <source>Предыдущая строка</source>
        <translation>Previous phrase</translation>
    </message>
    <message>
        <source>Стрелка влево</source>
        <translation>Left arrow</translation>
    </message>
    <message>
        <source>Перейти к первой существующей строке</source>
        <translation>Go to the first phrase with text</translation>
    </message>
    <message>
        <source>Перейти к последней существующей строке</source>
        <translation>Go to the last phrase with text</translation>
    </message>
    <message>
        <source>Шрифт и фон</source>
        <translation>Font and background</translation>
    </message>
    <message>
        <source>Сохранить файл как...</source>
        <translation>Save the file as...</translation>
    </message>
    <message>
        <source>Вызов этого окна</source>
        <translation>This window</translation>
    </message>
    <message>
        <source>Файл не открыт</source>
        <translation>No file open</translation>
    </message>
    <message>
        <source>Новый файл</source>
        <translation>New file</translation>
    </message>
</context>
<context>
    <name>Menus</name>
    <message>
        <source>Коды &amp;Реакций</source>
        <translation>&amp;Reaction codes</translation>
    </message>
    <message>
        <source>Коды &amp;Воздействий</source>
        <translation>&amp;Approach codes</translation>
    </message>
    <message>
        <source>Коды &amp;Триггеров</source>
        <translation>&amp;Trigger codes</translation>
    </message>
    <message>
        <source>Список &amp;Имен</source>
        <translation>List of &amp;names</translation>
    </message>
    <message>
        <source>Коды &amp;Предметов</source>
        <translation>&amp;Item codes</translation>
    </message>
    <message>
        <source>Коды При&amp;немаемых квестов</source>
        <translation>Codes of &amp;quests received</translation>
    </message>
    <message>
        <source>Коды Завершенных &amp;квестов</source>
        <translation>Codes of quests &amp;completed</translation>
    </message>
    <message>
        <source>&amp;Файл</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>&amp;Открыть...</source>
        <translation>&amp;Open...</translation>
    </message>
    <message>
        <source>Созд&amp;ать</source>
        <translation>&amp;New</translation>
    </message>
    <message>
        <source>&amp;Сохранить</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Сохранить &amp;как...</source>
        <translation>Save &amp;as...</translation>
    </message>
    <message>
        <source>В&amp;ыход</source>
        <translation>E&amp;xit</translation>
    </message>
    <message>
        <source>&amp;Запись</source>
        <translation>&amp;Record</translation>
    </message>
    <message>
        <source>Перейти к пе&amp;рвой</source>
        <translation>Go to the &amp;first</translation>
    </message>
    <message>
        <source>Перейти к п&amp;оследней</source>
        <translation>Go to the &amp;last</translation>
    </message>
    <message>
        <source>С&amp;ледующая</source>
        <translation>Ne&amp;xt</translation>
    </message>
    <message>
        <source>Пре&amp;дыдущая</source>
        <translation>&amp;Previous</translation>
    </message>
    <message>
        <source>Удалит&amp;ь стандартно</source>
        <translation>Wipe to &amp;standard</translation>
    </message>
    <message>
        <source>&amp;Удалить полностью</source>
        <translation>&amp;Wipe completely</translation>
    </message>
    <message>
        <source>&amp;Копировать</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>Вст&amp;авить</source>
        <translation>P&amp;aste</translation>
    </message>
    <message>
        <source>От&amp;менить</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>По&amp;вторить</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>&amp;Инструменты</source>
        <translation>&amp;Tools</translation>
    </message>
    <message>
        <source>&amp;Тип файла</source>
        <translation>&amp;Layout</translation>
    </message>
    <message>
        <source>&amp;Редактировать</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Обзор</source>
        <translation>O&amp;verview</translation>
    </message>
    <message>
        <source>&amp;Параметры</source>
        <translation>&amp;Options</translation>
    </message>
    <message>
        <source>&amp;Коды</source>
        <translation>&amp;Codes</translation>
    </message>
    <message>
        <source>Помо&amp;щь</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;Справка</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>&amp;О Программе...</source>
        <translation>&amp;About...</translation>
    </message>
    <message>
        <source>Выбрать и &amp;Изменить</source>
        <translation>Choose and &amp;convert</translation>
    </message>
    <message>
        <source>&amp;Текущий</source>
        <translation>&amp;Current</translation>
    </message>
    <message>
        <source>&amp;Фон Текста</source>
        <translation>Text &amp;background</translation>
    </message>
    <message>
        <source>&amp;Шрифт Текста</source>
        <translation>Text &amp;font</translation>
    </message>
</context>
<context>
    <name>OptionsDialog</name>
    <message>
        <source>Запрос перед заменой</source>
        <translation>Ask before replacing</translation>
    </message>
    <message>
        <source>Ассоциировать файлы *.npc с этой прграммой</source>
        <translation>Open *.npc files with this program</translation>
    </message>
    <message>
        <source>Блокировать анимацию при закрытие окон</source>
        <translation>No animation when windows close</translation>
    </message>
    <message>
        <source>Показывать всплывающие подсказки (хинты)</source>
        <translation>Show tool tips (hints)</translation>
    </message>
    <message>
        <source>Автоматически показывать текущую фразу</source>
        <translation>Show the current phrase by itself</translation>
    </message>
    <message>
        <source>Определять имя edt-файла при открытии npc-файла</source>
        <translation>Find the name of the .edt file when an .npc file opens</translation>
    </message>
    <message>
        <source>и сразу загружать если он есть в данной папке</source>
        <translation>and open it at once if it is in that folder</translation>
    </message>
    <message>
        <source>Помнить путь последнего открытого EDT файла</source>
        <translation>Remember the path of the last .edt file opened</translation>
    </message>
    <message>
        <source>&amp;Реакций</source>
        <translation>&amp;Reactions</translation>
    </message>
    <message>
        <source>&amp;Воздействий</source>
        <translation>&amp;Approaches</translation>
    </message>
    <message>
        <source>&amp;Триггеров</source>
        <translation>&amp;Triggers</translation>
    </message>
    <message>
        <source>&amp;Предметов</source>
        <translation>&amp;Items</translation>
    </message>
    <message>
        <source>&amp;Имен</source>
        <translation>&amp;Names</translation>
    </message>
    <message>
        <source>&amp;Квестов (Принимаемых)</source>
        <translation>&amp;Quests (received)</translation>
    </message>
    <message>
        <source>Квестов (&amp;Завершенных)</source>
        <translation>Quests (&amp;completed)</translation>
    </message>
</context>
<context>
    <name>OptionsModel</name>
    <message>
        <source>Разное</source>
        <translation>Miscellaneous</translation>
    </message>
    <message>
        <source>Извлечь список</source>
        <translation>Extract a list</translation>
    </message>
</context>
<context>
    <name>Overview</name>
    <message>
        <source>(пустая)</source>
        <translation>(empty)</translation>
    </message>
    <message>
        <source>Запись</source>
        <translation>Record</translation>
    </message>
    <message>
        <source>Когда</source>
        <translation>When</translation>
    </message>
    <message>
        <source>Что делает</source>
        <translation>What it does</translation>
    </message>
    <message>
        <source>Говорит</source>
        <translation>Says</translation>
    </message>
    <message>
        <source>Замечания</source>
        <translation>Remarks</translation>
    </message>
    <message>
        <source>(нет в файле)</source>
        <translation>(not in the file)</translation>
    </message>
    <message>
        <source>Фраза</source>
        <translation>Phrase</translation>
    </message>
    <message>
        <source>Текст</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Длина</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>Говорят записи</source>
        <translation>Spoken by records</translation>
    </message>
</context>
<context>
    <name>ScriptFlows</name>
    <message>
        <source>все файлы (*.*)</source>
        <translation>all files (*.*)</translation>
    </message>
    <message>
        <source>Сохранть новый NPC файл?</source>
        <translation>Save the new script?</translation>
    </message>
    <message>
        <source>Сохранть %1 ?</source>
        <translation>Save %1?</translation>
    </message>
    <message>
        <source>ОТКРЫТИЕ NPC ФАЙЛА</source>
        <translation>OPEN A SCRIPT (.NPC)</translation>
    </message>
    <message>
        <source>Файл
%1
изменён другой программой после загрузки.
Заменить его содержимым редактора?</source>
        <translation>The file
%1
was changed by another program after it was loaded.
Replace it with what the editor holds?</translation>
    </message>
    <message>
        <source>СОХРАНИТЬ NPC ФАЙЛ КАК...</source>
        <translation>SAVE THE SCRIPT AS...</translation>
    </message>
    <message>
        <source>Все файлы</source>
        <translation>All files</translation>
    </message>
    <message>
        <source>ИЗМЕНЕНИЕ ФОРМАТА NPC ФАЙЛА</source>
        <translation>CONVERT A SCRIPT TO THE OTHER LAYOUT</translation>
    </message>
    <message>
        <source>ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:АВ (БУКА). СОХРАНИТЬ КАК...</source>
        <translation>THE SCRIPT IS IN THE LAYOUT OF THE RUSSIAN RELEASE (BUKA). SAVE AS...</translation>
    </message>
    <message>
        <source>ТЕКУЩИЙ ТИП NPC ФАЙЛА JA2:ENG., JA2UB:ENG. &amp; RUS. СОХРАНИТЬ КАК...</source>
        <translation>THE SCRIPT IS IN THE LAYOUT OF JA2 ENGLISH, JA2UB ENGLISH &amp; RUSSIAN. SAVE AS...</translation>
    </message>
    <message>
        <source>Преобразовать всё равно?</source>
        <translation>Convert it all the same?</translation>
    </message>
    <message>
        <source>Формат файла
%1 был изменен.
Загрузить файл заново?</source>
        <translation>The layout of the file
%1 was changed.
Load the file again?</translation>
    </message>
    <message>
        <source>Текущий файл...</source>
        <translation>The open script...</translation>
    </message>
    <message>
        <source>Buka: АВ</source>
        <translation>Buka: Russian release</translation>
    </message>
</context>
<context>
    <name>SpeechDocument</name>
    <message>
        <source>Диалоги НПЦ (&lt;3номера&gt;.EDT)</source>
        <translation>NPC dialogues (&lt;3 digits&gt;.EDT)</translation>
    </message>
    <message>
        <source>Гражд.(&lt;CIV+2н.&gt;.EDTили &lt;сектор&gt;.EDT)</source>
        <translation>Civilian (&lt;CIV+2 digits&gt;.EDT or &lt;sector&gt;.EDT)</translation>
    </message>
    <message>
        <source>Комменнтарии НПЦ (&lt;D_+3номера&gt;.EDT)</source>
        <translation>NPC remarks (&lt;D_+3 digits&gt;.EDT)</translation>
    </message>
    <message>
        <source>(Диалоги НПЦ).EDT</source>
        <translation>(NPC dialogues).EDT</translation>
    </message>
    <message>
        <source>(Диалоги гражданских).EDT</source>
        <translation>(Civilian dialogues).EDT</translation>
    </message>
    <message>
        <source>(Комметтарии НПЦ).EDT</source>
        <translation>(NPC remarks).EDT</translation>
    </message>
</context>
<context>
    <name>SpeechPane</name>
    <message>
        <source>Открыть</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Открыть EDT файл...</source>
        <translation>Open a speech file (.edt)...</translation>
    </message>
    <message>
        <source>Создать</source>
        <translation>New</translation>
    </message>
    <message>
        <source>Создать EDT файл (Диалоги НПЦ)</source>
        <translation>New speech file (NPC dialogues)</translation>
    </message>
    <message>
        <source>Сохранить</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Сохранить EDT файл</source>
        <translation>Save the speech file</translation>
    </message>
    <message>
        <source>Текст</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Раскомпилировать (!!!только для (НПЦ).*EDT)</source>
        <translation>Decompile (NPC dialogues only)</translation>
    </message>
    <message>
        <source>Перейти к началу</source>
        <translation>Go to the first phrase</translation>
    </message>
    <message>
        <source>Предыдущая фраза</source>
        <translation>Previous phrase</translation>
    </message>
    <message>
        <source>Следующая фраза</source>
        <translation>Next phrase</translation>
    </message>
    <message>
        <source>Перейти в конец</source>
        <translation>Go to the last phrase</translation>
    </message>
    <message>
        <source>Информация о файле</source>
        <translation>About the file</translation>
    </message>
    <message>
        <source>Комменнтарии НПЦ</source>
        <translation>NPC remarks</translation>
    </message>
    <message>
        <source>Диалоги Гражданских</source>
        <translation>Civilian dialogues</translation>
    </message>
</context>
<context>
    <name>parlex::gui::CaptionWarning</name>
    <message>
        <source>(Автозагрузка: Файл %1 - не найден)</source>
        <translation>(Open with the script: file %1 not found)</translation>
    </message>
</context>
<context>
    <name>parlex::gui::EditDialog</name>
    <message>
        <source>Выбор байта</source>
        <translation>Field</translation>
    </message>
    <message>
        <source>(Максимум 65535)</source>
        <translation>(Maximum 65535)</translation>
    </message>
    <message>
        <source>&amp;Заменить</source>
        <translation>&amp;Replace</translation>
    </message>
    <message>
        <source>&amp;Применить</source>
        <translation>&amp;Apply</translation>
    </message>
    <message>
        <source>Закр&amp;ыть</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Ошибка при обновлении записи</source>
        <translation>The record could not be updated</translation>
    </message>
    <message>
        <source>Л. Клик-вставить; П. Клик-копировать в буфер</source>
        <translation>Left click: enter it; right click: copy it</translation>
    </message>
    <message>
        <source>Смотреть коды</source>
        <translation>Show the codes</translation>
    </message>
</context>
<context>
    <name>parlex::gui::FontChooser</name>
    <message>
        <source>Шрифт</source>
        <translation>Font</translation>
    </message>
    <message>
        <source>Жирный</source>
        <translation>Bold</translation>
    </message>
    <message>
        <source>Курсив</source>
        <translation>Italic</translation>
    </message>
    <message>
        <source>ОК</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Отмена</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Шрифт:</source>
        <translation>Font:</translation>
    </message>
    <message>
        <source>Размер (%1-%2):</source>
        <translation>Size (%1-%2):</translation>
    </message>
</context>
<context>
    <name>parlex::gui::HelpPanel</name>
    <message>
        <source>Л. клик-размер шрифта П. клик-положение</source>
        <translation>Left click: font size  Right click: alignment</translation>
    </message>
</context>
<context>
    <name>parlex::gui::MainWindow</name>
    <message>
        <source>Новый</source>
        <translation>New</translation>
    </message>
    <message>
        <source>Выбор записи</source>
        <translation>Choose a record</translation>
    </message>
    <message>
        <source>П. клик-выделить Дв. клик-редактировать</source>
        <translation>Right click: pin  Double click: edit</translation>
    </message>
    <message>
        <source>Не удается открыть файл справки %1
Нет программы для просмотра HTML-файлов (нужны xdg-utils и браузер)</source>
        <translation>The help file %1 cannot be opened
There is no program to show HTML files (xdg-utils and a browser are needed)</translation>
    </message>
    <message>
        <source>Не удается найти файл справки Parlex.html
Этот файл должен быть в папке с запускаемой програмой</source>
        <translation>The help file Parlex.html cannot be found
It must be in the folder of the program</translation>
    </message>
    <message>
        <source>Редактор скриптов и речи НПЦ Jagged Alliance 2 и Unfinished Business</source>
        <translation>An editor of the NPC scripts and speech of Jagged Alliance 2 and Unfinished Business</translation>
    </message>
</context>
<context>
    <name>parlex::gui::OptionsDialog</name>
    <message>
        <source>Параметры...</source>
        <translation>Options...</translation>
    </message>
    <message>
        <source>Загрузка</source>
        <translation>Loading</translation>
    </message>
    <message>
        <source>Интерфейс</source>
        <translation>Interface</translation>
    </message>
    <message>
        <source>Извлечь всё</source>
        <translation>Extract all</translation>
    </message>
    <message>
        <source>Закр&amp;ыть</source>
        <translation>&amp;Close</translation>
    </message>
</context>
<context>
    <name>parlex::gui::OverviewPane</name>
    <message>
        <source>Обзор</source>
        <translation>Overview</translation>
    </message>
    <message>
        <source>Записи</source>
        <translation>Records</translation>
    </message>
    <message>
        <source>Фразы</source>
        <translation>Phrases</translation>
    </message>
    <message>
        <source>Сохранить обзор...</source>
        <translation>Save the overview...</translation>
    </message>
    <message>
        <source>Найти слова...</source>
        <translation>Find words...</translation>
    </message>
    <message>
        <source>только с ошибками</source>
        <translation>only with errors</translation>
    </message>
    <message>
        <source>все фразы</source>
        <translation>every phrase</translation>
    </message>
    <message>
        <source>и пустые</source>
        <translation>empty ones too</translation>
    </message>
    <message>
        <source>Копировать</source>
        <translation>Copy</translation>
    </message>
</context>
<context>
    <name>parlex::gui::SpeechPane</name>
    <message>
        <source>Файл не открыт!</source>
        <translation>No file open!</translation>
    </message>
    <message>
        <source>Новый</source>
        <translation>New</translation>
    </message>
</context>
<context>
    <name>parlex::session::DiskWatch</name>
    <message>
        <source>Файл
%1
удалён или переименован другой программой.
При сохранении будет предложено указать имя файла.</source>
        <translation>The file
%1
was removed or renamed by another program.
A save will ask for a file name.</translation>
    </message>
    <message>
        <source>Файл
%1
изменён другой программой.
Загрузить его заново? Изменения, сделанные в редакторе, будут потеряны.</source>
        <translation>The file
%1
was changed by another program.
Load it again? The changes made in the editor will be lost.</translation>
    </message>
    <message>
        <source>Файл
%1
изменён другой программой.
Загрузить его заново?</source>
        <translation>The file
%1
was changed by another program.
Load it again?</translation>
    </message>
</context>
<context>
    <name>parlex::session::Overview</name>
    <message>
        <source>Сохранить обзор</source>
        <translation>Save the overview</translation>
    </message>
    <message>
        <source>Обзор %1</source>
        <translation>Overview of %1</translation>
    </message>
</context>
<context>
    <name>parlex::session::SpeechDocument</name>
    <message>
        <source>Новый EDT файл</source>
        <translation>the new speech file</translation>
    </message>
    <message>
        <source>Сохранть %1?</source>
        <translation>Save %1?</translation>
    </message>
    <message>
        <source>ОТКРЫТИЕ (SPEECH).EDT ФАЙЛА...</source>
        <translation>OPEN A SPEECH FILE (.EDT)...</translation>
    </message>
    <message>
        <source>СОХРАНИТЬ EDT ФАЙЛ КАК...</source>
        <translation>SAVE THE SPEECH FILE AS...</translation>
    </message>
    <message>
        <source>все файлы</source>
        <translation>all files</translation>
    </message>
    <message>
        <source>Сохранить всё равно?</source>
        <translation>Save it all the same?</translation>
    </message>
    <message>
        <source>ДЕКОМПИЛИРОВАТЬ EDT ФАЙЛ И СОХРАНИТЬ КАК...</source>
        <translation>DECOMPILE THE SPEECH FILE AND SAVE AS...</translation>
    </message>
    <message>
        <source>все файлы (*.*)</source>
        <translation>all files (*.*)</translation>
    </message>
</context>
</TS>
