#include "core/association/win32registry.h"

#include <windows.h>

namespace parlex {
namespace {

std::wstring wide(const std::string& text) {
    const int size =
        ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
    std::wstring out(static_cast<std::size_t>(size), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), size);
    return out;
}

std::string narrow(const std::wstring& text) {
    const int size = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                           nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), size,
                          nullptr, nullptr);
    return out;
}

std::wstring classesPath(const std::string& key) {
    return L"Software\\Classes\\" + wide(key);
}

} // namespace

std::optional<std::string> Win32Registry::defaultValue(const std::string& key) const {
    HKEY handle = nullptr;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, classesPath(key).c_str(), 0, KEY_QUERY_VALUE, &handle) !=
        ERROR_SUCCESS)
        return std::nullopt;
    DWORD type = 0;
    DWORD size = 0;
    std::optional<std::string> value;
    if (::RegQueryValueExW(handle, nullptr, nullptr, &type, nullptr, &size) == ERROR_SUCCESS &&
        (type == REG_SZ || type == REG_EXPAND_SZ)) {
        std::wstring buffer(size / sizeof(wchar_t) + 1, L'\0');
        if (::RegQueryValueExW(handle, nullptr, nullptr, &type,
                               reinterpret_cast<BYTE*>(buffer.data()), &size) == ERROR_SUCCESS) {
            buffer.resize(size / sizeof(wchar_t));
            while (!buffer.empty() && buffer.back() == L'\0')
                buffer.pop_back();
            value = narrow(buffer);
        }
    } else {
        value = std::string(); // a key without a default value
    }
    ::RegCloseKey(handle);
    return value;
}

bool Win32Registry::setDefaultValue(const std::string& key, const std::string& value) {
    HKEY handle = nullptr;
    if (::RegCreateKeyExW(HKEY_CURRENT_USER, classesPath(key).c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                          nullptr, &handle, nullptr) != ERROR_SUCCESS)
        return false;
    const std::wstring data = wide(value);
    const bool set =
        ::RegSetValueExW(handle, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                         static_cast<DWORD>((data.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
    ::RegCloseKey(handle);
    return set;
}

bool Win32Registry::deleteKey(const std::string& key) {
    return ::RegDeleteTreeW(HKEY_CURRENT_USER, classesPath(key).c_str()) == ERROR_SUCCESS;
}

} // namespace parlex
