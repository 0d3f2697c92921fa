#include "core/settings/settingsfile.h"

#include "core/platform/files.h"
#include "core/text/cp1251.h"
#include "core/text/lines.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <locale>
#include <optional>
#include <sstream>
#include <vector>

namespace parlex {
namespace {

constexpr std::size_t kLineLimit = 260; // longer lines are cut
constexpr std::string_view kEnd = "\r\n";

// The keys in the order the lines are matched: the first key the line starts with
// (with its "=") decides.
enum class Key {
    Top,
    Left,
    Width,
    Height,
    WTop,
    WLeft,
    Path,
    SPath,
    ToolTip,
    Animation,
    FlagOverwrite,
    LSize,
    LAlig,
    ShowMessages,
    FontName,
    FontSize,
    Bold,
    Italic,
    Fon,
    RemebPath,
    AutoLoad,
    OverviewShown,
    OverviewTab,
    OverviewArea,
    OverviewRecords,
    OverviewPhrases,
    InterfaceLanguage,
};
constexpr std::pair<Key, std::string_view> kKeys[] = {
    {Key::Top, "Top"},
    {Key::Left, "Left"},
    {Key::Width, "Width"},
    {Key::Height, "Height"},
    {Key::WTop, "wTop"},
    {Key::WLeft, "wLeft"},
    {Key::Path, "Path"},
    {Key::SPath, "sPath"},
    {Key::ToolTip, "ToolTip"},
    {Key::Animation, "Animation"},
    {Key::FlagOverwrite, "FlagOverwrite"},
    {Key::LSize, "lSize"},
    {Key::LAlig, "lAlig"},
    {Key::ShowMessages, "ShowMessages"},
    {Key::FontName, "edtTxtFontName"},
    {Key::FontSize, "edtTxtFontSize"},
    {Key::Bold, "edtTxtBold"},
    {Key::Italic, "edtTxtItalic"},
    {Key::Fon, "edtTxtFon"},
    {Key::RemebPath, "RemebPath"},
    {Key::AutoLoad, "AutoLoad"},
    {Key::OverviewShown, "OverviewShown"},
    {Key::OverviewTab, "OverviewTab"},
    {Key::OverviewArea, "OverviewArea"},
    {Key::OverviewRecords, "OverviewRecords"},
    {Key::OverviewPhrases, "OverviewPhrases"},
    {Key::InterfaceLanguage, "Language"},
};
constexpr std::size_t kKeyCount = std::size(kKeys);

// The whole value as a number (blanks around it allowed), or nothing. "." is the
// decimal point whatever the user's locale says: from_chars where the standard library
// reads floats with it, else a stream in the classic locale (which costs the start the
// library's locale tables).
std::optional<double> number(std::string_view s) {
    s = text::trimmed(s);
    if (!s.empty() && s.front() == '+')
        s.remove_prefix(1);
    if (s.empty() || s.front() == '+' || s.front() == ' ' || s.front() == '\t')
        return std::nullopt;
    double value = 0;
#if defined(__cpp_lib_to_chars) && __cpp_lib_to_chars >= 201611L
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (ec != std::errc() || end != s.data() + s.size() || !std::isfinite(value))
        return std::nullopt;
#else
    std::istringstream in{std::string(s)};
    in.imbue(std::locale::classic());
    in >> std::noskipws >> value;
    if (in.fail() || in.peek() != std::char_traits<char>::eof() || !std::isfinite(value))
        return std::nullopt;
#endif
    return value;
}

std::optional<std::int32_t> integer(std::string_view s) {
    s = text::trimmed(s);
    std::int32_t value = 0;
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (s.empty() || ec != std::errc() || end != s.data() + s.size())
        return std::nullopt;
    return value;
}

// "50,260,200": column widths, each kept within sensible pixels; nothing if any is no
// whole number.
std::vector<int> widths(std::string_view text) {
    std::vector<int> out;
    while (!text.empty() && out.size() < 8) {
        const std::size_t comma = text.find(',');
        const auto n = integer(text.substr(0, comma));
        if (!n)
            return {};
        out.push_back(std::clamp(*n, 10, 2000));
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    return out;
}

std::string widthsText(const std::vector<int>& widths) {
    std::string out;
    for (const int w : widths)
        out += (out.empty() ? "" : ",") + std::to_string(w);
    return out;
}

bool flag(std::string_view kept) {
    return !kept.empty() && kept.front() == '1';
}

// Whole twips, divided without remainder.
double wholeDivided(double dividend, int divisor) {
    const long long whole = std::llround(dividend) / divisor;
    return static_cast<double>(whole);
}

std::string shortest(double value) {
    char buffer[32];
    const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
    return ec == std::errc() ? std::string(buffer, end) : std::string("0");
}

// The file keeps colours as the platform's colour value, 0x00BBGGRR; a system colour
// (negative) stands for the usual white of a text box.
unsigned rgbOf(std::int32_t colourRef) {
    if (colourRef < 0 || colourRef > 0xFFFFFF)
        return 0xFFFFFF;
    const auto c = static_cast<unsigned>(colourRef);
    return ((c & 0xFF) << 16) | (c & 0xFF00) | ((c >> 16) & 0xFF);
}

std::int32_t colourRefOf(unsigned rgb) {
    return static_cast<std::int32_t>(((rgb & 0xFF) << 16) | (rgb & 0xFF00) | ((rgb >> 16) & 0xFF));
}

// A text as the file holds it; one that Windows-1251 cannot hold is left empty.
std::string fileText(const std::string& utf8) {
    auto bytes = text::utf8ToCp1251(utf8);
    return bytes ? *bytes : std::string();
}

} // namespace

void applySettingsText(std::string_view text, Settings& s, const ScreenTwips& screen,
                       const std::function<bool(const std::string&)>& stillThere) {
    if (text.empty()) {
        s.left = (screen.width - s.width) / 2;
        s.top = (screen.height - s.height) / 2;
        return;
    }
    // What the file says, by key; the last line of a key counts.
    std::optional<std::string_view> values[kKeyCount];
    while (!text.empty()) {
        const std::size_t eol = text.find('\n');
        std::string_view line = text.substr(0, eol);
        text.remove_prefix(eol == std::string_view::npos ? text.size() : eol + 1);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        if (line.empty() || line.front() == ';' || line.front() == '[')
            continue;
        line = line.substr(0, kLineLimit);
        const auto pair = text::splitAtEquals(line);
        for (std::size_t k = 0; pair && k < kKeyCount; ++k) {
            if (pair->key == kKeys[k].second) {
                values[k] = pair->value;
                break;
            }
        }
    }
    const auto value = [&](Key key) { return values[static_cast<std::size_t>(key)]; };
    const auto kept = [&](Key key) { return value(key).value_or(std::string_view()); };
    const auto take = [&](Key key, double& target) {
        if (const auto v = value(key))
            if (const auto n = number(*v))
                target = *n;
    };

    take(Key::Top, s.top);
    take(Key::Left, s.left);
    take(Key::Width, s.width);
    take(Key::Height, s.height);
    take(Key::WTop, s.splitterTop);
    take(Key::WLeft, s.splitterLeft);
    if (const auto v = value(Key::Path))
        s.scriptPath = text::cp1251ToUtf8(*v);
    if (const auto v = value(Key::SPath))
        s.speechPath = text::cp1251ToUtf8(*v);

    // The window within the screen and above its least size.
    if (s.height > screen.height + 200 || s.height < 7000)
        s.height = 7000;
    if (s.width > screen.width + 200 || s.width < 9000)
        s.width = 9000;
    if (s.top > screen.height - 300 || s.top < -200)
        s.top = (screen.height - s.height) / 2;
    if (s.left > screen.width - 300 || s.left + 9000 < -200)
        s.left = (screen.width - s.width) / 2;
    // The bars within the window.
    const double innerWidth = s.width - screen.frameWidth;
    const double innerHeight = s.height - screen.frameHeight;
    if (s.splitterLeft < 500 || s.splitterLeft > innerWidth - 3850)
        s.splitterLeft = wholeDivided(s.width, 3);
    if (s.splitterTop < 1430 || s.splitterTop > innerHeight - 1450)
        s.splitterTop = wholeDivided(s.height, 2);

    OverviewPlace& place = s.overview;
    place.shown = flag(kept(Key::OverviewShown));
    place.tab = integer(kept(Key::OverviewTab)).value_or(0) == 1 ? 1 : 0;
    const int area = integer(kept(Key::OverviewArea)).value_or(8);
    place.area = area == 1 || area == 2 || area == 4 ? area : 8;
    place.recordColumns = widths(kept(Key::OverviewRecords));
    place.phraseColumns = widths(kept(Key::OverviewPhrases));

    Options& o = s.options;
    o.toolTips = flag(kept(Key::ToolTip));
    o.animationOff = flag(kept(Key::Animation));
    o.flagOverwrite = flag(kept(Key::FlagOverwrite));
    o.paneFollowsPhrase = flag(kept(Key::ShowMessages));

    o.helpFontSize =
        static_cast<int>(std::lround(std::clamp(number(kept(Key::LSize)).value_or(8), 8.0, 14.0)));
    const std::string_view alignment = kept(Key::LAlig);
    o.helpAlignment = !alignment.empty() && alignment.front() >= '0' && alignment.front() <= '9'
                          ? std::min(alignment.front() - '0', 2)
                          : 0;

    if (const auto name = value(Key::FontName); name && !name->empty())
        o.phraseFont.family = text::cp1251ToUtf8(*name);
    o.phraseFont.pointSize = std::clamp(number(kept(Key::FontSize)).value_or(10), 4.0, 18.0);
    o.phraseFont.bold = flag(kept(Key::Bold));
    o.phraseFont.italic = flag(kept(Key::Italic));
    if (const auto colour = integer(kept(Key::Fon)))
        o.phraseBackColour = rgbOf(*colour);

    o.rememberPath = flag(kept(Key::RemebPath));
    o.findEdtName = !o.rememberPath;
    o.autoLoad = flag(kept(Key::AutoLoad));
    o.language = languageNamed(kept(Key::InterfaceLanguage)).value_or(Language::Russian);

    if (!s.scriptPath.empty() && !stillThere(s.scriptPath))
        s.scriptPath.clear();
    if (!s.speechPath.empty() && !stillThere(s.speechPath))
        s.speechPath.clear();
}

std::string settingsText(const Settings& s) {
    const auto bit = [](bool b) { return std::string(b ? "1" : "0"); };
    const Options& o = s.options;
    using Entries = std::vector<std::pair<std::string_view, std::string>>;
    const std::pair<std::string_view, Entries> sections[] = {
        {"[POSITION]",
         {{"Top", shortest(s.top)},
          {"Left", shortest(s.left)},
          {"Width", shortest(s.width)},
          {"Height", shortest(s.height)},
          {"wTop", shortest(s.splitterTop)},
          {"wLeft", shortest(s.splitterLeft)},
          {"lSize", std::to_string(o.helpFontSize)},
          {"lAlig", std::to_string(o.helpAlignment)}}},
        {"[INTERFACE]",
         {{"ToolTip", bit(o.toolTips)},
          {"Animation", bit(o.animationOff)},
          {"FlagOverwrite", bit(o.flagOverwrite)},
          {"ShowMessages", bit(o.paneFollowsPhrase)},
          {"edtTxtFontName", fileText(o.phraseFont.family)},
          {"edtTxtFontSize", shortest(o.phraseFont.pointSize)},
          {"edtTxtBold", bit(o.phraseFont.bold)},
          {"edtTxtItalic", bit(o.phraseFont.italic)},
          {"edtTxtFon", std::to_string(colourRefOf(o.phraseBackColour))},
          {"RemebPath", bit(o.rememberPath)},
          {"AutoLoad", bit(o.autoLoad)}}},
        {"[HISTORY]", {{"Path", fileText(s.scriptPath)}, {"sPath", fileText(s.speechPath)}}},
        {"[OVERVIEW]",
         {{"OverviewShown", bit(s.overview.shown)},
          {"OverviewTab", std::to_string(s.overview.tab)},
          {"OverviewArea", std::to_string(s.overview.area)},
          {"OverviewRecords", widthsText(s.overview.recordColumns)},
          {"OverviewPhrases", widthsText(s.overview.phraseColumns)}}},
    };
    std::string out = "; PARLEX: CONFIGURATION FILE";
    out += kEnd;
    for (const auto& [name, entries] : sections) {
        out += kEnd;
        out += name;
        out += kEnd;
        for (const auto& [key, value] : entries) {
            out += key;
            out += '=';
            out += value;
            out += kEnd;
        }
        // The language of the window, written only when it is not the default: a
        // Russian file stays line for line as the old program wrote it, and the old
        // program passes the key over.
        if (name == "[INTERFACE]" && o.language == Language::English) {
            out += "Language=en";
            out += kEnd;
        }
    }
    return out;
}

bool rememberedPathUsable(const std::string& path) {
    std::error_code ec;
    const std::filesystem::path p = platform::pathFromUtf8(path);
    return std::filesystem::exists(p, ec) && platform::driveKind(p) == platform::DriveKind::Fixed;
}

bool readSettingsFile(const std::filesystem::path& file, Settings& settings,
                      const ScreenTwips& screen) {
    // A file too large to be settings is read as none.
    const auto bytes = platform::readFileLimited(file, platform::kMaxTextFileSize);
    const std::string text = bytes ? std::string(bytes->begin(), bytes->end()) : std::string();
    applySettingsText(text, settings, screen, rememberedPathUsable);
    return !text.empty();
}

Result<void> writeSettingsFile(const std::filesystem::path& file, const Settings& settings) {
    if (platform::driveKind(file) == platform::DriveKind::ReadOnly)
        return std::unexpected(platform::readOnlyDriveError(file, false));
    return platform::writeFileAtomic(file, settingsText(settings));
}

} // namespace parlex
