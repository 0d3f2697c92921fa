#include "session/userprompts.h"

#include "core/platform/files.h"
#include "session/pathtext.h"

namespace parlex::session {

std::optional<UserPrompts::SaveTarget>
UserPrompts::saveTarget(const FileRequest& request,
                        const std::function<std::optional<Error>(const SaveTarget&)>& refusal) {
    for (;;) {
        const auto choice = saveFile(request);
        if (!choice)
            return std::nullopt;
        std::filesystem::path path = pathOf(choice->path);
        const auto index = static_cast<std::size_t>(choice->filterIndex - 1);
        if (index < request.filters.size() && !request.filters[index].defaultSuffix.isEmpty() &&
            !path.has_extension())
            path += pathOf("." + request.filters[index].defaultSuffix);
        const SaveTarget target{path, choice->filterIndex};
        if (platform::driveKind(path) == platform::DriveKind::ReadOnly)
            tell(platform::readOnlyDriveError(path, true));
        else if (const auto refused = refusal ? refusal(target) : std::nullopt)
            tell(*refused);
        else
            return target;
    }
}

} // namespace parlex::session
