// The settings file: any text applies without fault, and the settings it gives write
// out as text that applies to the very same settings (a fixed point after one round).
#include "check.h"
#include "core/settings/settingsfile.h"

#include <cstdint>
#include <string_view>

using namespace parlex;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const ScreenTwips screen{19200, 14400, 120, 690};
    const auto anyPath = [](const std::string&) { return true; };
    // What the window gives before reading: the defaults and its design geometry.
    Settings design;
    design.width = 9000;
    design.height = 7000;
    design.splitterTop = 3500;
    design.splitterLeft = 3000;
    Settings first = design;
    applySettingsText(text, first, screen, anyPath);
    const std::string written = settingsText(first);
    Settings second = design;
    applySettingsText(written, second, screen, anyPath);
    FUZZ_CHECK(second == first);
    FUZZ_CHECK(settingsText(second) == written);
    return 0;
}
