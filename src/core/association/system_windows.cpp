#include "core/association/systemassociation.h"

#include "core/association/win32registry.h"

#include <shlobj.h>

namespace parlex {
namespace {

// The registry way, with the shell told afterwards so that Explorer shows the new
// tie at once.
class WindowsAssociation : public FileAssociation {
public:
    explicit WindowsAssociation(const std::filesystem::path& program)
        : association_(registry_, utf8(program)) {}

    bool isAssociated() const override { return association_.isAssociated(); }
    Result<void> associate() override { return told(association_.associate()); }
    Result<void> disassociate() override { return told(association_.disassociate()); }

private:
    static std::string utf8(const std::filesystem::path& path) {
        const auto text = path.u8string();
        return std::string(text.begin(), text.end());
    }
    static Result<void> told(Result<void> outcome) {
        ::SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
        return outcome;
    }

    Win32Registry registry_;
    RegistryAssociation association_;
};

} // namespace

std::unique_ptr<FileAssociation> systemAssociation(const std::filesystem::path& program) {
    return std::make_unique<WindowsAssociation>(program);
}

} // namespace parlex
