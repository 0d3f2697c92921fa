#pragma once

// A registry kept in memory, with keys compared without regard to case as Windows
// does, and a switch that makes every write fail as without the right to write.
#include "core/association/registryassociation.h"

#include <algorithm>
#include <map>
#include <string>

namespace testutil {

class MemoryRegistry : public parlex::Registry {
public:
    std::optional<std::string> defaultValue(const std::string& key) const override {
        const auto found = keys.find(lower(key));
        if (found == keys.end())
            return std::nullopt;
        return found->second;
    }
    bool setDefaultValue(const std::string& key, const std::string& value) override {
        if (readOnly)
            return false;
        keys[lower(key)] = value;
        return true;
    }
    bool deleteKey(const std::string& key) override {
        if (readOnly)
            return false;
        const std::string prefix = lower(key);
        return std::erase_if(keys, [&](const auto& entry) {
                   return entry.first == prefix || entry.first.starts_with(prefix + "\\");
               }) > 0;
    }

    std::map<std::string, std::string> keys; // lower-case key -> default value
    bool readOnly = false;

private:
    static std::string lower(std::string s) {
        std::ranges::transform(s, s.begin(), [](unsigned char c) { return std::tolower(c); });
        return s;
    }
};

} // namespace testutil
